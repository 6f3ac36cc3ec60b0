// The translator's members, for tests to look at and to change.
#pragma once

#include "CCameraQzParam.h"

#include <tuple>

namespace qz {

struct TestPeer {
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

    // Every member behind the interface pointer, in the order of declaration.
    static auto state(const CCameraQzParam& p) {
        return std::make_tuple(
            p.mBurstCapture, p.mImagePostProcess, p.mAllFocusMode, p.mProfessionalMode.get(),
            p.mSuperResPicSizes.size(), p.mSubPicSizes.size(), p.mLcdCompensate.get(), p.mOtpTestResult.get(),
            p.mFocusVcmValue.get(), p.mLightPaintingMode, p.mFocusContrastValue.get(), p.mVideoFps,
            p.mInsertPreviewCount, p.mVideoCallbackSupported, p.mHighVideoCallbackThreshold, p.mCallBackFlag,
            p.mSensorExposureTime, p.mFwkZslSupported, p.mIsQzCamera, p.mRequireVideoStatus, p.mRecording,
            p.mPreShutterSupported, p.mPreShutterDone, p.mPanorama2DMode, p.mMaxQuickThumbnailSize,
            p.mSlowJpegModeThreshold, p.mClientName.size());
    }
};

}  // namespace qz
