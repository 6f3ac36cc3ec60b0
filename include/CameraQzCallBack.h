// SPDX-License-Identifier: Apache-2.0
// Turns vendor entries of capture results into messages to the application.
//
// The host creates one for each camera and passes it the metadata of every result, one at a time, on its
// result thread. Each handler looks up its entry through the host's ExtCallBackInterface. Some handlers
// remember the last value they sent and send only a changed one. The others send with every result that holds
// their entry. There are no locks: the members belong to the result thread, and the translator members that
// are written here are atomics (see CCameraQzParam.h).
#pragma once

#include "CCameraQzParam.h"
#include "QzHostInterfaces.h"

namespace qz {

class CameraQzCallBack : public virtual android::RefBase {
  public:
    // Runs every handler over one result, in a fixed order. Always returns 0.
    QZ_API status_t processQzCallBack(const android::CameraMetadata& result);

    // Messages that the host may also send itself, on any thread on which its interface accepts them.
    // Sends MSG_SMART_MODE with the low 8 bits of the mode. Mode 0 sends nothing.
    QZ_API void callbackSmartMode(int mode);
    // Send MSG_HDC_CALIB_RESULT and MSG_FOV_CALIB_RESULT. Return the host's status, or -22 without a host.
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

    // Values of the last results, so that an unchanged value is not sent twice.
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

// Creates a result processor. Logs an error and returns null if an argument is null. Both arguments must
// outlive the object.
QZ_API android::sp<CameraQzCallBack> CreateCameraQzCallBack(ExtCallBackInterface* callBackIntf,
                                                            CCameraQzParam* qzParam);

}  // namespace qz
