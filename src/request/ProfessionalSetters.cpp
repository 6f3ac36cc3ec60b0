// Professional controls, exposure, and the long exposures of light painting.
#include "CCameraQzParam.h"
#include "core/Numbers.h"
#include "core/Parsers.h"
#include "core/Vocabulary.h"
#include "request/Entry.h"

#include <cstdlib>
#include <cstring>

namespace qz {

namespace {

// "auto" is 0 to the pipeline, and so is any other word.
int autoOrNumber(const char* text) { return strcmp(text, "auto") == 0 ? 0 : parseInt32(text); }

}  // namespace

// The written mode is the gate of setExposureTryAe, setRelayoutMode, setJpegThumbnailSize and setJpegQuality.
// It closes when the key goes, and stays as it was when the mode cannot be written.
status_t CCameraQzParam::setExposureMode(CameraMetadata* metaData) {
    ByteEntry mode(mExtParam, metaData, __func__);
    const bool request = mode.open();
    mode.key("qz-exposure-mode");
    if (request && !mode.open()) mLightPaintingMode = 0;
    mode.tag(CAPTURE("lightPaintingMode")).as(exposureModeStringToEnum);
    WRITE(mode, "%s(), failed to update exposure mode: %s, %u, return: %d", mode.text, mode.value);
    if (mode.written()) mLightPaintingMode = mode.value;
    return mode.status();
}

status_t CCameraQzParam::setExposureTryAe(CameraMetadata* metaData) {
    ByteEntry tryAe(mExtParam, metaData, __func__);
    tryAe.when(mLightPaintingMode != 0).key("qz-exposure-try-ae");
    tryAe.tag(CAPTURE("lightPaintingTryAe")).as(onOffStringToEnum);
    if (tryAe.open()) LOGI("%s(), set exposure try AE: %d", __func__, tryAe.value);
    return WRITE(tryAe, "%s(), failed to update exposure try AE: %s, %u, return: %d", tryAe.text,
                 tryAe.value);
}

status_t CCameraQzParam::setRelayoutMode(CameraMetadata* metaData) {
    ByteEntry relayout(mExtParam, metaData, __func__);
    relayout.when(mLightPaintingMode != 0).key("qz-relayout-mode");
    relayout.tag(CAPTURE("lightPaintingRelayoutMode")).as(relayoutModeStringToEnum);
    if (relayout.open()) LOGI("%s(), set relayout mode: %d", __func__, relayout.value);
    return WRITE(relayout, "%s(), failed to update relayout mode: %s, %u, return: %d", relayout.text,
                 relayout.value);
}

// The information line follows a successful update, and goes without the function's name.
status_t CCameraQzParam::setQzExposureCompValue(CameraMetadata* metaData) {
    FloatEntry value(mExtParam, metaData, __func__);
    value.key("qz-exposure-compensation-value");
    if (!value.open()) return value.status();
    const char* end = nullptr;
    value.value = static_cast<float>(parseDouble(value.text, &end));
    if (end == value.text) {
        LOGE("getInt setQzExposureCompValue failed ");
        return android::OK;
    }
    value.tag(CAPTURE("exposureCompValue"));
    const auto widened = static_cast<double>(value.value);
    WRITE(value, "%s(), failed to update qz exposure compentation value: %f, return: %d", widened);
    if (value.written()) LOGI("set qz exposure = %f", widened);
    return value.status();
}

status_t CCameraQzParam::setManualIso(CameraMetadata* metaData) {
    ByteEntry iso(mExtParam, metaData, __func__);
    iso.key("qz-manual-iso-value").tag(CAPTURE("manualIsoValue")).as(isoModeStringToEnum);
    return WRITE(iso, "%s(), failed to update manual iso: %u, return: %d", iso.value);
}

status_t CCameraQzParam::setManualExposure(CameraMetadata* metaData) {
    ByteEntry exposure(mExtParam, metaData, __func__);
    exposure.key("qz-manual-exposure-value").tag(CAPTURE("manualExposureValue"));
    exposure.as(manualExposureModeStringToEnum);
    return WRITE(exposure, "%s(), failed to update manual exposure: %u, return: %d", exposure.value);
}

status_t CCameraQzParam::setSensorWb(CameraMetadata* metaData) {
    IntEntry wb(mExtParam, metaData, __func__);
    wb.key("qz-sensor-wb").as(autoOrNumber).tag(CAPTURE("sensorWbValue"));
    return WRITE(wb, "%s(), failed to update sensorWb: %d, return: %d", wb.value);
}

// Two entries carry the time, in microseconds and as a fraction. Only when both are written is it remembered.
status_t CCameraQzParam::setSensorExposureTime(CameraMetadata* metaData) {
    IntEntry microseconds(mExtParam, metaData, __func__);
    microseconds.key("qz-sensor-exposure-time");
    RationalEntry seconds(microseconds);
    seconds.value = {0, 1};
    if (microseconds.open() && strcmp(microseconds.text, "auto") != 0) {
        microseconds.value = exposureTimeToMicroSecond(microseconds.text);
        parseExposureRational(microseconds.text, &seconds.value);
    }
    microseconds.tag(CAPTURE("sensorExposureTime"));
    WRITE(microseconds, "%s(), failed to update sensor exposure time: %d, return: %d", microseconds.value);
    if (!microseconds.written()) return microseconds.status();

    seconds.tag(CAPTURE("proExposureTime"));
    WRITE(seconds, "%s(), failed to update pro exposure time: %d/%d, return: %d", seconds.value.numerator,
          seconds.value.denominator);
    if (seconds.written()) mSensorExposureTime = microseconds.value;
    return seconds.status();
}

status_t CCameraQzParam::setSensorIso(CameraMetadata* metaData) {
    IntEntry iso(mExtParam, metaData, __func__);
    iso.key("qz-sensor-iso").as(autoOrNumber).tag(CAPTURE("sensorIso"));
    return WRITE(iso, "%s(), failed to update sensorIso value: %d, return: %d", iso.value);
}

status_t CCameraQzParam::setProfessionalMode(CameraMetadata* metaData) {
    ByteEntry mode(mExtParam, metaData, __func__);
    mode.key("qz-professional-mode").as(onOffStringToEnum);
    if (mode.open()) mProfessionalMode.set(mode.value == 1);
    mode.tag(CAPTURE("professionalMode"));
    return WRITE(mode, "%s(), failed to update professional mode: %s, %u, return: %d", mode.text, mode.value);
}

status_t CCameraQzParam::setExposureHintMode(CameraMetadata* metaData) {
    ByteEntry hint(mExtParam, metaData, __func__);
    hint.key("qz-exposure-hint-mode").tag(CAPTURE("exposureHintMode")).as(onOffStringToEnum);
    return WRITE(hint, "%s(), failed to update exposure hint mode: %d, return: %d", hint.value);
}

// "100,3200"; any one character separates the two.
status_t CCameraQzParam::setDynamicIsoRange(CameraMetadata* metaData) {
    Entry<int32_t, 2> range(mExtParam, metaData, __func__);
    range.key("qz-dynamic-iso-range");
    if (!range.open()) return range.status();
    const char* end = nullptr;
    range.value[0] = parseInt32(range.text, &end);
    if (end == range.text) {
        LOGE("%s(), fail to get dynamic ISO min.", __func__);
        return android::OK;
    }
    const char* maximum = skipSeparator(end);
    range.value[1] = parseInt32(maximum, &end);
    if (end == maximum) {
        LOGE("%s(), fail to get dynamic ISO max.", __func__);
        return android::OK;
    }
    range.tag(CAPTURE("qz-dynamic-iso-range"));
    return WRITE(range, "%s(), failed to update dynamic ISO range: [%d, %d], return: %d", range.value[0],
                 range.value[1]);
}

status_t CCameraQzParam::setProFocusMode(CameraMetadata* metaData) {
    ByteEntry focus(mExtParam, metaData, __func__);
    focus.key("qz-pro-focus-mode").tag(CAPTURE("professionalFocusMode")).as(proFocusModeStringToEnum);
    return WRITE(focus, "%s(), failed to update pro focus mode: %u, return: %d", focus.value);
}

status_t CCameraQzParam::setFocusAssistFlashMode(CameraMetadata* metaData) {
    ByteEntry flash(mExtParam, metaData, __func__);
    flash.key("qz-focus-assist-flash-mode").tag(CAPTURE("profFocusAssistFlashMode"));
    flash.as(focusAssistFlashModeStringToEnum);
    return WRITE(flash, "%s(), failed to update focusAssistFlashMode: %s, %u, return: %d", flash.text,
                 flash.value);
}

status_t CCameraQzParam::setDarkRaiderModeEnable(CameraMetadata* metaData) {
    IntEntry enable(mExtParam, metaData, __func__);
    enable.intKey("qz-dark-raider-mode-enable").tag(CAPTURE("darkRaiderMode"));
    return WRITE(enable, "%s(), failed to update dark raider mode enable: %d, return: %d", enable.value);
}

}  // namespace qz
