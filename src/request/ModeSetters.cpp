// Modes of the camera application, flash, beauty and video.
#include "CCameraQzParam.h"
#include "core/Properties.h"
#include "core/Vocabulary.h"
#include "request/Entry.h"

#include <utils/String8.h>

#include <cstring>

namespace qz {

namespace {

using android::String8;

// Applications that record steadier without the pipeline's stabilisation.
constexpr const char* kUnstabilisedApps[] = {"com.snapchat.android", "com.instagram.android"};

const char* unstabilisedApp(const char* packageName) {
    for (const char* app : kUnstabilisedApps) {
        if (strcmp(app, packageName) == 0) return app;
    }
    return nullptr;
}

}  // namespace

status_t CCameraQzParam::setApertureMode(CameraMetadata* metaData) {
    ByteEntry aperture(mExtParam, metaData, __func__);
    aperture.key("qz-big-aperture-mode").tag(CAPTURE("apertureMode")).as(onOffStringToEnum);
    return WRITE(aperture, "%s(), failed to update apeture mode: %s, %u, return: %d", aperture.text,
                 aperture.value);
}

status_t CCameraQzParam::setApertureValue(CameraMetadata* metaData) {
    IntEntry aperture(mExtParam, metaData, __func__);
    aperture.intKey("qz-set-aperture-value").tag(CAPTURE("apertureValue"));
    return WRITE(aperture, "%s(), failed to update aperture set value: %d, return: %d", aperture.value);
}

// Reports in the words of setApertureMode.
status_t CCameraQzParam::setFastSnapshotMode(CameraMetadata* metaData) {
    ByteEntry fast(mExtParam, metaData, __func__);
    fast.key("fast-snapshot-mode").tag(CAPTURE("fastShotMode")).as(onOffStringToEnum);
    return WRITE(fast, "%s(), failed to update apeture mode: %s, %u, return: %d", fast.text, fast.value);
}

status_t CCameraQzParam::setRecordingHint(CameraMetadata* metaData) {
    ByteEntry hint(mExtParam, metaData, __func__);
    hint.key("recording-hint").tag(CAPTURE("qz-recording-hint")).as(trueFalseStringToEnum);
    return WRITE(hint, "%s(), failed to update recording hint: %u, return: %d", hint.value);
}

status_t CCameraQzParam::setDualFlashMode(CameraMetadata* metaData) {
    IntEntry mode(mExtParam, metaData, __func__);
    mode.intKey("qz-dual-flash-mode").tag(CAPTURE("dualFlashMode"));
    return WRITE(mode, "%s(), failed to update dual flash adapt mode: %d, return: %d", mode.value);
}

status_t CCameraQzParam::setDualFlashCurrentIndex(CameraMetadata* metaData) {
    IntEntry index(mExtParam, metaData, __func__);
    index.intKey("qz-dual-flash-current-index").tag(CAPTURE("dualFlashIndex"));
    return WRITE(index, "%s(), failed to update dual flash current index: %d, return: %d", index.value);
}

status_t CCameraQzParam::setDualFlashPictureIndex(CameraMetadata* metaData) {
    IntEntry index(mExtParam, metaData, __func__);
    index.intKey("qz-dual-flash-picture-index").tag(CAPTURE("qz-dual-flash-picture-index"));
    return WRITE(index, "%s(), failed to update dual flash picture index: %d, return: %d", index.value);
}

status_t CCameraQzParam::setAllFocuseMode(CameraMetadata* metaData) {
    ByteEntry mode(mExtParam, metaData, __func__);
    mode.key("qz-refocus-mode").as(onOffStringToEnum);
    if (mode.open()) mAllFocusMode = mode.value == 1;
    mode.tag(CAPTURE("allFocusMode"));
    return WRITE(mode, "%s(), failed to update allfocus mode: %s, %u, return: %d", mode.text, mode.value);
}

// Beauty for chat applications; the vendor's own camera application manages beauty itself. Any word but "off"
// opens it.
status_t CCameraQzParam::setFaceBeautyForChat(CameraMetadata* metaData) {
    constexpr uint32_t chatBeauty = 1;
    constexpr int32_t chatBeautyLevel = 7;
    ByteEntry beauty(mExtParam, metaData, __func__);
    if (!beauty.open()) return beauty.status();
    const bool ownCamera = onOffStringToEnum(mExtParam->get("qz-qzcamera-flag")) == 1;
    beauty.when(!ownCamera && (mCallBackFlag & chatBeauty) != 0);
    beauty.key("qz-face-beauty-preview-only").as(onOffStringToEnum);
    beauty.when(beauty.value != 0);
    if (beauty.open() && propertyIsOn("camera.ignore.chat.facebeauty", "0")) {
        LOGI("%s(), ignore face beatuty for chat by prop.", __func__);
        return android::OK;
    }
    beauty.tag(CAPTURE("faceBeautyMode"));
    if (beauty.open()) {
        LOGI("%s(), open face beauty for chatting, mode: %s, call back flag: %#x", __func__, beauty.text,
             mCallBackFlag);
    }
    WRITE(beauty, "%s(), failed to update face beauty mode, %u, return: %d", beauty.value);
    if (!beauty.written()) return beauty.status();

    IntEntry level(beauty);
    level.value = chatBeautyLevel;
    level.tag(CAPTURE("faceBeautyLevel"));
    return WRITE(level, "%s(), failed to update face beauty level: %d, return: %d", level.value);
}

status_t CCameraQzParam::setNiceFood(CameraMetadata* metaData) {
    ByteEntry food(mExtParam, metaData, __func__);
    food.key("qz-nice-food-mode").tag(CAPTURE("niceFoodMode")).as(onOffStringToEnum);
    return WRITE(food, "%s(), failed to update nice food mode: %s, %u, return: %d", food.text, food.value);
}

// Unlike most stored state, this one goes when its key goes: the next client may be another application.
status_t CCameraQzParam::setQzcameraFlag(CameraMetadata* metaData) {
    ByteEntry flag(mExtParam, metaData, __func__);
    if (flag.open()) mIsQzCamera = false;
    flag.key("qz-qzcamera-flag").as(onOffStringToEnum);
    if (flag.open() && flag.value == 1) mIsQzCamera = true;
    flag.tag(CAPTURE("qzCameraFlag"));
    return WRITE(flag, "%s(), failed to update qzcamera flag: %s, %u, return: %d", flag.text, flag.value);
}

status_t CCameraQzParam::setPrepareCaptureFlag(CameraMetadata* metaData) {
    ByteEntry flag(mExtParam, metaData, __func__);
    flag.key("qz-capture-prepare").tag(CAPTURE("prepareCaptureFlag")).as(onOffStringToEnum);
    return WRITE(flag, "%s(), failed to update PrepareCapture flag: %s, %u, return: %d", flag.text,
                 flag.value);
}

status_t CCameraQzParam::setQzVideoFPS(CameraMetadata* metaData) {
    IntEntry fps(mExtParam, metaData, __func__);
    fps.intKey("qz-video-fps").tag(CAPTURE("qz-video-fps"));
    WRITE(fps, "%s(), failed to update video FPS: %d, return: %d", fps.value);
    if (fps.written()) mVideoFps = fps.value;
    return fps.status();
}

status_t CCameraQzParam::setFocusMeteringSeparation(CameraMetadata* metaData) {
    ByteEntry separate(mExtParam, metaData, __func__);
    separate.key("qz-focus-metering-separation")
        .tag(CAPTURE("focusMeteringSeperateMode"))
        .as(onOffStringToEnum);
    return WRITE(separate, "%s(), failed to update focus and metering separation info: %s, %d, return: %d",
                 separate.text, separate.value);
}

status_t CCameraQzParam::setFrontFlashLevel(CameraMetadata* metaData) {
    IntEntry level(mExtParam, metaData, __func__);
    level.intKey("front_flash_level").tag(CAPTURE("frontFlashLevel"));
    return WRITE(level, "%s(), failed to update front flash level: %d, return: %d", level.value);
}

status_t CCameraQzParam::setManualFlash(CameraMetadata* metaData) {
    ByteEntry flash(mExtParam, metaData, __func__);
    flash.key("qz-manual-flash").tag(CAPTURE("manualFlashMode")).as(onOffStringToEnum);
    return WRITE(flash, "%s(), failed to manual flash: %s, %u, return: %d", flash.text, flash.value);
}

status_t CCameraQzParam::setColorEffectLevel(CameraMetadata* metaData) {
    IntEntry level(mExtParam, metaData, __func__);
    level.intKey("zy-level").tag(CAPTURE("colorEffectLevel"));
    return WRITE(level, "%s(), failed to update color effect level: %d, return: %d", level.value);
}

status_t CCameraQzParam::setMakeUpEffect(CameraMetadata* metaData) {
    ByteEntry effect(mExtParam, metaData, __func__);
    effect.key("qz-makeup-effect").tag(CAPTURE("makeUpEffect")).as(makeUpEffectModeStringToEnum);
    return WRITE(effect, "%s(), failed to update qz makeup effect mode: %u, return: %d", effect.value);
}

status_t CCameraQzParam::setFaceMakeUp(CameraMetadata* metaData) {
    ByteEntry makeUp(mExtParam, metaData, __func__);
    makeUp.key("qz-makeup-mode").tag(CAPTURE("makeUpMode")).as(onOffStringToEnum);
    return WRITE(makeUp, "%s(), failed to update make up mode: %s, %u, return: %d", makeUp.text,
                 makeUp.value);
}

status_t CCameraQzParam::setColorMode(CameraMetadata* metaData) {
    ByteEntry mode(mExtParam, metaData, __func__);
    mode.key("qz-color-mode").tag(CAPTURE("colorMode")).as(colorModeStringToEnum);
    return WRITE(mode, "%s(), failed to update Color Mode: %s, %u, return: %d", mode.text, mode.value);
}

status_t CCameraQzParam::setDmWaterMarkMode(CameraMetadata* metaData) {
    ByteEntry mark(mExtParam, metaData, __func__);
    mark.key("qz-dm-watermark-mode").tag(CAPTURE("dmWaterMarkMode")).as(onOffStringToEnum);
    return WRITE(mark, "%s(), failed to update DM water mark mode: %s, %u, return: %d", mark.text,
                 mark.value);
}

// Forces stabilisation off for all applications but the vendor's own camera, or for those of the table, under
// two properties; the table's rule is on unless switched off. Whatever the request held is overridden.
status_t CCameraQzParam::resetVideoStabilization(CameraMetadata* metaData) {
    ByteEntry mode(mExtParam, metaData, __func__);
    mode.when(!mIsQzCamera).key("video-stabilization");
    mode.when(mode.open() && trueFalseStringToEnum(mode.text) == 1);
    if (!mode.open()) return mode.status();

    bool forceOff = false;
    if (propertyIsOn("camera.ignore.videostdb.all", "0")) {
        const String8 client(mClientName);
        LOGI("%s(), ignore all third app video stabilization by prop, app: %s", __func__, client.c_str());
        forceOff = true;
    }
    if (propertyIsOn("camera.ignore.videostdb.partial", "1")) {
        const String8 client(mClientName);
        if (const char* app = unstabilisedApp(client.c_str())) {
            LOGI("%s(), ignore '%s' '%s' video stabilization by prop.", __func__, app, client.c_str());
            forceOff = true;
        }
    }
    if (!forceOff) return android::OK;

    LOGI("%s(), force close video stabilization.", __func__);
    mode.platformTag(ANDROID_CONTROL_VIDEO_STABILIZATION_MODE);
    if (!mode.write()) LOGE("%s(), failed to reset video stabilization, return: %d", __func__, mode.status());
    return mode.status();
}

}  // namespace qz
