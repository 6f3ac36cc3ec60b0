// Messages to the application, each with its code.
#include "CameraQzCallBack.h"
#include "callback/CallBackLog.h"
#include "callback/ResultEntry.h"
#include "core/BoundedMemory.h"

#include <memory>

namespace qz {

namespace {

void notify(ExtCallBackInterface* host, const char* caller, MessageType message, int32_t ext1, int32_t ext2) {
    if (hostOrReport(host, caller) != nullptr) host->notifyCallback(message, ext1, ext2);
}

}  // namespace

void CameraQzCallBack::callbackTargetTracking(const int32_t* targetCoord) {
    if (hostOrReport(mExtCallBackIntf, __func__) == nullptr) return;
    if (targetCoord == nullptr) {
        LOGE("%s(%d): targetCoord is NULL.", "void qz::CameraQzCallBack::callbackTargetTracking(int32_t *)",
             223);
        return;
    }
    notify(mExtCallBackIntf, __func__, MSG_TARGET_TRACKING, targetCoord[0], targetCoord[1]);
}

void CameraQzCallBack::callbackDualAbnormal(int value) {
    notify(mExtCallBackIntf, __func__, MSG_DUAL_ABNORMAL, value, 0);
}

void CameraQzCallBack::callbackDualCameraVerifyResult(int result, int index) {
    notify(mExtCallBackIntf, __func__, MSG_DUAL_CAMERA_VERIFY_RESULT, result, index);
}

void CameraQzCallBack::callbackMMIFeatureTestResult(int result, int request) {
    notify(mExtCallBackIntf, __func__, MSG_MMI_FEATURE_TEST_RESULT, result, request);
}

void CameraQzCallBack::callbackMMICameraPdafVerifyResult(int result) {
    notify(mExtCallBackIntf, __func__, MSG_MMI_PDAF_VERIFY_RESULT, result, 0);
}

// Four bytes of 101, the low byte of the mode, three zeros.
void CameraQzCallBack::callbackSmartMode(int mode) {
    constexpr size_t blockSize = 8;
    constexpr size_t modeAt = 4;
    constexpr int mark = 0x65;
    if (mode == 0) return;
    LOGI("%s() smart snapshot mode: %d ", __func__, mode);
    const auto block = std::make_unique<uint8_t[]>(blockSize);
    if (memset_s(block.get(), blockSize, 0, blockSize) != 0) LOGE("%s(), memset_s failed!", __func__);
    if (memset_s(block.get(), blockSize, mark, modeAt) != 0) LOGE("%s(), memset_s failed!", __func__);
    block[modeAt] = static_cast<uint8_t>(mode);
    if (hostOrReport(mExtCallBackIntf, __func__) == nullptr) return;
    mExtCallBackIntf->dataCallback(MSG_SMART_MODE, block.get(), blockSize);
}

void CameraQzCallBack::callbackExposureMesure(int seconds) {
    notify(mExtCallBackIntf, __func__, MSG_EXPOSURE_MESURE, seconds, 0);
}

void CameraQzCallBack::callbackExposureModePreviewState() {
    notify(mExtCallBackIntf, __func__, MSG_EXPOSURE_MODE_PREVIEW_STATE, 0, 0);
}

void CameraQzCallBack::callbackLaserCalibrationResult(int result) {
    notify(mExtCallBackIntf, __func__, MSG_LASER_CALIBRATION_RESULT, result, 0);
}

status_t CameraQzCallBack::callbackHDCCalibResult(int result) {
    if (hostOrReport(mExtCallBackIntf, __func__) == nullptr) return android::BAD_VALUE;
    LOGI("%s() hdc calib result: %d ", __func__, result);
    return mExtCallBackIntf->notifyCallback(MSG_HDC_CALIB_RESULT, result, 0);
}

status_t CameraQzCallBack::callbackFovCalibResult(int result) {
    if (hostOrReport(mExtCallBackIntf, __func__) == nullptr) return android::BAD_VALUE;
    LOGI("%s() fov result result: %d ", __func__, result);
    return mExtCallBackIntf->notifyCallback(MSG_FOV_CALIB_RESULT, result, 0);
}

}  // namespace qz
