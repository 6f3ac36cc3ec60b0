// Vendor command codes of the application's sendCommand: reading focus values that capture results brought.
//
// The host creates one for each camera and passes on every command that it does not handle itself, on
// whichever thread it handles commands.
#pragma once

#include "CCameraQzParam.h"

namespace qz {

enum VendorCommand : int32_t {
    CMD_GET_FOCUS_VCM_VALUE = 202,       // the focus motor position
    CMD_GET_FOCUS_CONTRAST_VALUE = 203,  // the next focus contrast value
};

class CameraQzSendCmd : public virtual android::RefBase {
  public:
    // Answers a command; the arguments of the two known ones are ignored. One call at a time.
    //   CMD_GET_FOCUS_VCM_VALUE       the position itself, 0 before the first result
    //   CMD_GET_FOCUS_CONTRAST_VALUE  the contrast (30 bits) once it is fresh; -1 when none
    //                                 came in three seconds, for which the call blocks
    //   any other                     -22
    QZ_API status_t sendCommand(int32_t cmd, int32_t arg1, int32_t arg2);

  private:
    friend QZ_API android::sp<CameraQzSendCmd> CreateCameraQzSendCmd(CCameraQzParam* qzParam);
    friend struct TestPeer;

    explicit CameraQzSendCmd(CCameraQzParam* qzParam);
    ~CameraQzSendCmd() override;

    status_t commandGetFocusContrastValue();

    CCameraQzParam* mQzParam;    // not owned
    int32_t mContrastCount = 0;  // rolling counter (-2 to 1) of the last contrast value handed out
};

// Null, after an error line, for a null translator. The translator must outlive the object.
QZ_API android::sp<CameraQzSendCmd> CreateCameraQzSendCmd(CCameraQzParam* qzParam);

}  // namespace qz
