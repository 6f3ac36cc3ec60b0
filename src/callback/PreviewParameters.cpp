// What professional mode shows over its preview: exposure time, ISO and an exposure hint, in one block.
#include "CameraQzCallBack.h"
#include "callback/CallBackLog.h"
#include "callback/ResultEntry.h"
#include "core/BoundedMemory.h"

#include <array>
#include <limits>

namespace qz {

namespace {

// Standard ISO steps, and the raw numbers that round to each: lower < iso <= upper.
struct IsoStep {
    int32_t lower;
    int32_t upper;
    int32_t iso;
};

constexpr std::array<IsoStep, 22> kIsoSteps = {{
    {44, 56, 50},       {56, 71, 64},       {71, 89, 80},       {89, 112, 100},     {112, 141, 125},
    {141, 178, 160},    {178, 224, 200},    {224, 282, 250},    {282, 356, 320},    {356, 449, 400},
    {449, 565, 500},    {565, 712, 640},    {712, 890, 800},    {890, 1122, 1000},  {1122, 1414, 1250},
    {1414, 1782, 1600}, {1782, 2245, 2000}, {2245, 2828, 2500}, {2828, 3564, 3200}, {3564, 4490, 4000},
    {4490, 5657, 5000}, {5657, 7127, 6400},
}};

constexpr bool withoutGaps() {
    for (size_t i = 1; i < kIsoSteps.size(); ++i) {
        if (kIsoSteps[i].lower != kIsoSteps[i - 1].upper) return false;
    }
    return true;
}
static_assert(withoutGaps(), "every ISO between the ends has a step");

constexpr int32_t kHintTooBright = 1;
constexpr int32_t kHintTooDark = 2;

int32_t hintFromBrightness(int32_t mean) {
    constexpr int32_t darkest = 25;
    constexpr int32_t brightest = 100;
    if (mean > brightest) return kHintTooBright;
    return mean < darkest ? kHintTooDark : 0;
}

}  // namespace

status_t CameraQzCallBack::processPreviewParameters(const CameraMetadata& result) {
    if (!mQzParam->mProfessionalMode.get()) return android::OK;
    int32_t block[3];  // exposure time, ISO, hint: -1 until filled
    if (memset_s(block, sizeof(block), 0xFF, sizeof(block)) != 0) {
        LOGE("%s(), memset_s failed!", __func__);
        return std::numeric_limits<status_t>::min();
    }
    const int time = profGetExposureTime(result, &block[0]);
    const int iso = profGetIsoState(result, &block[1]);
    const int hint = profGetExposureHint(result, &block[2]);
    if (hint == 0 && (time | iso) == 0) return android::OK;
    if (hostOrReport(mExtCallBackIntf, __func__) == nullptr) return android::BAD_VALUE;
    mExtCallBackIntf->dataCallback(MSG_PREVIEW_PARAMETERS, block, sizeof(block));
    return android::OK;
}

int CameraQzCallBack::profGetExposureTime(const CameraMetadata& result, int32_t* exposureTime) {
    constexpr int64_t nanosecondsPerMicrosecond = 1000;
    if (mExtCallBackIntf == nullptr) return -1;
    const EntryView<int64_t> time(mExtCallBackIntf->findResultEntry(result, ANDROID_SENSOR_EXPOSURE_TIME));
    if (time.count() == 0 || time[0] == 0) return 0;
    const int64_t microseconds = time[0] / nanosecondsPerMicrosecond;
    if (exposureTime != nullptr) *exposureTime = static_cast<int32_t>(static_cast<uint32_t>(microseconds));
    return 1;
}

int CameraQzCallBack::profGetIsoState(const CameraMetadata& result, int32_t* iso) {
    if (mExtCallBackIntf == nullptr) return -1;
    const ResultEntry<int32_t> state(mExtCallBackIntf, result, CAPTURE("isoState"), __func__);
    const int step = state.count() != 0 ? professionalIsoConvert(state[0]) : 0;
    if (step != 0 && iso != nullptr) *iso = step;
    return step != 0 ? 1 : 0;
}

// The scene's own hint first; without one, the mean brightness decides.
int CameraQzCallBack::profGetExposureHint(const CameraMetadata& result, int32_t* expoHint) {
    if (mExtCallBackIntf == nullptr) return -1;
    if (expoHint == nullptr) {
        LOGE("%s(%d): expoHint is NULL.",
             "int qz::CameraQzCallBack::profGetExposureHint(const CameraMetadata &, int32_t *)", 835);
        return 0;
    }
    *expoHint = 0;
    const ResultEntry<int32_t> scene(mExtCallBackIntf, result, CAPTURE("exposureStateHint"), __func__);
    if (!scene.declared()) return 0;
    if (scene.count() == 1) {
        *expoHint = scene[0] >= 1 && scene[0] <= 3 ? scene[0] : 0;
        LOGD("%s(), exposure hint from scene: %d, value: %d", __func__, *expoHint, scene[0]);
    }
    if (*expoHint != 0) return 1;

    const ResultEntry<int32_t> mean(mExtCallBackIntf, result, CAPTURE("qz_algo_mean_y"), __func__);
    if (!mean.declared()) return 0;
    if (mean.count() == 1) *expoHint = hintFromBrightness(mean[0]);
    return 1;
}

int CameraQzCallBack::professionalIsoConvert(int32_t iso) {
    constexpr char signature[] = "int qz::CameraQzCallBack::professionalIsoConvert(int32_t)";
    for (const IsoStep& step : kIsoSteps) {
        if (step.lower < iso && iso <= step.upper) return step.iso;
    }
    if (iso <= kIsoSteps.front().lower) {
        LOGW("%s , iso[%d] is lower than isoTable[0].iso_lower.", signature, iso);
        return kIsoSteps.front().iso;
    }
    // The index is one past the last row: that is how log readers know the case.
    LOGW("%s , iso[%d] is upper than isoTable[%d].iso_upper.", signature, iso,
         static_cast<int>(kIsoSteps.size()));
    return kIsoSteps.back().iso;
}

}  // namespace qz
