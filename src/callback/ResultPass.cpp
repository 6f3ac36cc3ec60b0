// SPDX-License-Identifier: Apache-2.0
#include "callback/ResultPass.h"

#include "callback/ResultSteps.h"
#include "callback/Results.h"
#include "tags/VendorTag.h"
#include "text/Log.h"

#include <cstring>

namespace qz {

namespace {

using android::CameraMetadata;
using Function = void (*)(CameraQzCallBack&, const Result&);

// The facts of a row that the pass needs. The library does not store the others.
struct Step {
    const char* handler = nullptr;
    Function function = nullptr;  // null for a plain row
    EntryRow entry;
    int32_t message = 0;
    int32_t kind = 0;
    const char* line = nullptr;
    uint8_t tagLength = 0;
    bool optional = false;
    bool professionalMode = false;
};

constexpr Step stepOf(const ResultRow& row, Function function) {
    const EntryRow& entry = row.entries[0];
    const size_t tagLength = std::string_view(entry.tag).size();
    return {row.handler,
            function,
            entry,
            row.message,
            row.kind,
            row.line,
            static_cast<uint8_t>(tagLength),
            row.optional,
            row.gates.has(ResultGate::professionalMode)};
}

constexpr Step kSteps[] = {
#define PLAIN(handler, ...) stepOf(*findResult(#handler), nullptr),
#define OWN(handler, ...) stepOf(*findResult(#handler), ResultSteps::handler),
#include "callback/results.inc"
#undef PLAIN
#undef OWN
};

// Returns true for an entry that the row allows. Logs another count.
bool isUsable(const Step& step, const camera_metadata_ro_entry& entry) {
    if (entry.count == 0 || entry.type != step.entry.type) return false;
    if (step.entry.allows(entry.count)) return true;
    if (step.line != nullptr)
        logText(ANDROID_LOG_ERROR, kCallBackLog, step.line, step.handler, static_cast<int>(entry.count));
    return false;
}

// Sends the message of a plain row.
void send(const Step& step, ExtCallBackInterface* host, int32_t number) {
    if (step.line != nullptr) logText(ANDROID_LOG_INFO, kCallBackLog, step.line, step.handler, number);
    if (step.kind == 0) {
        host->notifyCallback(step.message, number, 0);
    } else {
        host->notifyCallback(step.message, step.kind, number);
    }
}

}  // namespace

// A friend of the processor and of the translator.
struct ResultPass {
    static status_t run(const Step& step, CameraQzCallBack& callBack, const CameraMetadata& metadata) {
        if (step.professionalMode && !callBack.mQzParam->mProfessionalMode.get()) return android::OK;
        ExtCallBackInterface* host = callBack.mExtCallBackIntf;
        if (!hasHost(host, step.handler)) return android::BAD_VALUE;
        if (step.optional) {
            step.function(callBack, Result{metadata, {}});
            return android::OK;
        }
        const uint32_t tag = findVendorTag({step.entry.tag, step.tagLength});
        if (tag == kNoTag) return android::OK;
        const Result result{metadata, host->findResultEntry(metadata, tag)};
        if (!isUsable(step, result.entry)) return android::OK;
        if (step.function != nullptr) {
            step.function(callBack, result);
        } else {
            send(step, host, result.numbers()[0]);
        }
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
