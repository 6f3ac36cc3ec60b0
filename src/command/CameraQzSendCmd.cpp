// SPDX-License-Identifier: Apache-2.0
#include "CameraQzSendCmd.h"

#include "text/Log.h"

#include <unistd.h>

namespace qz {

namespace {

constexpr int kTries = 100;
constexpr useconds_t kPause = 30000;  // microseconds; a result comes every frame, 33 ms

// Bits 30-31, sign-extended: -2 to 1.
int32_t rollingCounter(int32_t contrast) { return contrast >> 30; }

constexpr int32_t kContrastMask = 0x3FFFFFFF;
constexpr int32_t kNoContrast = -1;

}  // namespace

android::sp<CameraQzSendCmd> CreateCameraQzSendCmd(CCameraQzParam* qzParam) {
    if (qzParam == nullptr) {
        LOG_TEXT(line::NoParamForCommands);
        return nullptr;
    }
    return new CameraQzSendCmd(qzParam);
}

// The counter starts at 0, and 0 is also a valid counter: if the first value has counter 0, the call waits
// for the next value.
CameraQzSendCmd::CameraQzSendCmd(CCameraQzParam* qzParam) : mQzParam(qzParam) {
    LOG(line::CommandSender, __func__);
}

CameraQzSendCmd::~CameraQzSendCmd() { LOG(line::CommandSender, __func__); }

status_t CameraQzSendCmd::sendCommand(int32_t cmd, int32_t arg1, int32_t arg2) {
    switch (cmd) {
        case CMD_GET_FOCUS_VCM_VALUE:
            return mQzParam->mFocusVcmValue.get();
        case CMD_GET_FOCUS_CONTRAST_VALUE:
            return commandGetFocusContrastValue();
        default:
            LOG(line::UnknownCommand, __func__, cmd, arg1, arg2);
            return android::BAD_VALUE;
    }
}

status_t CameraQzSendCmd::commandGetFocusContrastValue() {
    for (int i = 0; i < kTries; ++i) {
        const int32_t contrast = mQzParam->mFocusContrastValue.get();
        if (contrast != kNoContrast && rollingCounter(contrast) != mContrastCount) {
            LOG(line::FocusContrast, mContrastCount, static_cast<uint32_t>(contrast));
            mContrastCount = rollingCounter(contrast);
            return contrast & kContrastMask;
        }
        usleep(kPause);
    }
    return -1;
}

}  // namespace qz
