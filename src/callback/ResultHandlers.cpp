// SPDX-License-Identifier: Apache-2.0
// Handlers that send single values, and the conditions under which a value is new.
#include "callback/ResultSteps.h"

#include "tags/TagNames.h"
#include "tags/VendorTag.h"
#include "text/Log.h"

namespace qz {

EntryView<int32_t> findNumbers(ExtCallBackInterface* host, const Result& result, TagName tagName) {
    const uint32_t tag = vendorTagOf(tagName);
    if (tag == kNoTag) return {};
    return EntryView<int32_t>(host->findResultEntry(result.metadata, tag));
}

void ResultSteps::checkZslMode(CameraQzCallBack& callBack, const Result& result) {
    const uint8_t mode = result.bytes()[0];
    if (mode == callBack.mZslMode) return;
    callBack.mZslMode = mode;
    LOG(line::ZslModeChange, __func__, mode);
}

void callbackTargetTracking(ExtCallBackInterface* host, const int32_t* targetCoord) {
    if (targetCoord == nullptr) {
        LOG_TEXT(line::NoTargetCoord);
        return;
    }
    host->notifyCallback(MSG_TARGET_TRACKING, targetCoord[0], targetCoord[1]);
}

void ResultSteps::processTargetTracking(CameraQzCallBack& callBack, const Result& result) {
    const int32_t* offset = result.numbers();
    if (offset[0] == callBack.mTargetCoordX && offset[1] == callBack.mTargetCoordY) return;
    callBack.mTargetCoordX = offset[0];
    callBack.mTargetCoordY = offset[1];
    callbackTargetTracking(callBack.mExtCallBackIntf, offset);
}

void ResultSteps::processFocusVcmValue(CameraQzCallBack& callBack, const Result& result) {
    callBack.mQzParam->mFocusVcmValue.set(result.numbers()[0]);
}

void ResultSteps::processFocusContrastValue(CameraQzCallBack& callBack, const Result& result) {
    callBack.mQzParam->mFocusContrastValue.set(result.numbers()[0]);
}

void ResultSteps::processOtpcheckResult(CameraQzCallBack& callBack, const Result& result) {
    callBack.mQzParam->mOtpTestResult.set(static_cast<uint8_t>(result.numbers()[0]));
}

// An abnormal state is sent with every result. The return to normal is sent once.
void ResultSteps::processDualAbnormal(CameraQzCallBack& callBack, const Result& result) {
    const int32_t abnormal = result.numbers()[0];
    if (abnormal == 0 && callBack.mDualAbnormal == 0) return;
    callBack.mDualAbnormal = abnormal;
    callBack.mExtCallBackIntf->notifyCallback(MSG_DUAL_ABNORMAL, abnormal, 0);
}

// The index of the last result is kept after the verification, so that the next one does not send it again.
void ResultSteps::processDualCameraVerify(CameraQzCallBack& callBack, const Result& result) {
    if (result.bytes()[0] != 1) {
        callBack.mDualVerifyActive = 0;
        return;
    }
    const EntryView<int32_t> verify =
        findNumbers(callBack.mExtCallBackIntf, result, CAPTURE("qz-dual-camera-verification-result"));
    if (verify.count() != 2 || verify[1] == callBack.mDualVerifyIndex) return;
    LOG(line::DualVerification, __func__, verify[0], verify[1]);
    callBack.mExtCallBackIntf->notifyCallback(MSG_DUAL_CAMERA_VERIFY_RESULT, verify[0], verify[1]);
    callBack.mDualVerifyActive = 1;
    callBack.mDualVerifyIndex = verify[1];
}

void ResultSteps::processMMIFeatureTest(CameraQzCallBack& callBack, const Result& result) {
    const int32_t* test = result.numbers();
    const int32_t mode = test[1];
    const int32_t index = test[2];
    const int32_t request = test[3];
    if (mode == callBack.mMmiTestMode && index == callBack.mMmiTestIndex &&
        request == callBack.mMmiTestRequest)
        return;
    LOG(line::FeatureTest, __func__, test[0], mode, index, request);
    callBack.mExtCallBackIntf->notifyCallback(MSG_MMI_FEATURE_TEST_RESULT, test[0], request);
    callBack.mMmiTestMode = mode;
    callBack.mMmiTestIndex = index;
    callBack.mMmiTestRequest = request;
}

// The result is sent once while the verification mode stays 1. Any other mode allows it again.
void ResultSteps::processMMICameraPdafVerify(CameraQzCallBack& callBack, const Result& result) {
    const uint8_t mode = result.bytes()[0];
    LOG(line::PdafVerificationMode, __func__, mode);
    if (mode == 1) {
        const EntryView<int32_t> verify = findNumbers(callBack.mExtCallBackIntf, result,
                                                      CAPTURE("qz-dual-camera-pdaf-verification-result"));
        if (verify.count() != 1 || callBack.mPdafVerifyMode != 0) return;
        LOG(line::PdafVerification, __func__, verify[0]);
        callBack.mExtCallBackIntf->notifyCallback(MSG_MMI_PDAF_VERIFY_RESULT, verify[0], 0);
    }
    callBack.mPdafVerifyMode = mode == 1 ? 1 : 0;
}

void ResultSteps::processSmartMode(CameraQzCallBack& callBack, const Result& result) {
    callBack.callbackSmartMode(result.numbers()[0]);
}

void ResultSteps::processLowCapState(CameraQzCallBack& callBack, const Result& result) {
    const int32_t state = result.numbers()[0];
    if (state == callBack.mLowCapState) return;
    callBack.mLowCapState = state;
    LOG(line::LowCaptureState, __func__, state);
}

void ResultSteps::processLcdFlashMode(CameraQzCallBack& callBack, const Result& result) {
    callBack.mQzParam->mLcdCompensate.set(result.bytes()[0]);
}

void ResultSteps::processExposureModePreviewState(CameraQzCallBack& callBack, const Result& result) {
    const uint8_t state = result.bytes()[0];
    if (state == callBack.mExposurePreviewState) return;
    callBack.mExposurePreviewState = state;
    if (state == 0) return;
    LOG(line::ExposurePreviewStarted, __func__);
    callBack.mExtCallBackIntf->notifyCallback(MSG_EXPOSURE_MODE_PREVIEW_STATE, 0, 0);
}

}  // namespace qz
