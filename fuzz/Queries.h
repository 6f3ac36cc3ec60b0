// SPDX-License-Identifier: Apache-2.0
// All queries of a host between passes.
#pragma once

#include "Devices.h"
#include "ExactCamera.h"
#include "Target.h"

#include <cstring>

namespace qz::fuzz {

inline void askAll(Input& input, ExactCamera& camera) {
    CCameraQzParam& translator = camera.translator();
    translator.isExtSceneMode(textFrom(input).c_str());
    translator.isSuperResolution(input.number<int16_t>(), input.number<int32_t>());
    translator.isSubSensorResolution(input.number<int32_t>(), input.number<int16_t>());
    translator.getPanorama2DMode();
    translator.checkLongExpoMode();
    translator.needQzCustomizedZsl();
    translator.qzNeedPreShutter();
    translator.qzUpdateRecordingState(translator.qzIsRecording());

    const char* first = nullptr;
    const char* second = nullptr;
    android::String8 text;
    translator.getSupportedSuperResPicSizes(first, second, text);
    require(first != nullptr && second != nullptr, "super resolution has its keys");
    translator.getQzPostKey(first, second);
    require(strlen(first) + strlen(second) > 0, "post processing has its keys");
    translator.getOTPtestResult(first, text);
    camera.adapter->modifyOTPtestResult(camera.parameters);
    require(text == camera.parameters.get(first), "the OTP result is under its key");
    camera.adapter->modifySupportedPictureSize(camera.parameters);
    camera.adapter->setShutterMute(camera.parameters);
}

}  // namespace qz::fuzz
