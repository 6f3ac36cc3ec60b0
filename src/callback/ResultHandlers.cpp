// The handlers of single values: what each looks for in a result, and when it has something new to say.
#include "CameraQzCallBack.h"
#include "callback/CallBackLog.h"
#include "callback/ResultEntry.h"

namespace qz {

status_t CameraQzCallBack::checkZslMode(const CameraMetadata& result) {
    const ResultEntry<uint8_t> mode(mExtCallBackIntf, result, CAPTURE("qz-zsl-mode"), __func__);
    if (mode.count() == 1 && mode[0] != mZslMode) {
        mZslMode = mode[0];
        LOGI("%s(), ZSL mode changes to: %d", __func__, mZslMode);
    }
    return mode.status();
}

status_t CameraQzCallBack::processTargetTracking(const CameraMetadata& result) {
    const ResultEntry<int32_t> offset(mExtCallBackIntf, result, CAPTURE("target-coordinates-offset"),
                                      __func__);
    if (offset.count() == 2 && (offset[0] != mTargetCoordX || offset[1] != mTargetCoordY)) {
        mTargetCoordX = offset[0];
        mTargetCoordY = offset[1];
        callbackTargetTracking(offset.data());
    }
    return offset.status();
}

status_t CameraQzCallBack::processFocusVcmValue(const CameraMetadata& result) {
    const ResultEntry<int32_t> position(mExtCallBackIntf, result, CAPTURE("focusVcmValue"), __func__);
    if (position.count() == 1) mQzParam->mFocusVcmValue.set(position[0]);
    return position.status();
}

status_t CameraQzCallBack::processFocusContrastValue(const CameraMetadata& result) {
    const ResultEntry<int32_t> contrast(mExtCallBackIntf, result, CAPTURE("qz-af-mmi-contrast-value"),
                                        __func__);
    if (contrast.count() == 1) mQzParam->mFocusContrastValue.set(contrast[0]);
    return contrast.status();
}

status_t CameraQzCallBack::processOtpcheckResult(const CameraMetadata& result) {
    const ResultEntry<int32_t> check(mExtCallBackIntf, result, CAPTURE("qz-otp-check"), __func__);
    if (check.count() == 1) mQzParam->mOtpTestResult.set(static_cast<uint8_t>(check[0]));
    return check.status();
}

// An abnormal state is repeated with every result; the return to normal is told once.
status_t CameraQzCallBack::processDualAbnormal(const CameraMetadata& result) {
    const ResultEntry<int32_t> abnormal(mExtCallBackIntf, result, CAPTURE("dualSensorAbnormal"), __func__);
    if (abnormal.count() == 1 && (abnormal[0] != 0 || mDualAbnormal != 0)) {
        mDualAbnormal = abnormal[0];
        callbackDualAbnormal(mDualAbnormal);
    }
    return abnormal.status();
}

// The index of the last result outlives the verification, so that the next one does not send it again.
status_t CameraQzCallBack::processDualCameraVerify(const CameraMetadata& result) {
    const ResultEntry<uint8_t> mode(mExtCallBackIntf, result, CAPTURE("qz-dual-camera-verification-mode"),
                                    __func__);
    if (mode.count() != 1) return mode.status();
    if (mode[0] != 1) {
        mDualVerifyActive = 0;
        return android::OK;
    }
    const ResultEntry<int32_t> verify(mExtCallBackIntf, result, CAPTURE("qz-dual-camera-verification-result"),
                                      __func__);
    if (verify.count() != 2 || verify[1] == mDualVerifyIndex) return android::OK;
    LOGI("%s(), send dual verification result: %d index : %d", __func__, verify[0], verify[1]);
    callbackDualCameraVerifyResult(verify[0], verify[1]);
    mDualVerifyActive = 1;
    mDualVerifyIndex = verify[1];
    return android::OK;
}

status_t CameraQzCallBack::processMMIFeatureTest(const CameraMetadata& result) {
    const ResultEntry<int32_t> test(mExtCallBackIntf, result, CAPTURE("mmiTestFeatureResult"), __func__);
    if (test.count() < 4) return test.status();
    const int32_t mode = test[1];
    const int32_t index = test[2];
    const int32_t request = test[3];
    if (mode == mMmiTestMode && index == mMmiTestIndex && request == mMmiTestRequest) return android::OK;
    LOGI("%s(), send result: %d mode: %d index: %d request: %d", __func__, test[0], mode, index, request);
    callbackMMIFeatureTestResult(test[0], request);
    mMmiTestMode = mode;
    mMmiTestIndex = index;
    mMmiTestRequest = request;
    return android::OK;
}

// Sent once while the verification mode stays 1; any other mode arms it again.
status_t CameraQzCallBack::processMMICameraPdafVerify(const CameraMetadata& result) {
    const ResultEntry<uint8_t> mode(mExtCallBackIntf, result, CAPTURE("qz-mmi-camera-pdaf-verification-mode"),
                                    __func__);
    if (mode.count() != 1) return mode.status();
    LOGI("%s(), mmi pdaf verification mode: %d", __func__, mode[0]);
    if (mode[0] == 1) {
        const ResultEntry<int32_t> verify(mExtCallBackIntf, result,
                                          CAPTURE("qz-dual-camera-pdaf-verification-result"), __func__);
        if (verify.count() != 1 || mPdafVerifyMode != 0) return android::OK;
        LOGI("%s(), send mmi pdaf verification result: %d", __func__, verify[0]);
        callbackMMICameraPdafVerifyResult(verify[0]);
    }
    mPdafVerifyMode = mode[0] == 1 ? 1 : 0;
    return android::OK;
}

status_t CameraQzCallBack::processSmartMode(const CameraMetadata& result) {
    const ResultEntry<int32_t> hint(mExtCallBackIntf, result, CAPTURE("hintUser"), __func__);
    if (hint.count() != 0) callbackSmartMode(hint[0]);
    return hint.status();
}

status_t CameraQzCallBack::processLowCapState(const CameraMetadata& result) {
    const ResultEntry<int32_t> state(mExtCallBackIntf, result, CAPTURE("qz-low-capture-state"), __func__);
    if (state.count() == 1 && state[0] != mLowCapState) {
        mLowCapState = state[0];
        LOGI("%s(), low capture state: %d", __func__, mLowCapState);
    }
    return state.status();
}

status_t CameraQzCallBack::processLcdFlashMode(const CameraMetadata& result) {
    const ResultEntry<uint8_t> compensate(mExtCallBackIntf, result, CAPTURE("needLcdCompensate"), __func__);
    if (compensate.count() != 0) mQzParam->mLcdCompensate.set(compensate[0]);
    return compensate.status();
}

status_t CameraQzCallBack::processExposureMesure(const CameraMetadata& result) {
    const ResultEntry<int32_t> seconds(mExtCallBackIntf, result, CAPTURE("lightPaintingExposureTime"),
                                       __func__);
    if (seconds.count() != 0) {
        LOGI("%s(), set exposure time to APP: %d s", __func__, seconds[0]);
        callbackExposureMesure(seconds[0]);
    }
    return seconds.status();
}

status_t CameraQzCallBack::processExposureModePreviewState(const CameraMetadata& result) {
    const ResultEntry<uint8_t> state(mExtCallBackIntf, result, CAPTURE("qz-exposure-mode-preview-state"),
                                     __func__);
    if (state.count() == 0 || state[0] == mExposurePreviewState) return state.status();
    mExposurePreviewState = state[0];
    if (mExposurePreviewState != 0) {
        LOGI("%s(), set exposure mode preview started to APP", __func__);
        callbackExposureModePreviewState();
    }
    return android::OK;
}

status_t CameraQzCallBack::processLaserCalibrationResult(const CameraMetadata& result) {
    const ResultEntry<int32_t> laser(mExtCallBackIntf, result, CAPTURE("qz_laser_calibrate_result"),
                                     __func__);
    if (laser.count() != 0) {
        LOGI("%s(), set laser calibration result to APP: %d s", __func__, laser[0]);
        callbackLaserCalibrationResult(laser[0]);
    }
    return laser.status();
}

status_t CameraQzCallBack::processDarkRaiderCapture(const CameraMetadata& result) {
    const ResultEntry<int32_t> capture(mExtCallBackIntf, result, CAPTURE("qz-dark-raider-capture"), __func__);
    if (capture.count() != 0) mExtCallBackIntf->notifyCallback(MSG_DARK_RAIDER_CAPTURE, capture[0], 0);
    return capture.status();
}

status_t CameraQzCallBack::processOisHallCheckResult(const CameraMetadata& result) {
    const ResultEntry<int32_t> check(mExtCallBackIntf, result, CAPTURE("oisHallCheckResult"), __func__);
    if (check.count() != 0) {
        LOGI("%s() OisHallCheck result result: %d ", __func__, check[0]);
        mExtCallBackIntf->notifyCallback(MSG_OIS_CALIB_RESULT, OIS_HALL_CHECK, check[0]);
    }
    return check.status();
}

}  // namespace qz
