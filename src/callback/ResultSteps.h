// SPDX-License-Identifier: Apache-2.0
// The functions of the rows that need one. Each is the algorithm of one handler.
#pragma once

#include "CameraQzCallBack.h"
#include "tags/EntryView.h"
#include "tags/TagNames.h"

#include <string_view>

namespace qz {

// A capture result for a handler. The first entry of the handler's row is present, with its type and count.
struct Result {
    const android::CameraMetadata& metadata;
    camera_metadata_ro_entry entry;

    const uint8_t* bytes() const { return entry.data.u8; }
    const int32_t* numbers() const { return entry.data.i32; }
};

// Returns a further entry of a result.
EntryView<int32_t> findNumbers(ExtCallBackInterface* host, const Result& result, TagName tagName);

// A friend of the processor and of the translator: the functions read and write their members.
struct ResultSteps {
#define PLAIN(...)
#define OWN(handler, ...) static void handler(CameraQzCallBack& callBack, const Result& result);
#include "callback/results.inc"
#undef PLAIN
#undef OWN
};

// Parts of handlers.
void callbackTargetTracking(ExtCallBackInterface* host, const int32_t* targetCoord);  // x, y

// Fill one number of the preview-parameter block. Return 1 if it was set, otherwise 0.
int profGetExposureTime(ExtCallBackInterface* host, const Result& result,
                        int32_t* exposureTime);  // microseconds
int profGetIsoState(ExtCallBackInterface* host, const Result& result, int32_t* iso);
int profGetExposureHint(ExtCallBackInterface* host, const Result& result, int32_t* expoHint);
int32_t professionalIsoConvert(int32_t iso);

}  // namespace qz
