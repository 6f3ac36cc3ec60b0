// SPDX-License-Identifier: Apache-2.0
#include "request/RequestPass.h"

#include "request/Entry.h"
#include "request/Parameters.h"
#include "request/RequestSteps.h"
#include "tags/VendorTag.h"
#include "text/Log.h"
#include "text/Numbers.h"

#include <array>
#include <cstring>

namespace qz {

namespace {

using android::CameraMetadata;
using Function = status_t (*)(const Setting&);

// The facts of a row that the pass needs. The library does not store the others.
struct Step {
    enum class Reads : uint8_t { text, number, none, gatedText, gatedNumber };

    const char* setter = nullptr;
    Function function = nullptr;  // null for a plain row
    const char* key = nullptr;
    const char* tag = nullptr;
    const Vocabulary* words = nullptr;
    const char* refused = nullptr;
    const char* information = nullptr;
    uint8_t tagLength = 0;
    Reads reads = Reads::none;  // way to read the key; none if the function reads its keys itself
    bool isByte = false;
    bool printsText = false;
    bool informsText = false;
    Gate gate = Gate::none;  // lightPainting, otherClient or none
};

constexpr Function kFunctions[] = {
#define PLAIN(setter, ...) nullptr,
#define OWN(setter, ...) RequestSteps::setter,
#define FREE(setter, ...) RequestSteps::setter,
#define STEP(step, ...) RequestSteps::step,
#include "request/parameters.inc"
#undef PLAIN
#undef OWN
#undef FREE
#undef STEP
};

constexpr Step stepOf(const Parameter& row, Function function) {
    Step step;
    step.setter = row.setter;
    step.function = function;
    if (row.free) return step;
    step.key = row.keys[0].name;
    const bool isText = row.keys[0].as == KeyRow::As::text;
    step.reads = isText ? Step::Reads::text : Step::Reads::number;
    if (row.gated(Gate::lightPainting)) step.gate = Gate::lightPainting;
    if (row.gated(Gate::otherClient)) step.gate = Gate::otherClient;
    if (step.gate != Gate::none) step.reads = isText ? Step::Reads::gatedText : Step::Reads::gatedNumber;
    if (!row.plain) return step;
    step.tag = row.entries[0].tag;
    step.words = row.conversion.vocabulary;
    step.refused = row.refused();
    step.information = row.information;
    step.tagLength = static_cast<uint8_t>(std::string_view(step.tag).size());
    step.isByte = row.entries[0].type == TYPE_BYTE;
    step.printsText = printsText(step.refused);
    step.informsText = step.information != nullptr && conversion(step.information, 2) == 's';
    return step;
}

constexpr std::array<Step, kParameterCount> steps() {
    std::array<Step, kParameterCount> all{};
    for (size_t i = 0; i < kParameterCount; ++i) all[i] = stepOf(kParameters[i], kFunctions[i]);
    return all;
}
constexpr std::array<Step, kParameterCount> kSteps = steps();

// "auto" is 0 for the pipeline, and so is any other word.
int autoOrNumber(const char* text) { return strcmp(text, "auto") == 0 ? 0 : parseInt32(text); }

int convert(const Step& step, const char* text, int number) {
    if (text == nullptr) return number;
    return step.words != nullptr ? numberOf(*step.words, text) : autoOrNumber(text);
}

void inform(const Step& step, const char* text, int value) {
    if (step.informsText) {
        logText(ANDROID_LOG_INFO, kTranslatorLog, step.information, step.setter, value, text);
    } else {
        logText(ANDROID_LOG_INFO, kTranslatorLog, step.information, step.setter, value);
    }
}

void report(const Step& step, const char* text, int value, status_t status) {
    if (step.printsText) {
        logText(ANDROID_LOG_ERROR, kTranslatorLog, step.refused, step.setter, text, value, status);
    } else {
        logText(ANDROID_LOG_ERROR, kTranslatorLog, step.refused, step.setter, value, status);
    }
}

// Writes the entry of a plain row.
status_t write(const Step& step, const Setting& set) {
    const uint32_t tag = findVendorTag({step.tag, step.tagLength});
    if (tag == kNoTag) return android::OK;
    const int32_t value = convert(step, set.text, set.number);
    const auto low = static_cast<uint8_t>(value);
    const int shown = step.isByte ? low : value;
    if (step.information != nullptr) inform(step, set.text, shown);
    const status_t status = step.isByte ? set.host->update(set.metaData, tag, &low, 1)
                                        : set.host->update(set.metaData, tag, &value, 1);
    if (status != android::OK) report(step, set.text, shown, status);
    return status;
}

}  // namespace

// A friend of the translator.
struct RequestPass {
    static bool isClosed(Gate gate, const CCameraQzParam& camera) {
        return gate == Gate::lightPainting ? camera.mLightPaintingMode == 0 : camera.mIsQzCamera;
    }

    // Continues with a key that is set. It is not inlined: most keys are not set, and the loop stays short.
    [[gnu::noinline]] static status_t apply(const Step& step, CCameraQzParam& camera,
                                            CameraMetadata* metaData, const char* text, int number) {
        const Setting set{camera, camera.mExtParam, metaData, step.setter, text, number};
        return step.function != nullptr ? step.function(set) : write(step, set);
    }

    static status_t applyText(const Step& step, CCameraQzParam& camera, CameraMetadata* metaData) {
        const char* text = camera.mExtParam->get(step.key);
        return text != nullptr ? apply(step, camera, metaData, text, 0) : android::OK;
    }

    static status_t applyNumber(const Step& step, CCameraQzParam& camera, CameraMetadata* metaData) {
        const int number = camera.mExtParam->getInt(step.key);
        return number != -1 ? apply(step, camera, metaData, nullptr, number) : android::OK;
    }

    // The frequent cases come first: a pass with few keys set does little else.
    static status_t run(const Step& step, CCameraQzParam& camera, CameraMetadata* metaData) {
        if (step.reads == Step::Reads::text) return applyText(step, camera, metaData);
        if (step.reads == Step::Reads::number) return applyNumber(step, camera, metaData);
        if (step.reads == Step::Reads::none) return apply(step, camera, metaData, nullptr, 0);
        if (isClosed(step.gate, camera)) return android::OK;
        return step.reads == Step::Reads::gatedText ? applyText(step, camera, metaData)
                                                    : applyNumber(step, camera, metaData);
    }
};

status_t CCameraQzParam::paramToMetaData(CameraMetadata* metaData) {
    if (metaData == nullptr) {
        LOG_TEXT(line::NoRequestForPass);
        return android::BAD_VALUE;
    }
    for (const Step& step : kSteps) RequestPass::run(step, *this, metaData);
    return android::OK;
}

status_t runSetter(CCameraQzParam& camera, const char* setter, CameraMetadata* metaData) {
    for (const Step& step : kSteps) {
        if (strcmp(step.setter, setter) != 0) continue;
        const bool refuses = metaData == nullptr && step.reads != Step::Reads::none;
        return refuses ? refuseNull(step.setter) : RequestPass::run(step, camera, metaData);
    }
    return android::NAME_NOT_FOUND;
}

}  // namespace qz
