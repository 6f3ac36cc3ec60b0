// Vendor entries of capture results, turned into messages to the application.
//
// The host creates one for each camera and hands it every result's metadata, one at a time, on its result
// thread. Each handler looks up its entry through the host's ExtCallBackInterface. Some remember what they
// sent last and stay silent until it changes; the others send with every result that holds their entry. No
// locks: fields belong to the result thread, and the few translator members written here are atomics
// (CCameraQzParam.h says which).
#pragma once

#include "CCameraQzParam.h"
#include "QzHostInterfaces.h"

namespace qz {

class CameraQzCallBack : public virtual android::RefBase {
  public:
    // Runs every handler over one result, in a fixed order. Always 0.
    QZ_API status_t processQzCallBack(const android::CameraMetadata& result);

    // Messages that the host may also send itself, on whichever thread its interface takes them.
    // MSG_SMART_MODE with the low 8 bits of the mode; mode 0 sends nothing.
    QZ_API void callbackSmartMode(int mode);
    // MSG_HDC_CALIB_RESULT and MSG_FOV_CALIB_RESULT. The host's status; -22 without a host.
    QZ_API status_t callbackHDCCalibResult(int result);
    QZ_API status_t callbackFovCalibResult(int result);

  private:
    using CameraMetadata = android::CameraMetadata;
    friend QZ_API android::sp<CameraQzCallBack> CreateCameraQzCallBack(ExtCallBackInterface* callBackIntf,
                                                                       CCameraQzParam* qzParam);
    friend struct TestPeer;

    CameraQzCallBack(ExtCallBackInterface* callBackIntf, CCameraQzParam* qzParam);
    ~CameraQzCallBack() override;

    // Handlers, in the order of the dispatcher. 0, or -22 without a host interface.
    status_t checkZslMode(const CameraMetadata& result);
    status_t processTargetTracking(const CameraMetadata& result);
    status_t processFocusVcmValue(const CameraMetadata& result);
    status_t processFocusContrastValue(const CameraMetadata& result);
    status_t processOtpcheckResult(const CameraMetadata& result);
    status_t processDualAbnormal(const CameraMetadata& result);
    status_t processDualCameraVerify(const CameraMetadata& result);
    status_t processMMIFeatureTest(const CameraMetadata& result);
    status_t processMMICameraPdafVerify(const CameraMetadata& result);
    status_t processSmartMode(const CameraMetadata& result);
    status_t processLowCapState(const CameraMetadata& result);
    status_t processLcdFlashMode(const CameraMetadata& result);
    status_t processExposureMesure(const CameraMetadata& result);
    status_t processExposureModePreviewState(const CameraMetadata& result);
    status_t processPreviewParameters(const CameraMetadata& result);
    status_t processLaserCalibrationResult(const CameraMetadata& result);
    status_t processLpdParameters(const CameraMetadata& result);
    status_t processDarkRaiderCapture(const CameraMetadata& result);
    status_t processMmiFocusTest(const CameraMetadata& result);
    status_t processOisGryoOffsetCalibResult(const CameraMetadata& result);
    status_t processOisHallCalibResult(const CameraMetadata& result);
    status_t processOisHallCheckResult(const CameraMetadata& result);

    // Parts of the preview-parameter block: 1 filled, 0 not, -1 without a host interface.
    int profGetExposureTime(const CameraMetadata& result, int32_t* exposureTime);  // microseconds
    int profGetIsoState(const CameraMetadata& result, int32_t* iso);
    int profGetExposureHint(const CameraMetadata& result, int32_t* expoHint);
    int professionalIsoConvert(int32_t iso);

    void callbackTargetTracking(const int32_t* targetCoord);  // x, y
    void callbackDualAbnormal(int value);
    void callbackDualCameraVerifyResult(int result, int index);
    void callbackMMIFeatureTestResult(int result, int request);
    void callbackMMICameraPdafVerifyResult(int result);
    void callbackExposureMesure(int seconds);
    void callbackExposureModePreviewState();
    void callbackLaserCalibrationResult(int result);

    ExtCallBackInterface* mExtCallBackIntf;  // not owned
    CCameraQzParam* mQzParam;                // not owned

    // What the last results brought, so that it is not sent twice.
    int32_t mTargetCoordX = 0;
    int32_t mTargetCoordY = 0;
    int32_t mDualAbnormal = 0;
    uint8_t mDualVerifyActive = 0;
    int32_t mDualVerifyIndex = 0;
    int32_t mMmiTestMode = -1;
    int32_t mMmiTestIndex = -1;
    int32_t mMmiTestRequest = -1;
    uint8_t mPdafVerifyMode = 0;
    uint8_t mZslMode = 0;
    uint8_t mExposurePreviewState = 0;
    int32_t mLowCapState = -1;
    int32_t mMmiFocusValue = -1;
};

// Null, after an error line, when an argument is null. Both must outlive the object.
QZ_API android::sp<CameraQzCallBack> CreateCameraQzCallBack(ExtCallBackInterface* callBackIntf,
                                                            CCameraQzParam* qzParam);

}  // namespace qz
