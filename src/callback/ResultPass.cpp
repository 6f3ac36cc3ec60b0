#include "callback/ResultPass.h"

#include "callback/ResultSteps.h"
#include "callback/Results.h"
#include "tags/VendorTag.h"
#include "text/Log.h"

#include <array>
#include <cstring>

namespace qz {

namespace {

using android::CameraMetadata;
using Function = status_t (*)(CameraQzCallBack&, const Result&);

// The facts of a row that the pass needs; the others take no room in the library.
struct Step {
    const char* handler = nullptr;
    Function function = nullptr;  // of its own; null for a plain row
    EntryRow entry;
    const char* says = nullptr;
    Sends sends;
    uint8_t tagLength = 0;
    bool optional = false;
    bool professionalMode = false;
};

constexpr Function kFunctions[] = {
#define PLAIN(handler, ...) nullptr,
#define OWN(handler, ...) ResultSteps::handler,
#include "callback/results.inc"
#undef PLAIN
#undef OWN
};

constexpr Step stepOf(const ResultRow& row, Function function) {
    Step step;
    step.handler = row.handler;
    step.function = function;
    step.entry = row.entries[0];
    step.says = row.says;
    step.sends = row.sends;
    step.tagLength = static_cast<uint8_t>(std::string_view(step.entry.tag).size());
    step.optional = row.optional;
    step.professionalMode = row.gated(ResultGate::professionalMode);
    return step;
}

constexpr std::array<Step, kResultCount> steps() {
    std::array<Step, kResultCount> all{};
    for (size_t i = 0; i < kResultCount; ++i) all[i] = stepOf(kResults[i], kFunctions[i]);
    return all;
}
constexpr std::array<Step, kResultCount> kSteps = steps();

// Finds the entry of a step. False without one that the row allows.
bool find(const Step& step, ExtCallBackInterface* host, Result& result) {
    const uint32_t tag = findVendorTag({step.entry.tag, step.tagLength});
    if (tag == kNoTag) return false;
    result.entry = host->findResultEntry(result.metadata, tag);
    if (result.entry.count == 0 || result.entry.type != step.entry.type) return false;
    if (step.entry.allows(result.entry.count)) return true;
    if (step.says != nullptr) {
        logText(ANDROID_LOG_ERROR, kCallBackLog, step.says, step.handler,
                static_cast<int>(result.entry.count));
    }
    return false;
}

// Sends the message of a plain row.
void send(const Step& step, ExtCallBackInterface* host, int32_t number) {
    if (step.says != nullptr) logText(ANDROID_LOG_INFO, kCallBackLog, step.says, step.handler, number);
    if (step.sends.kind == 0) {
        host->notifyCallback(step.sends.code, number, 0);
    } else {
        host->notifyCallback(step.sends.code, step.sends.kind, number);
    }
}

}  // namespace

// A friend of the processor and of the translator.
struct ResultPass {
    static status_t run(const Step& step, CameraQzCallBack& callBack, const CameraMetadata& metadata) {
        if (step.professionalMode && !callBack.mQzParam->mProfessionalMode.get()) return android::OK;
        ExtCallBackInterface* host = callBack.mExtCallBackIntf;
        if (!hasHost(host, step.handler)) return android::BAD_VALUE;
        Result result{metadata, {}};
        if (!step.optional && !find(step, host, result)) return android::OK;
        if (step.function != nullptr) return step.function(callBack, result);
        send(step, host, result.numbers()[0]);
        return android::OK;
    }
};

bool hasHost(const ExtCallBackInterface* host, const char* caller) {
    if (host == nullptr) LOG(line::NoCallBackIntf, caller);
    return host != nullptr;
}

status_t CameraQzCallBack::processQzCallBack(const CameraMetadata& result) {
    for (const Step& step : kSteps) ResultPass::run(step, *this, result);
    return android::OK;
}

status_t runHandler(CameraQzCallBack& callBack, const char* handler, const CameraMetadata& result) {
    for (const Step& step : kSteps) {
        if (strcmp(step.handler, handler) == 0) return ResultPass::run(step, callBack, result);
    }
    return android::NAME_NOT_FOUND;
}

}  // namespace qz
