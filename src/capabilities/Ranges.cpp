// Ranges of two numbers. Any other count is as good as none. A text that its buffer cannot hold is cut to the
// empty text, and published all the same.
#include "CCameraQzParam.h"
#include "capabilities/Capability.h"
#include "core/BoundedMemory.h"
#include "core/Parsers.h"
#include "core/Text.h"

namespace qz {

namespace {

class Range : public Capability<int32_t> {
  public:
    Range(ExtParamInterface* params, const char* tagName) : Capability(params, tagName, 2) { exactly(2); }
};

// Applications have room for 19 characters.
void publishRange(ExtParamInterface* params, const char* key, const Text& range, const char* getter) {
    constexpr size_t most = 19;
    const bool fits = range.size() <= most;
    if (!fits) LOGE("%s(), snprintf_s failed!", getter);
    params->set(key, fits ? range.c_str() : "");
}

}  // namespace

int32_t CCameraQzParam::getFaceBeautyRange() {
    const Range level(mExtParam, CAPABILITY("faceBeautyRange"));
    if (level.lacks()) LOGI("enMaxBeautyLevel.count = %zu", level.count());
    if (!level.holds()) return 0;
    publishNumber(mExtParam, "qz-min-beauty-level", level[0]);
    publishNumber(mExtParam, "qz-max-beauty-level", level[1]);
    return 0;
}

int32_t CCameraQzParam::getExposureLevelRange() {
    const Range level(mExtParam, CAPABILITY("exposureLevelRange"));
    if (level.lacks()) LOGI("enExposureLevel.count = %zu", level.count());
    if (!level.holds()) return 0;
    publishNumber(mExtParam, "qz-min-exposure-time", level[0]);
    publishNumber(mExtParam, "qz-max-exposure-time", level[1]);
    LOGI("exposure level: [%s, %s]", published(mExtParam, "qz-min-exposure-time"),
         published(mExtParam, "qz-max-exposure-time"));
    return 0;
}

int32_t CCameraQzParam::getSensorExposureTimeRange() {
    const Range time(mExtParam, CAPABILITY("qz-sensor-exposure-range"));
    if (time.lacks()) LOGI("expoRangeEntry.count = %zu", time.count());
    if (!time.holds()) return 0;
    char shortest[10] = {};
    char longest[10] = {};
    microSecondToSecond(time[0], shortest, sizeof(shortest));
    microSecondToSecond(time[1], longest, sizeof(longest));
    Text text;
    text << shortest << "," << longest;
    publishRange(mExtParam, "qz-sensor-exposure-time-range", text, __func__);
    return 0;
}

int32_t CCameraQzParam::getSensorWbRange() {
    const Range wb(mExtParam, CAPABILITY("sensorWbRange"));
    if (wb.lacks()) LOGI("wbRangeEntry.count = %zu", wb.count());
    if (!wb.holds()) return 0;
    Text text;
    text << wb[0] << "," << wb[1];
    publishRange(mExtParam, "qz-sensor-wb-range", text, __func__);
    return 0;
}

int32_t CCameraQzParam::getSensorISORange() {
    const Range iso(mExtParam, CAPABILITY("qz-sensor-iso-range"));
    if (iso.lacks()) LOGI("isoRangeEntry.count = %zu", iso.count());
    if (!iso.holds()) return 0;
    Text text;
    text << iso[0] << "," << iso[1];
    publishRange(mExtParam, "qz-sensor-iso-range", text, __func__);
    return 0;
}

int32_t CCameraQzParam::getColorEffectRange() {
    const Range effect(mExtParam, CAPABILITY("availbaleEffectRange"));
    if (effect.lacks()) LOGI("effectRange.count = %zu", effect.count());
    if (!effect.holds()) return 0;
    Text text;
    text << "(" << effect[0] << "," << effect[1] << ")";
    publishRange(mExtParam, "qz-color-effect-range", text, __func__);
    return 0;
}

// Unlike its neighbours it keeps the first 19 characters of a text that is too long.
int32_t CCameraQzParam::getHdcAvailabeJpegSize() {
    LOGI("Enter %s(%d)", __func__, __LINE__);
    const Range size(mExtParam, CAPABILITY("qzHdcAvailableJpegSize"));
    if (size.lacks()) LOGI("hdcAvailableJpegSize.count = %zu", size.count());
    if (!size.holds()) return 0;
    char text[20] = {};
    const int length = snprintf_s(text, sizeof(text), sizeof(text) - 1, "%d,%d", size[0], size[1]);
    if (length == -1) LOGE("%s(%d), snprintf_s return error(%d)", __func__, __LINE__, length);
    mExtParam->set("hdc-available-jpeg-size", text);
    return 0;
}

}  // namespace qz
