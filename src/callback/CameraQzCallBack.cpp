// SPDX-License-Identifier: Apache-2.0
#include "CameraQzCallBack.h"

#include "callback/ResultPass.h"
#include "text/Checked.h"

namespace qz {

android::sp<CameraQzCallBack> CreateCameraQzCallBack(ExtCallBackInterface* callBackIntf,
                                                     CCameraQzParam* qzParam) {
    if (callBackIntf == nullptr) {
        LOG_TEXT(line::NoHostGiven);
        return nullptr;
    }
    if (qzParam == nullptr) {
        LOG_TEXT(line::NoParamGiven);
        return nullptr;
    }
    return new CameraQzCallBack(callBackIntf, qzParam);
}

CameraQzCallBack::CameraQzCallBack(ExtCallBackInterface* callBackIntf, CCameraQzParam* qzParam)
    : mExtCallBackIntf(callBackIntf), mQzParam(qzParam) {
    LOG(line::CallBack, __func__);
}

CameraQzCallBack::~CameraQzCallBack() { LOG(line::CallBack, __func__); }

// The block is four bytes of 101, the low byte of the mode, and three zeros.
void CameraQzCallBack::callbackSmartMode(int mode) {
    constexpr size_t blockSize = 8;
    constexpr size_t modeAt = 4;
    constexpr int mark = 0x65;
    if (mode == 0) return;
    LOG(line::SmartSnapshotMode, __func__, mode);
    uint8_t block[blockSize];
    succeeded<line::BlockNotCleared>(memset_s(block, blockSize, 0, blockSize), __func__);
    succeeded<line::BlockNotCleared>(memset_s(block, blockSize, mark, modeAt), __func__);
    block[modeAt] = static_cast<uint8_t>(mode);
    if (hasHost(mExtCallBackIntf, __func__)) mExtCallBackIntf->dataCallback(MSG_SMART_MODE, block, blockSize);
}

status_t CameraQzCallBack::callbackHDCCalibResult(int result) {
    if (!hasHost(mExtCallBackIntf, __func__)) return android::BAD_VALUE;
    LOG(line::HdcCalib, __func__, result);
    return mExtCallBackIntf->notifyCallback(MSG_HDC_CALIB_RESULT, result, 0);
}

status_t CameraQzCallBack::callbackFovCalibResult(int result) {
    if (!hasHost(mExtCallBackIntf, __func__)) return android::BAD_VALUE;
    LOG(line::FovCalib, __func__, result);
    return mExtCallBackIntf->notifyCallback(MSG_FOV_CALIB_RESULT, result, 0);
}

}  // namespace qz
