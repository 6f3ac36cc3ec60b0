// Image, capture, face and panorama parameters.
#include "CCameraQzParam.h"
#include "core/Numbers.h"
#include "core/Parsers.h"
#include "core/Vocabulary.h"
#include "request/Entry.h"

#include <cutils/properties.h>

namespace qz {

namespace {

uint8_t debugDualPrimary(uint8_t requested) {
    char text[PROPERTY_VALUE_MAX] = {};
    property_get("camera.debug.mode", text, "0");
    switch (parseUint32(text)) {
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

}  // namespace

status_t CCameraQzParam::setIso(CameraMetadata* metaData) {
    ByteEntry iso(mExtParam, metaData, __func__);
    iso.key("iso").tag(CAPTURE("iso")).as(isoModeStringToEnum);
    return WRITE(iso, "%s(), failed to update iso: %u, return: %d", iso.value);
}

status_t CCameraQzParam::setContrast(CameraMetadata* metaData) {
    ByteEntry contrast(mExtParam, metaData, __func__);
    contrast.key("contrast").tag(CAPTURE("constrastValue")).as(contrastModeStringToEnum);
    return WRITE(contrast, "%s(), failed to update contrast: %s, %d, return: %d", contrast.text,
                 contrast.value);
}

status_t CCameraQzParam::setSaturation(CameraMetadata* metaData) {
    ByteEntry saturation(mExtParam, metaData, __func__);
    saturation.key("saturation").tag(CAPTURE("saturationValue")).as(saturationModeStringToEnum);
    return WRITE(saturation, "%s(), failed to update saturation mode: %s, %d, return: %d", saturation.text,
                 saturation.value);
}

status_t CCameraQzParam::setBrightness(CameraMetadata* metaData) {
    ByteEntry brightness(mExtParam, metaData, __func__);
    brightness.key("brightness").tag(CAPTURE("brightnessValue")).as(brightnessModeStringToEnum);
    return WRITE(brightness, "%s(), failed to update brightness mode: %s, %d, return: %d", brightness.text,
                 brightness.value);
}

status_t CCameraQzParam::setZslMode(CameraMetadata* metaData) {
    LOGE("Enter %s(%d)", __func__, 512);
    ByteEntry zsl(mExtParam, metaData, __func__);
    zsl.key("zsl-mode").tag(CAPTURE("qz-zsl-mode")).as(onOffStringToEnum);
    if (zsl.open()) LOGI("%s(), set zslmode: %d", __func__, zsl.value);
    return WRITE(zsl, "%s(), failed to update zslmode :  %d, return: %d", zsl.value);
}

status_t CCameraQzParam::setSharpness(CameraMetadata* metaData) {
    ByteEntry sharpness(mExtParam, metaData, __func__);
    sharpness.key("sharpness").tag(CAPTURE("sharpnessValue")).as(sharpnessModeStringToEnum);
    return WRITE(sharpness, "%s(), failed to update sharpnessMode mode: %u, return: %d", sharpness.value);
}

status_t CCameraQzParam::setMeteringMode(CameraMetadata* metaData) {
    ByteEntry metering(mExtParam, metaData, __func__);
    metering.key("metering-mode").tag(CAPTURE("meteringMode")).as(meteringModeStringToEnum);
    return WRITE(metering, "%s(), failed to update meteringMode mode: %u, return: %d", metering.value);
}

status_t CCameraQzParam::setBurstInterval(CameraMetadata* metaData) {
    IntEntry interval(mExtParam, metaData, __func__);
    interval.intKey("burst-delay-ms").tag(CAPTURE("burst-delay-ms"));
    return WRITE(interval, "%s(), failed to update burstInterval: %d, return: %d", interval.value);
}

status_t CCameraQzParam::setStopBurst(CameraMetadata* metaData) {
    ByteEntry stop(mExtParam, metaData, __func__);
    stop.key("burst-stop-command").tag(CAPTURE("stopBurst")).as(trueFalseStringToEnum);
    return WRITE(stop, "%s(), failed to update stop burst: %u, return: %d", stop.value);
}

status_t CCameraQzParam::setCaptureExposureBracketing(CameraMetadata* metaData) {
    IntEntry range(mExtParam, metaData, __func__);
    range.intKey("exp-bracketing-range").tag(CAPTURE("qz-capture-exporsure-bracketing"));
    return WRITE(range, "%s(), failed to update captureExposureBracketing: %d, return: %d", range.value);
}

status_t CCameraQzParam::setFaceOrientation(CameraMetadata* metaData) {
    IntEntry orientation(mExtParam, metaData, __func__);
    orientation.intKey("qz-face-orientation").tag(CAPTURE("faceOrientation"));
    return WRITE(orientation, "%s(), failed to update face orientation: %d, return: %d", orientation.value);
}

status_t CCameraQzParam::setFaceDetection(CameraMetadata* metaData) {
    ByteEntry face(mExtParam, metaData, __func__);
    face.key("qz-face-detection").tag(CAPTURE("qz-face-detection")).as(onOffStringToEnum);
    return WRITE(face, "%s(), failed to update face detection mode: %s, %d, return: %d", face.text,
                 face.value);
}

status_t CCameraQzParam::setSmileDetection(CameraMetadata* metaData) {
    ByteEntry smile(mExtParam, metaData, __func__);
    smile.key("qz-smile-detection").tag(CAPTURE("smileDetectionMode")).as(onOffStringToEnum);
    return WRITE(smile, "%s(), failed to update smile detection mode: %s, %u, return: %d", smile.text,
                 smile.value);
}

status_t CCameraQzParam::setBlinkDetection(CameraMetadata* metaData) {
    ByteEntry blink(mExtParam, metaData, __func__);
    blink.key("qz-blink-detection").tag(CAPTURE("blinkDetectionMode")).as(onOffStringToEnum);
    return WRITE(blink, "%s(), failed to update blink detection mode: %s, %d, return: %d", blink.text,
                 blink.value);
}

status_t CCameraQzParam::setFaceBeauty(CameraMetadata* metaData) {
    ByteEntry beauty(mExtParam, metaData, __func__);
    beauty.key("qz-face-beauty").tag(CAPTURE("faceBeautyMode")).as(onOffStringToEnum);
    return WRITE(beauty, "%s(), failed to update face beauty mode: %s, %u, return: %d", beauty.text,
                 beauty.value);
}

status_t CCameraQzParam::setFaceMeiwo(CameraMetadata* metaData) {
    ByteEntry meiwo(mExtParam, metaData, __func__);
    meiwo.key("qz-face-meiwo").tag(CAPTURE("faceMeiwoMode")).as(onOffStringToEnum);
    return WRITE(meiwo, "%s(), failed to update face meiwo mode: %s, %u, return: %d", meiwo.text,
                 meiwo.value);
}

// Panorama frames are stitched unprocessed: either panorama mode turns post-processing off.
status_t CCameraQzParam::setImageProcessMode(CameraMetadata* metaData) {
    ByteEntry process(mExtParam, metaData, __func__);
    process.key("qz-image-post-process").as(onOffStringToEnum);
    if (process.open()) {
        const int panorama = onOffStringToEnum(mExtParam->get("key-qz-panorama"));
        const int panorama2D = onOffStringToEnum(mExtParam->get("key-qz-2dpanorama"));
        if (panorama == 1 || panorama2D == 1) process.value = 0;
        mImagePostProcess = process.value == 1;
    }
    process.tag(CAPTURE("imagePostProcessMode"));
    return WRITE(process, "%s(), failed to update post process mode: %s, %u, return: %d", process.text,
                 process.value);
}

status_t CCameraQzParam::setFaceBeautyLevel(CameraMetadata* metaData) {
    IntEntry level(mExtParam, metaData, __func__);
    level.intKey("qz-omron-face-beauty-level").tag(CAPTURE("faceBeautyLevel"));
    return WRITE(level, "%s(), failed to update face beauty level: %d, return: %d", level.value);
}

status_t CCameraQzParam::setImageDenoise(CameraMetadata* metaData) {
    ByteEntry denoise(mExtParam, metaData, __func__);
    denoise.key("qz-image-denoise").tag(CAPTURE("qz-image-denoise")).as(onOffStringToEnum);
    return WRITE(denoise, "%s(), failed to update image denoise mode: %s, %u, return: %d", denoise.text,
                 denoise.value);
}

status_t CCameraQzParam::setScopeMode(CameraMetadata* metaData) {
    ByteEntry scope(mExtParam, metaData, __func__);
    scope.key("key-ambrix-scope").tag(CAPTURE("scopeMode")).as(onOffStringToEnum);
    return WRITE(scope, "%s(), failed to update scope mode: %s, %u, return: %d", scope.text, scope.value);
}

status_t CCameraQzParam::setBestShotMode(CameraMetadata* metaData) {
    ByteEntry best(mExtParam, metaData, __func__);
    best.key("qz-best-photo-mode").tag(CAPTURE("bestShotMode")).as(trueFalseStringToEnum);
    return WRITE(best, "%s(), failed to update best shot mode: %s, %u, return: %d", best.text, best.value);
}

status_t CCameraQzParam::setChatFaceBeauty(CameraMetadata* metaData) {
    ByteEntry beauty(mExtParam, metaData, __func__);
    beauty.key("qz-face-beauty-preview-only")
        .tag(CAPTURE("qz-face-beauty-preview-only"))
        .as(onOffStringToEnum);
    return WRITE(beauty, "%s(), failed to update face beauty for chat: %s, %u, return: %d", beauty.text,
                 beauty.value);
}

status_t CCameraQzParam::setTargetTrackingMode(CameraMetadata* metaData) {
    ByteEntry tracking(mExtParam, metaData, __func__);
    tracking.key("norvale-target-tracking").tag(CAPTURE("qz-device-target-tracking")).as(onOffStringToEnum);
    return WRITE(tracking, "%s(), failed to update target tracking mode: %s, %u, return: %d", tracking.text,
                 tracking.value);
}

status_t CCameraQzParam::setTargetTrackingCoord(CameraMetadata* metaData) {
    Entry<int32_t, 2> coord(mExtParam, metaData, __func__);
    coord.key("target-coordinates").tag(CAPTURE("qz-device-target-tracking-coordinate"));
    coord.when(coord.open() && parseCoodinate(coord.text, coord.value.data()) == 0);
    return WRITE(coord, "%s(), failed to update target tracking coordinate: %s (%d, %d), return: %d",
                 coord.text, coord.value[0], coord.value[1]);
}

status_t CCameraQzParam::setHdrMovieMode(CameraMetadata* metaData) {
    ByteEntry hdr(mExtParam, metaData, __func__);
    hdr.key("key-hdr-movie").tag(CAPTURE("hdrMovieMode")).as(onOffStringToEnum);
    return WRITE(hdr, "%s(), failed to update HDR movie mode: %s, %u, return: %d", hdr.text, hdr.value);
}

status_t CCameraQzParam::setCaptureMirrorMode(CameraMetadata* metaData) {
    ByteEntry mirror(mExtParam, metaData, __func__);
    mirror.key("qz-capture-mirror-mode").tag(CAPTURE("captureMirrorMode")).as(onOffStringToEnum);
    return WRITE(mirror, "%s(), failed to update capture mirror mode: %s, %u, return: %d", mirror.text,
                 mirror.value);
}

// Writes the tag of setManualFocusStep, which comes later in the pass and wins when both keys are set.
status_t CCameraQzParam::setMagnifierStep(CameraMetadata* metaData) {
    IntEntry step(mExtParam, metaData, __func__);
    step.intKey("qz-magnifier-step-value").tag(CAPTURE("manualFocusValue"));
    return WRITE(step, "%s(), failed to update magnifier step: %d, return: %d", step.value);
}

status_t CCameraQzParam::setpanoramaMode(CameraMetadata* metaData) {
    ByteEntry panorama(mExtParam, metaData, __func__);
    panorama.key("key-qz-panorama").tag(CAPTURE("panoramaMode")).as(onOffStringToEnum);
    return WRITE(panorama, "%s(), failed to update panorama mode: %s, %u, return: %d", panorama.text,
                 panorama.value);
}

// Written only when the mode changes. Any number but 0, an unknown word's 255 too, counts as on.
status_t CCameraQzParam::setpanorama2DMode(CameraMetadata* metaData) {
    ByteEntry panorama(mExtParam, metaData, __func__);
    panorama.key("key-qz-2dpanorama").as(onOffStringToEnum);
    panorama.when(panorama.value != static_cast<uint8_t>(mPanorama2DMode)).tag(CAPTURE("panorama2DMode"));
    if (panorama.open()) mPanorama2DMode = panorama.value != 0;
    return WRITE(panorama, "%s(), failed to update panorama mode: %s, %u, return: %d", panorama.text,
                 panorama.value);
}

// The height's name has no section, so that a device resolves it by chance at most and the height stays
// unwritten: the pipeline takes the width alone.
status_t CCameraQzParam::setpanorama2DTinySize(CameraMetadata* metaData) {
    IntEntry width(mExtParam, metaData, __func__);
    width.intKey("key-qz-2dpanorama-tiny-width");
    IntEntry height(width);
    height.intKey("key-qz-2dpanorama-tiny-height");

    width.when(height.open()).tag(CAPTURE("panorama2DWidth"));
    const status_t status =
        WRITE(width, "%s(), failed to update pano2D tiny width: %u, return: %d", width.value);
    if (status != android::OK) return status;
    height.tag("panorama2DHeight");
    return WRITE(height, "%s(), failed to update pano2D tiny heith: %u, return: %d", height.value);
}

status_t CCameraQzParam::setpanorama2DCap(CameraMetadata* metaData) {
    IntEntry capture(mExtParam, metaData, __func__);
    capture.intKey("key-qz-2dpanorama-cap").tag(CAPTURE("panorama2DCaptureMode"));
    return WRITE(capture, "%s(), failed to update pano2dCap %u, return: %d", capture.value);
}

status_t CCameraQzParam::setpanorama2DIndex(CameraMetadata* metaData) {
    IntEntry index(mExtParam, metaData, __func__);
    index.intKey("key-qz-2dpanorama-index").tag(CAPTURE("panorama2DIndex"));
    return WRITE(index, "%s(), failed to update pano2D index mode: %u, return: %d", index.value);
}

status_t CCameraQzParam::setManualFocusMode(CameraMetadata* metaData) {
    ByteEntry focus(mExtParam, metaData, __func__);
    focus.key("qz-manual-focus-mode").tag(CAPTURE("manualFocusMode")).as(onOffStringToEnum);
    return WRITE(focus, "%s(), failed to update manual focus mode: %u, return: %d", focus.value);
}

status_t CCameraQzParam::setManualFocusStep(CameraMetadata* metaData) {
    IntEntry step(mExtParam, metaData, __func__);
    step.intKey("qz-manual-focus-step-value").tag(CAPTURE("manualFocusValue"));
    return WRITE(step, "%s(), failed to update manual focus step: %d, return: %d", step.value);
}

status_t CCameraQzParam::setMirrorMode(CameraMetadata* metaData) {
    IntEntry mirror(mExtParam, metaData, __func__);
    mirror.intKey("face-mirror-supported").tag(CAPTURE("mirrorMode"));
    return WRITE(mirror, "%s(), failed to update mirror mode: %d, return: %d", mirror.value);
}

status_t CCameraQzParam::setMirrorPoint(CameraMetadata* metaData) {
    IntEntry point(mExtParam, metaData, __func__);
    point.intKey("face-mirror-point").tag(CAPTURE("mirrorPoint"));
    if (point.value < 0) point.value = 0;
    return WRITE(point, "%s(), failed to update mirror point: 0x%x, return: %d",
                 static_cast<uint32_t>(point.value));
}

status_t CCameraQzParam::setColorEffect(CameraMetadata* metaData) {
    ByteEntry effect(mExtParam, metaData, __func__);
    effect.key("qz-effect").tag(CAPTURE("colorEffectMode")).as(colorEffectModeStringToEnum);
    return WRITE(effect, "%s(), failed to update qz effect mode: %u, return: %d", effect.value);
}

// The key holds microseconds.
status_t CCameraQzParam::setExposureTime(CameraMetadata* metaData) {
    IntEntry microseconds(mExtParam, metaData, __func__);
    microseconds.intKey("key_exposure_time").tag(CAPTURE("qz-exposure-time"));
    RationalEntry time(microseconds);
    time.value = {microseconds.value, 1000000};
    return WRITE(time, "%s(), failed to update exposure time: %d/%d, return: %d", time.value.numerator,
                 time.value.denominator);
}

// Engineers override the application's choice by "camera.debug.mode".
status_t CCameraQzParam::setDualPrimaryMode(CameraMetadata* metaData) {
    ByteEntry mode(mExtParam, metaData, __func__);
    mode.key("qz-dual-primary-mode").as(dualPrimaryModeStringToEnum);
    if (mode.open()) mode.value = debugDualPrimary(mode.value);
    mode.tag(CAPTURE("dualSensorMode"));
    const bool reached = mode.open();
    mode.write();
    if (reached) LOGI("%s(), set dual primary mode: %d, return: %d", __func__, mode.value, mode.status());
    if (reached && !mode.written()) {
        LOGE("%s(), failed to update qz dual primary mode: %u, return: %d", __func__, mode.value,
             mode.status());
    }
    return mode.status();
}

}  // namespace qz
