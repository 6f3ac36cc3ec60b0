// SPDX-License-Identifier: Apache-2.0
// Values that professional mode shows over its preview: exposure time, ISO and an exposure hint, in one
// block.
#include "callback/ResultSteps.h"

#include "tags/TagNames.h"
#include "tags/VendorTag.h"
#include "text/Checked.h"

#include <array>

namespace qz {

namespace {

// Standard ISO steps. A step covers the raw values above the step before it, up to its own upper limit.
struct IsoStep {
    int32_t upper;
    int32_t iso;
};

constexpr int32_t kBelowSteps = 44;
constexpr std::array<IsoStep, 22> kIsoSteps = {{
    {56, 50},     {71, 64},     {89, 80},     {112, 100},   {141, 125},   {178, 160},
    {224, 200},   {282, 250},   {356, 320},   {449, 400},   {565, 500},   {712, 640},
    {890, 800},   {1122, 1000}, {1414, 1250}, {1782, 1600}, {2245, 2000}, {2828, 2500},
    {3564, 3200}, {4490, 4000}, {5657, 5000}, {7127, 6400},
}};

constexpr int32_t kHintTooBright = 1;
constexpr int32_t kHintTooDark = 2;

int32_t hintFromBrightness(int32_t mean) {
    constexpr int32_t darkest = 25;
    constexpr int32_t brightest = 100;
    if (mean > brightest) return kHintTooBright;
    return mean < darkest ? kHintTooDark : 0;
}

}  // namespace

void ResultSteps::processPreviewParameters(CameraQzCallBack& callBack, const Result& result) {
    ExtCallBackInterface* host = callBack.mExtCallBackIntf;
    int32_t block[3];  // exposure time, ISO, hint: -1 until it is set
    if (!succeeded<line::BlockNotCleared>(memset_s(block, sizeof(block), 0xFF, sizeof(block)), __func__))
        return;
    const int time = profGetExposureTime(host, result, &block[0]);
    const int iso = profGetIsoState(host, result, &block[1]);
    const int hint = profGetExposureHint(host, result, &block[2]);
    if ((time | iso | hint) != 0) host->dataCallback(MSG_PREVIEW_PARAMETERS, block, sizeof(block));
}

int profGetExposureTime(ExtCallBackInterface* host, const Result& result, int32_t* exposureTime) {
    constexpr int64_t nanosecondsPerMicrosecond = 1000;
    const EntryView<int64_t> time(host->findResultEntry(result.metadata, ANDROID_SENSOR_EXPOSURE_TIME));
    if (time.count() == 0 || time[0] == 0) return 0;
    const int64_t microseconds = time[0] / nanosecondsPerMicrosecond;
    *exposureTime = static_cast<int32_t>(static_cast<uint32_t>(microseconds));
    return 1;
}

int profGetIsoState(ExtCallBackInterface* host, const Result& result, int32_t* iso) {
    const EntryView<int32_t> state = findNumbers(host, result, CAPTURE("isoState"));
    if (state.count() == 0) return 0;
    *iso = professionalIsoConvert(state[0]);
    return 1;
}

// The hint of the scene takes precedence. Without one, the mean brightness decides.
int profGetExposureHint(ExtCallBackInterface* host, const Result& result, int32_t* expoHint) {
    if (expoHint == nullptr) {
        LOG_TEXT(line::NoExpoHint);
        return 0;
    }
    *expoHint = 0;
    const uint32_t sceneTag = vendorTagOf(CAPTURE("exposureStateHint"));
    if (sceneTag == kNoTag) return 0;
    const EntryView<int32_t> scene(host->findResultEntry(result.metadata, sceneTag));
    if (scene.count() == 1) {
        *expoHint = scene[0] >= 1 && scene[0] <= 3 ? scene[0] : 0;
        LOG(line::ExposureHint, __func__, *expoHint, scene[0]);
    }
    if (*expoHint != 0) return 1;

    const uint32_t meanTag = vendorTagOf(CAPTURE("qz_algo_mean_y"));
    if (meanTag == kNoTag) return 0;
    const EntryView<int32_t> mean(host->findResultEntry(result.metadata, meanTag));
    if (mean.count() == 1) *expoHint = hintFromBrightness(mean[0]);
    return 1;
}

int32_t professionalIsoConvert(int32_t iso) {
    if (iso <= kBelowSteps) {
        LOG(line::IsoTooLow, iso);
        return kIsoSteps.front().iso;
    }
    for (const IsoStep& step : kIsoSteps) {
        if (iso <= step.upper) return step.iso;
    }
    LOG(line::IsoTooHigh, iso);
    return kIsoSteps.back().iso;
}

}  // namespace qz
