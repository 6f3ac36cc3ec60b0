// SPDX-License-Identifier: Apache-2.0
// This source is compiled without access control.
#include "Members.h"

#include "Trace.h"

#include <type_traits>
#include <utility>

namespace qz::compare {
namespace {

void record(const char* name, const android::String8& text) {
    trace() << name << ' ' << text.c_str() << '\n';
}

void record(const char* name, const android::String16& text) { record(name, android::String8(text)); }

template <typename T>
void record(const char* name, T* pointer) {
    trace() << name << (pointer != nullptr ? " given\n" : " null\n");
}

// A number, or a wrapper around one, by its bytes.
template <typename T>
void record(const char* name, const T& number) {
    static_assert(sizeof(T) <= sizeof(int64_t) && std::is_standard_layout_v<T>);
    trace() << name << ' ';
    trace().bytes(&number, sizeof number) << '\n';
}

}  // namespace

#define RECORD(object, member) record(#member, (object).member)

void recordMembers(const CCameraQzParam& translator) {
    RECORD(translator, mExtParam);
    RECORD(translator, mBurstCapture);
    RECORD(translator, mImagePostProcess);
    RECORD(translator, mAllFocusMode);
    RECORD(translator, mProfessionalMode);
    RECORD(translator, mSuperResPicSizes);
    RECORD(translator, mSubPicSizes);
    RECORD(translator, mLcdCompensate);
    RECORD(translator, mOtpTestResult);
    RECORD(translator, mFocusVcmValue);
    RECORD(translator, mLightPaintingMode);
    RECORD(translator, mFocusContrastValue);
    RECORD(translator, mVideoFps);
    RECORD(translator, mInsertPreviewCount);
    RECORD(translator, mVideoCallbackSupported);
    RECORD(translator, mHighVideoCallbackThreshold);
    RECORD(translator, mCallBackFlag);
    RECORD(translator, mSensorExposureTime);
    RECORD(translator, mFwkZslSupported);
    RECORD(translator, mIsQzCamera);
    RECORD(translator, mRequireVideoStatus);
    RECORD(translator, mRecording);
    RECORD(translator, mPreShutterSupported);
    RECORD(translator, mPreShutterDone);
    RECORD(translator, mPanorama2DMode);
    RECORD(translator, mMaxQuickThumbnailSize);
    RECORD(translator, mSlowJpegModeThreshold);
    RECORD(translator, mClientName);
}

void recordMembers(const CameraQzCallBack& callBack) {
    RECORD(callBack, mExtCallBackIntf);
    RECORD(callBack, mQzParam);
    RECORD(callBack, mTargetCoordX);
    RECORD(callBack, mTargetCoordY);
    RECORD(callBack, mDualAbnormal);
    RECORD(callBack, mDualVerifyActive);
    RECORD(callBack, mDualVerifyIndex);
    RECORD(callBack, mMmiTestMode);
    RECORD(callBack, mMmiTestIndex);
    RECORD(callBack, mMmiTestRequest);
    RECORD(callBack, mPdafVerifyMode);
    RECORD(callBack, mZslMode);
    RECORD(callBack, mExposurePreviewState);
    RECORD(callBack, mLowCapState);
    RECORD(callBack, mMmiFocusValue);
}

void recordMembers(const CameraQzSendCmd& command) {
    RECORD(command, mQzParam);
    RECORD(command, mContrastCount);
}

void recordMembers(const QzPerformEx& inspector) {
    RECORD(inspector, mCameraId);
    RECORD(inspector, mStaticInfo);
}

ExtParamInterface* exchangeHost(CCameraQzParam* translator, ExtParamInterface* host) {
    return std::exchange(translator->mExtParam, host);
}

ExtCallBackInterface* exchangeHost(CameraQzCallBack* callBack, ExtCallBackInterface* host) {
    return std::exchange(callBack->mExtCallBackIntf, host);
}

void setPreShutterDone(CCameraQzParam* translator, bool done) { translator->mPreShutterDone = done; }

}  // namespace qz::compare
