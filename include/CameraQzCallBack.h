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
    friend QZ_API android::sp<CameraQzCallBack> CreateCameraQzCallBack(ExtCallBackInterface* callBackIntf,
                                                                       CCameraQzParam* qzParam);
    friend struct ResultPass;
    friend struct ResultSteps;
    friend struct TestPeer;

    CameraQzCallBack(ExtCallBackInterface* callBackIntf, CCameraQzParam* qzParam);
    ~CameraQzCallBack() override;

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
