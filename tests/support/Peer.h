// SPDX-License-Identifier: Apache-2.0
// Gives tests access to the private state of a camera.
#pragma once

#include "CameraQzCallBack.h"

#include <map>
#include <string>

namespace qz {

struct TestPeer {
    using Members = std::map<std::string, int64_t>;

    static constexpr auto extParam = &CCameraQzParam::mExtParam;
    static constexpr auto professional = &CCameraQzParam::mProfessionalMode;
    static constexpr auto superResPicSizes = &CCameraQzParam::mSuperResPicSizes;
    static constexpr auto subPicSizes = &CCameraQzParam::mSubPicSizes;
    static constexpr auto otpTestResult = &CCameraQzParam::mOtpTestResult;
    static constexpr auto lightPainting = &CCameraQzParam::mLightPaintingMode;
    static constexpr auto exposureTime = &CCameraQzParam::mSensorExposureTime;
    static constexpr auto isQzCamera = &CCameraQzParam::mIsQzCamera;
    static constexpr auto requireVideoStatus = &CCameraQzParam::mRequireVideoStatus;
    static constexpr auto preShutterSupported = &CCameraQzParam::mPreShutterSupported;
    static constexpr auto preShutterDone = &CCameraQzParam::mPreShutterDone;
    static constexpr auto panorama2D = &CCameraQzParam::mPanorama2DMode;

    static CameraQzCallBack* withoutHost(CCameraQzParam* camera) {
        return new CameraQzCallBack(nullptr, camera);
    }

    // Returns the members after the host pointer, texts by their length.
    static Members members(const CCameraQzParam& of) {
        return {{"mBurstCapture", of.mBurstCapture},
                {"mImagePostProcess", of.mImagePostProcess},
                {"mAllFocusMode", of.mAllFocusMode},
                {"mProfessionalMode", of.mProfessionalMode.get()},
                {"mSuperResPicSizes", of.mSuperResPicSizes.size()},
                {"mSubPicSizes", of.mSubPicSizes.size()},
                {"mLcdCompensate", of.mLcdCompensate.get()},
                {"mOtpTestResult", of.mOtpTestResult.get()},
                {"mFocusVcmValue", of.mFocusVcmValue.get()},
                {"mLightPaintingMode", of.mLightPaintingMode},
                {"mFocusContrastValue", of.mFocusContrastValue.get()},
                {"mVideoFps", of.mVideoFps},
                {"mInsertPreviewCount", of.mInsertPreviewCount},
                {"mVideoCallbackSupported", of.mVideoCallbackSupported},
                {"mHighVideoCallbackThreshold", of.mHighVideoCallbackThreshold},
                {"mCallBackFlag", of.mCallBackFlag},
                {"mSensorExposureTime", of.mSensorExposureTime},
                {"mFwkZslSupported", of.mFwkZslSupported},
                {"mIsQzCamera", of.mIsQzCamera},
                {"mRequireVideoStatus", of.mRequireVideoStatus},
                {"mRecording", of.mRecording},
                {"mPreShutterSupported", of.mPreShutterSupported},
                {"mPreShutterDone", of.mPreShutterDone},
                {"mPanorama2DMode", of.mPanorama2DMode},
                {"mMaxQuickThumbnailSize", of.mMaxQuickThumbnailSize},
                {"mSlowJpegModeThreshold", of.mSlowJpegModeThreshold},
                {"mClientName", of.mClientName.size()}};
    }
    static Members members(const CameraQzCallBack& of) {
        return {{"mTargetCoordX", of.mTargetCoordX},
                {"mTargetCoordY", of.mTargetCoordY},
                {"mDualAbnormal", of.mDualAbnormal},
                {"mDualVerifyActive", of.mDualVerifyActive},
                {"mDualVerifyIndex", of.mDualVerifyIndex},
                {"mMmiTestMode", of.mMmiTestMode},
                {"mMmiTestIndex", of.mMmiTestIndex},
                {"mMmiTestRequest", of.mMmiTestRequest},
                {"mPdafVerifyMode", of.mPdafVerifyMode},
                {"mZslMode", of.mZslMode},
                {"mExposurePreviewState", of.mExposurePreviewState},
                {"mLowCapState", of.mLowCapState},
                {"mMmiFocusValue", of.mMmiFocusValue}};
    }
    // Returns the members of both objects, by the names that rows of results use.
    static Members members(const CameraQzCallBack& of, const CCameraQzParam& camera) {
        Members all = members(of);
        for (const auto& [name, value] : members(camera)) all["translator's " + name] = value;
        return all;
    }
};

namespace test {

// Returns "name: value" for each member that has changed.
inline std::string changesOf(const TestPeer::Members& before, const TestPeer::Members& after) {
    std::string changes;
    for (const auto& [name, value] : after) {
        if (before.at(name) == value) continue;
        changes += (changes.empty() ? "" : " | ") + name + ": " + std::to_string(value);
    }
    return changes;
}

}  // namespace test
}  // namespace qz
