#include "CameraQzCallBack.h"

#include "callback/CallBackLog.h"
#include "callback/ResultEntry.h"

namespace qz {

namespace {

constexpr char kFactory[] =
    "android::sp<CameraQzCallBack> qz::CreateCameraQzCallBack(qz::ExtCallBackInterface *, qz::CCameraQzParam "
    "*)";

}  // namespace

android::sp<CameraQzCallBack> CreateCameraQzCallBack(ExtCallBackInterface* callBackIntf,
                                                     CCameraQzParam* qzParam) {
    if (callBackIntf == nullptr) {
        LOGE("%s(%d): failed, callBackIntf is NULL.", kFactory, 1209);
        return nullptr;
    }
    if (qzParam == nullptr) {
        LOGE("%s(%d): failed, qzParam is NULL.", kFactory, 1214);
        return nullptr;
    }
    return new CameraQzCallBack(callBackIntf, qzParam);
}

CameraQzCallBack::CameraQzCallBack(ExtCallBackInterface* callBackIntf, CCameraQzParam* qzParam)
    : mExtCallBackIntf(callBackIntf), mQzParam(qzParam) {
    LOGI("%s()", __func__);
}

CameraQzCallBack::~CameraQzCallBack() { LOGI("%s()", __func__); }

status_t CameraQzCallBack::processQzCallBack(const CameraMetadata& result) {
    using Handler = status_t (CameraQzCallBack::*)(const CameraMetadata&);
    static constexpr Handler handlers[] = {
        &CameraQzCallBack::checkZslMode,
        &CameraQzCallBack::processTargetTracking,
        &CameraQzCallBack::processFocusVcmValue,
        &CameraQzCallBack::processFocusContrastValue,
        &CameraQzCallBack::processOtpcheckResult,
        &CameraQzCallBack::processDualAbnormal,
        &CameraQzCallBack::processDualCameraVerify,
        &CameraQzCallBack::processMMIFeatureTest,
        &CameraQzCallBack::processMMICameraPdafVerify,
        &CameraQzCallBack::processSmartMode,
        &CameraQzCallBack::processLowCapState,
        &CameraQzCallBack::processLcdFlashMode,
        &CameraQzCallBack::processExposureMesure,
        &CameraQzCallBack::processExposureModePreviewState,
        &CameraQzCallBack::processPreviewParameters,
        &CameraQzCallBack::processLaserCalibrationResult,
        &CameraQzCallBack::processLpdParameters,
        &CameraQzCallBack::processDarkRaiderCapture,
        &CameraQzCallBack::processMmiFocusTest,
        &CameraQzCallBack::processOisGryoOffsetCalibResult,
        &CameraQzCallBack::processOisHallCalibResult,
        &CameraQzCallBack::processOisHallCheckResult,
    };
    for (const Handler handler : handlers) (this->*handler)(result);
    return android::OK;
}

ExtCallBackInterface* hostOrReport(ExtCallBackInterface* host, const char* caller) {
    if (host == nullptr) LOGE("%s: mExtCallBackIntf is NULL!", caller);
    return host;
}

}  // namespace qz
