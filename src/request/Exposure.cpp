// SPDX-License-Identifier: Apache-2.0
// Exposure: times, compensation, ISO, light painting and professional mode.
#include "request/RequestSteps.h"

#include "request/Entry.h"
#include "text/Log.h"
#include "text/Numbers.h"
#include "text/Parsers.h"
#include "text/Vocabularies.h"

#include <cstring>

namespace qz {

// The value of the key is in microseconds.
status_t RequestSteps::setExposureTime(const Setting& set) {
    IntEntry microseconds(set);
    microseconds.number().tag(CAPTURE("qz-exposure-time"));
    RationalEntry time(microseconds);
    time.value = {microseconds.value, 1000000};
    return WRITE(time, line::ExposureTimeRefused, time.value.numerator, time.value.denominator);
}

// The written mode is the gate of setExposureTryAe, setRelayoutMode, setJpegThumbnailSize and setJpegQuality.
// It closes when the key is removed, and stays unchanged when the mode cannot be written.
status_t RequestSteps::setExposureMode(const Setting& set) {
    ByteEntry mode(set);
    const bool request = mode.open();
    mode.key("qz-exposure-mode");
    if (request && !mode.open()) set.camera.mLightPaintingMode = 0;
    mode.tag(CAPTURE("lightPaintingMode")).as(kExposure);
    WRITE(mode, line::ExposureModeRefused, mode.text, mode.value);
    if (mode.written()) set.camera.mLightPaintingMode = mode.value;
    return mode.status();
}

// The information line comes after a successful update and does not contain the function's name.
status_t RequestSteps::setQzExposureCompValue(const Setting& set) {
    FloatEntry value(set);
    const char* end = nullptr;
    value.value = static_cast<float>(parseDouble(value.text, &end));
    if (end == value.text) {
        LOG_TEXT(line::ExposureCompUnreadable);
        return android::OK;
    }
    value.tag(CAPTURE("exposureCompValue"));
    const auto widened = static_cast<double>(value.value);
    WRITE(value, line::ExposureCompRefused, widened);
    if (value.written()) LOG(line::ExposureComp, widened);
    return value.status();
}

// Two entries hold the time, in microseconds and as a fraction. It is remembered only if both are written.
status_t RequestSteps::setSensorExposureTime(const Setting& set) {
    IntEntry microseconds(set);
    RationalEntry seconds(microseconds);
    seconds.value = {0, 1};
    if (strcmp(microseconds.text, "auto") != 0) {
        microseconds.value = exposureTimeToMicroSecond(microseconds.text);
        parseExposureRational(microseconds.text, &seconds.value);
    }
    microseconds.tag(CAPTURE("sensorExposureTime"));
    WRITE(microseconds, line::SensorExposureTimeRefused, microseconds.value);
    if (!microseconds.written()) return microseconds.status();

    seconds.tag(CAPTURE("proExposureTime"));
    WRITE(seconds, line::ProExposureTimeRefused, seconds.value.numerator, seconds.value.denominator);
    if (seconds.written()) set.camera.mSensorExposureTime = microseconds.value;
    return seconds.status();
}

status_t RequestSteps::setProfessionalMode(const Setting& set) {
    ByteEntry mode(set);
    mode.as(kOnOff);
    set.camera.mProfessionalMode.set(mode.value == 1);
    mode.tag(CAPTURE("professionalMode"));
    return WRITE(mode, line::ProfessionalModeRefused, mode.text, mode.value);
}

// Parses "100,3200". Any one character separates the numbers.
status_t RequestSteps::setDynamicIsoRange(const Setting& set) {
    Entry<int32_t, 2> range(set);
    const char* end = nullptr;
    range.value[0] = parseInt32(range.text, &end);
    if (end == range.text) {
        LOG(line::DynamicIsoMinUnreadable, set.setter);
        return android::OK;
    }
    const char* maximum = skipSeparator(end);
    range.value[1] = parseInt32(maximum, &end);
    if (end == maximum) {
        LOG(line::DynamicIsoMaxUnreadable, set.setter);
        return android::OK;
    }
    range.tag(CAPTURE("qz-dynamic-iso-range"));
    return WRITE(range, line::DynamicIsoRangeRefused, range.value[0], range.value[1]);
}

}  // namespace qz
