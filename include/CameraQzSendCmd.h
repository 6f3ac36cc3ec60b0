// SPDX-License-Identifier: Apache-2.0
// Vendor commands of the application's sendCommand: they read focus values of the last capture results.
//
// The host creates one for each camera and forwards every command that it does not handle itself, on the
// thread on which it handles commands.
#pragma once

#include "CCameraQzParam.h"

namespace qz {

enum VendorCommand : int32_t {
    CMD_GET_FOCUS_VCM_VALUE = 202,       // the focus motor position
    CMD_GET_FOCUS_CONTRAST_VALUE = 203,  // the next focus contrast value
};

class CameraQzSendCmd : public virtual android::RefBase {
  public:
    // Answers a command. The arguments of the two known commands are ignored. One call at a time. Returns
    //   CMD_GET_FOCUS_VCM_VALUE       the motor position, 0 before the first result
    //   CMD_GET_FOCUS_CONTRAST_VALUE  the next new contrast (30 bits); -1 if none arrives within three
    //                                 seconds; the call blocks until then
    //   any other command             -22
    QZ_API status_t sendCommand(int32_t cmd, int32_t arg1, int32_t arg2);

  private:
    friend QZ_API android::sp<CameraQzSendCmd> CreateCameraQzSendCmd(CCameraQzParam* qzParam);
    friend struct TestPeer;

    explicit CameraQzSendCmd(CCameraQzParam* qzParam);
    ~CameraQzSendCmd() override;

    status_t commandGetFocusContrastValue();

    CCameraQzParam* mQzParam;    // not owned
    int32_t mContrastCount = 0;  // rolling counter (-2 to 1) of the last contrast value that was returned
};

// Creates a command sender. Logs an error and returns null for a null translator. The translator must outlive
// the object.
QZ_API android::sp<CameraQzSendCmd> CreateCameraQzSendCmd(CCameraQzParam* qzParam);

}  // namespace qz
