// SPDX-License-Identifier: Apache-2.0
#include "capabilities/CapabilityPass.h"

#include "capabilities/Capabilities.h"
#include "capabilities/Capability.h"
#include "capabilities/CapabilitySteps.h"

#include <array>
#include <cstring>

namespace qz {

namespace {

using Function = void (*)(CCameraQzParam&);
using Form = Publication::Form;

// The facts of a row that the pass needs. The library does not store the others.
struct Step {
    const char* getter = nullptr;
    Function function = nullptr;  // null for a plain row
    const char* tag = nullptr;
    const char* key = nullptr;
    const Vocabulary* words = nullptr;
    const char* counts = nullptr;
    const char* echoes = nullptr;
    uint8_t tagLength = 0;
    uint8_t minimum = 0;
    uint8_t exactly = 0;  // 0: any count except 0
    uint8_t echoPriority = 0;
    Form form = Form::own;
    bool countsName = false;
    bool echoesName = false;
};

constexpr Function kFunctions[] = {
#define PLAIN(getter, ...) nullptr,
#define OWN(getter, ...) CapabilitySteps::getter,
#include "capabilities/capabilities.inc"
#undef PLAIN
#undef OWN
};

constexpr bool beginsWithName(const char* format) {
    return format != nullptr && conversion(format, 1) != '\0';
}

constexpr Step stepOf(const CapabilityRow& row, Function function) {
    Step step;
    step.getter = row.getter;
    step.function = function;
    if (!row.plain) return step;
    const EntryRow& entry = row.entries[0];
    step.tag = entry.tag;
    step.key = row.publishes[0].key;
    step.words = row.publishes[0].vocabulary;
    step.counts = row.counts.format;
    step.echoes = row.echoes.format;
    step.tagLength = static_cast<uint8_t>(std::string_view(entry.tag).size());
    step.minimum = row.minimum;
    step.exactly = entry.most != 0 ? entry.least : uint8_t{0};
    step.echoPriority = static_cast<uint8_t>(row.echoes.priority);
    step.form = row.publishes[0].form;
    step.countsName = beginsWithName(step.counts);
    step.echoesName = beginsWithName(step.echoes);
    return step;
}

constexpr std::array<Step, kCapabilityCount> steps() {
    std::array<Step, kCapabilityCount> all{};
    for (size_t i = 0; i < kCapabilityCount; ++i) all[i] = stepOf(kCapabilities[i], kFunctions[i]);
    return all;
}
constexpr std::array<Step, kCapabilityCount> kSteps = steps();

void countLine(const Step& step, size_t count) {
    if (step.countsName) {
        logText(ANDROID_LOG_INFO, kTranslatorLog, step.counts, step.getter, count);
    } else if (step.counts != nullptr) {
        logText(ANDROID_LOG_INFO, kTranslatorLog, step.counts, count);
    }
}

void echoLine(const Step& step, ExtParamInterface* host) {
    if (step.echoes == nullptr) return;
    const char* value = published(host, step.key);
    if (step.echoesName) {
        logText(step.echoPriority, kTranslatorLog, step.echoes, step.getter, value);
    } else {
        logText(step.echoPriority, kTranslatorLog, step.echoes, value);
    }
}

void publish(const Step& step, ExtParamInterface* host, EntryView<uint8_t> bytes) {
    switch (step.form) {
        case Form::flag:
            return publishFlag(host, step.key, bytes);
        case Form::words:
            return publishWords(host, step.key, bytes, *step.words);
        default:
            return publishText(host, step.key, bytes);
    }
}

void publish(const Step& step, ExtParamInterface* host, EntryView<int32_t> numbers) {
    if (step.form == Form::numbers) return publishNumbers(host, step.key, numbers);
    publishNumber(host, step.key, numbers[0]);
}

// An entry of another type than the row states counts as empty.
template <typename T>
void publishUsable(const Step& step, ExtParamInterface* host, EntryView<T> elements) {
    const size_t count = elements.count();
    if (count == 0 || (step.exactly != 0 && count != step.exactly)) return countLine(step, count);
    publish(step, host, elements);
    echoLine(step, host);
}

void run(const Step& step, ExtParamInterface* host) {
    const uint32_t tag = findVendorTag({step.tag, step.tagLength});
    if (tag == kNoTag) return;
    const camera_metadata_ro_entry entry = host->getStaticInfo(tag, step.minimum, 0, true);
    if (step.form == Form::number || step.form == Form::numbers) {
        publishUsable(step, host, EntryView<int32_t>(entry));
    } else {
        publishUsable(step, host, EntryView<uint8_t>(entry));
    }
}

}  // namespace

// A friend of the translator.
struct CapabilityPass {
    static void run(const Step& step, CCameraQzParam& camera) {
        if (step.function != nullptr) return step.function(camera);
        qz::run(step, camera.mExtParam);
    }
};

int32_t CCameraQzParam::metaDataToParam() {
    for (const Step& step : kSteps) CapabilityPass::run(step, *this);
    return 0;
}

int32_t runGetter(CCameraQzParam& camera, const char* getter) {
    for (const Step& step : kSteps) {
        if (strcmp(step.getter, getter) != 0) continue;
        CapabilityPass::run(step, camera);
        return 0;
    }
    return android::NAME_NOT_FOUND;
}

}  // namespace qz
