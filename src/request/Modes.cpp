// SPDX-License-Identifier: Apache-2.0
// Modes of the vendor's camera application, of capture, panorama, two sensors and video.
#include "request/RequestSteps.h"

#include "request/Entry.h"
#include "text/Log.h"
#include "text/Numbers.h"
#include "text/Properties.h"
#include "text/Vocabularies.h"

#include <utils/String8.h>

#include <cstring>

namespace qz {

namespace {

uint8_t debugDualPrimary(uint8_t requested) {
    switch (parseUint32(valueOf(property::debugDualPrimary).data())) {
        case 1:
            return 0;
        case 2:
            return 2;
        case 3:
            return 3;
        default:
            return requested;
    }
}

using android::String8;

// Applications whose videos are steadier without the pipeline's stabilisation.
constexpr const char* kUnstabilisedApps[] = {"com.snapchat.android", "com.instagram.android"};

const char* unstabilisedApp(const char* packageName) {
    for (const char* app : kUnstabilisedApps) {
        if (strcmp(app, packageName) == 0) return app;
    }
    return nullptr;
}

}  // namespace

status_t RequestSteps::setZslMode(const Setting& set) {
    LOG_TEXT(line::EnterZslMode);
    ByteEntry zsl(set);
    zsl.key("zsl-mode").tag(CAPTURE("qz-zsl-mode")).as(kOnOff);
    if (zsl.open()) LOG(line::ZslMode, set.setter, zsl.value);
    return WRITE(zsl, line::ZslModeRefused, zsl.value);
}

status_t RequestSteps::readFaceAeArea(const Setting& set) {
    // The key is read, but its value is not used: no entry has it. Hosts may rely on the call.
    static_cast<void>(set.host->get("qz-face-ae-area"));
    return android::OK;
}

status_t RequestSteps::takeBurstCapture(const Setting& set) {
    if (set.host->get("burst-capture") != nullptr)
        set.camera.mBurstCapture = set.host->getInt("burst-capture");
    return android::OK;
}

// Panorama frames are stitched unprocessed. So both panorama modes turn post-processing off.
status_t RequestSteps::setImageProcessMode(const Setting& set) {
    ByteEntry process(set);
    process.as(kOnOff);
    const int panorama = numberOf(kOnOff, set.host->get("key-qz-panorama"));
    const int panorama2D = numberOf(kOnOff, set.host->get("key-qz-2dpanorama"));
    if (panorama == 1 || panorama2D == 1) process.value = 0;
    set.camera.mImagePostProcess = process.value == 1;
    process.tag(CAPTURE("imagePostProcessMode"));
    return WRITE(process, line::ImageProcessModeRefused, process.text, process.value);
}

// The entry is written only when the mode changes. Any number except 0 counts as on, also the 255 of an
// unknown word.
status_t RequestSteps::setpanorama2DMode(const Setting& set) {
    ByteEntry panorama(set);
    panorama.as(kOnOff);
    panorama.when(panorama.value != static_cast<uint8_t>(set.camera.mPanorama2DMode))
        .tag(CAPTURE("panorama2DMode"));
    if (panorama.open()) set.camera.mPanorama2DMode = panorama.value != 0;
    return WRITE(panorama, line::Panorama2DModeRefused, panorama.text, panorama.value);
}

// The name of the height tag has no section, so that normally no device declares it and the height is not
// written. The pipeline needs only the width.
status_t RequestSteps::setpanorama2DTinySize(const Setting& set) {
    IntEntry width(set);
    width.number();
    IntEntry height(width);
    height.intKey("key-qz-2dpanorama-tiny-height");

    width.when(height.open()).tag(CAPTURE("panorama2DWidth"));
    const status_t status = WRITE(width, line::Panorama2DWidthRefused, width.value);
    if (status != android::OK) return status;
    height.tag("panorama2DHeight");
    return WRITE(height, line::Panorama2DHeightRefused, height.value);
}

// The property "camera.debug.mode" lets engineers override the application's choice.
status_t RequestSteps::setDualPrimaryMode(const Setting& set) {
    ByteEntry mode(set);
    mode.as(kDualPrimary);
    mode.value = debugDualPrimary(mode.value);
    mode.tag(CAPTURE("dualSensorMode"));
    const bool reached = mode.open();
    mode.write();
    if (reached) LOG(line::DualPrimaryMode, set.setter, mode.value, mode.status());
    if (reached && !mode.written()) {
        LOG(line::DualPrimaryModeRefused, set.setter, mode.value, mode.status());
    }
    return mode.status();
}

status_t RequestSteps::setExtSceneMode(const Setting& set) {
    ByteEntry scene(set);
    scene.tag(CAPTURE("extSceneMode"));
    const int mode = numberOf(kExtScene, scene.text);
    scene.value = static_cast<uint8_t>(mode != kOtherScene ? mode : 0);
    return WRITE(scene, line::ExtSceneModeRefused, mode);
}

status_t RequestSteps::setAllFocuseMode(const Setting& set) {
    ByteEntry mode(set);
    mode.as(kOnOff);
    set.camera.mAllFocusMode = mode.value == 1;
    mode.tag(CAPTURE("allFocusMode"));
    return WRITE(mode, line::AllFocuseModeRefused, mode.text, mode.value);
}

// Face beauty for chat applications. The vendor's camera application controls beauty itself. Any word except
// "off" switches it on.
status_t RequestSteps::setFaceBeautyForChat(const Setting& set) {
    constexpr uint32_t chatBeauty = 1;
    constexpr int32_t chatBeautyLevel = 7;
    ByteEntry beauty(set);
    if (!beauty.open()) return beauty.status();
    const bool ownCamera = numberOf(kOnOff, set.host->get("qz-qzcamera-flag")) == 1;
    beauty.when(!ownCamera && (set.camera.mCallBackFlag & chatBeauty) != 0);
    beauty.key("qz-face-beauty-preview-only").as(kOnOff);
    beauty.when(beauty.value != 0);
    if (beauty.open() && isOn(property::ignoreChatBeauty)) {
        LOG(line::ChatBeautyIgnored, set.setter);
        return android::OK;
    }
    beauty.tag(CAPTURE("faceBeautyMode"));
    if (beauty.open()) {
        LOG(line::ChatBeauty, set.setter, beauty.text, set.camera.mCallBackFlag);
    }
    WRITE(beauty, line::ChatBeautyRefused, beauty.value);
    if (!beauty.written()) return beauty.status();

    IntEntry level(beauty);
    level.value = chatBeautyLevel;
    level.tag(CAPTURE("faceBeautyLevel"));
    return WRITE(level, line::ChatBeautyLevelRefused, level.value);
}

// Unlike most stored state, this flag is cleared when its key is absent: the next client may be another
// application.
status_t RequestSteps::setQzcameraFlag(const Setting& set) {
    ByteEntry flag(set);
    if (flag.open()) set.camera.mIsQzCamera = false;
    flag.key("qz-qzcamera-flag").as(kOnOff);
    if (flag.open() && flag.value == 1) set.camera.mIsQzCamera = true;
    flag.tag(CAPTURE("qzCameraFlag"));
    return WRITE(flag, line::QzcameraFlagRefused, flag.text, flag.value);
}

status_t RequestSteps::setQzVideoFPS(const Setting& set) {
    IntEntry fps(set);
    fps.number().tag(CAPTURE("qz-video-fps"));
    WRITE(fps, line::QzVideoFPSRefused, fps.value);
    if (fps.written()) set.camera.mVideoFps = fps.value;
    return fps.status();
}

// Overwrites video stabilisation with off. One property does so for all applications, another one, which is
// on by default, for those of kUnstabilisedApps. The row's gate excludes the vendor's camera application.
status_t RequestSteps::resetVideoStabilization(const Setting& set) {
    ByteEntry mode(set);
    if (numberOf(kTrueFalse, mode.text) != 1) return android::OK;

    bool forceOff = false;
    if (isOn(property::stabiliseNone)) {
        const String8 client(set.camera.mClientName);
        LOG(line::StabilisationIgnoredForAll, set.setter, client.c_str());
        forceOff = true;
    }
    if (isOn(property::stabiliseSome)) {
        const String8 client(set.camera.mClientName);
        if (const char* app = unstabilisedApp(client.c_str())) {
            LOG(line::StabilisationIgnoredForApp, set.setter, app, client.c_str());
            forceOff = true;
        }
    }
    if (!forceOff) return android::OK;

    LOG(line::StabilisationForcedOff, set.setter);
    mode.platformTag(ANDROID_CONTROL_VIDEO_STABILIZATION_MODE);
    if (!mode.write()) LOG(line::StabilisationRefused, set.setter, mode.status());
    return mode.status();
}

}  // namespace qz
