// SPDX-License-Identifier: Apache-2.0
// Ranges of two numbers. An entry with another number of elements is handled as absent. If the buffer
// cannot hold the text, the empty text is published.
#include "capabilities/CapabilitySteps.h"

#include "capabilities/Capability.h"
#include "text/BoundedMemory.h"
#include "text/Log.h"
#include "text/Parsers.h"
#include "text/Text.h"

namespace qz {

namespace {

class Range : public Capability<int32_t> {
  public:
    Range(ExtParamInterface* params, TagName tagName) : Capability(params, tagName, 2) { exactly(2); }
};

// Applications have a buffer for 19 characters.
void publishRange(ExtParamInterface* params, const char* key, const Text& range, const char* getter) {
    constexpr size_t most = 19;
    const bool fits = range.size() <= most;
    if (!fits) LOG(line::FormattingFailed, getter);
    params->set(key, fits ? range.c_str() : "");
}

}  // namespace

// Unlike the other ranges, this one publishes the first 19 characters of a text that is too long.
void CapabilitySteps::getHdcAvailabeJpegSize(CCameraQzParam& camera) {
    LOG_TEXT(line::EnterHdcJpegSize);
    const Range size(camera.mExtParam, CAPABILITY("qzHdcAvailableJpegSize"));
    if (size.unusable()) LOG(line::HdcJpegSizeCount, size.count());
    if (!size.usable()) return;
    char text[20] = {};
    const int length = snprintf_s(text, sizeof(text), sizeof(text) - 1, "%d,%d", size[0], size[1]);
    if (length == -1) LOG(line::HdcJpegSizeCut, length);
    camera.mExtParam->set("hdc-available-jpeg-size", text);
}

void CapabilitySteps::getFaceBeautyRange(CCameraQzParam& camera) {
    const Range level(camera.mExtParam, CAPABILITY("faceBeautyRange"));
    if (level.unusable()) LOG(line::BeautyRangeCount, level.count());
    if (!level.usable()) return;
    publishNumber(camera.mExtParam, "qz-min-beauty-level", level[0]);
    publishNumber(camera.mExtParam, "qz-max-beauty-level", level[1]);
}

void CapabilitySteps::getExposureLevelRange(CCameraQzParam& camera) {
    const Range level(camera.mExtParam, CAPABILITY("exposureLevelRange"));
    if (level.unusable()) LOG(line::ExposureLevelCount, level.count());
    if (!level.usable()) return;
    publishNumber(camera.mExtParam, "qz-min-exposure-time", level[0]);
    publishNumber(camera.mExtParam, "qz-max-exposure-time", level[1]);
    LOG(line::ExposureLevel, published(camera.mExtParam, "qz-min-exposure-time"),
        published(camera.mExtParam, "qz-max-exposure-time"));
}

void CapabilitySteps::getSensorExposureTimeRange(CCameraQzParam& camera) {
    const Range time(camera.mExtParam, CAPABILITY("qz-sensor-exposure-range"));
    if (time.unusable()) LOG(line::SensorExposureRangeCount, time.count());
    if (!time.usable()) return;
    char shortest[10] = {};
    char longest[10] = {};
    microSecondToSecond(time[0], shortest, sizeof(shortest));
    microSecondToSecond(time[1], longest, sizeof(longest));
    Text text;
    text << shortest << ',' << longest;
    publishRange(camera.mExtParam, "qz-sensor-exposure-time-range", text, __func__);
}

void CapabilitySteps::getSensorWbRange(CCameraQzParam& camera) {
    const Range wb(camera.mExtParam, CAPABILITY("sensorWbRange"));
    if (wb.unusable()) LOG(line::SensorWbRangeCount, wb.count());
    if (!wb.usable()) return;
    Text text;
    text << wb[0] << ',' << wb[1];
    publishRange(camera.mExtParam, "qz-sensor-wb-range", text, __func__);
}

void CapabilitySteps::getSensorISORange(CCameraQzParam& camera) {
    const Range iso(camera.mExtParam, CAPABILITY("qz-sensor-iso-range"));
    if (iso.unusable()) LOG(line::SensorIsoRangeCount, iso.count());
    if (!iso.usable()) return;
    Text text;
    text << iso[0] << ',' << iso[1];
    publishRange(camera.mExtParam, "qz-sensor-iso-range", text, __func__);
}

void CapabilitySteps::getColorEffectRange(CCameraQzParam& camera) {
    const Range effect(camera.mExtParam, CAPABILITY("availbaleEffectRange"));
    if (effect.unusable()) LOG(line::EffectRangeCount, effect.count());
    if (!effect.usable()) return;
    Text text;
    text << '(' << effect[0] << ',' << effect[1] << ')';
    publishRange(camera.mExtParam, "qz-color-effect-range", text, __func__);
}

}  // namespace qz
