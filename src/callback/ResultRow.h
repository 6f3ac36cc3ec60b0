// SPDX-License-Identifier: Apache-2.0
// The row of one result handler: every fact about the result entry, its conditions and its message.
// results.inc contains the rows.
#pragma once

#include "QzHostInterfaces.h"
#include "rows/Entry.h"
#include "rows/Feature.h"
#include "rows/Format.h"
#include "rows/Upto.h"

namespace qz {

// Conditions of sending a received entry. Each comment says when the entry is not sent.
enum class ResultGate : uint8_t {
    onChange,          // the values are those that were sent last
    zeroOnce,          // 0 was sent last, and it is 0 again
    notZero,           // the value is 0
    modeIsOne,         // the first entry, a mode, is not 1
    oncePerMode,       // the result was sent since the mode became 1
    professionalMode,  // the last request with "qz-professional-mode" did not switch it on
};

constexpr const char* kResultGateTexts[] = {
    "only when a value has changed",
    "0 only once, any other value with every result",
    "not for 0",
    "only while the mode is 1",
    "once until the mode changes",
    "only after a request with qz-professional-mode=on",
};

struct ResultRow {
    const char* handler = nullptr;
    Feature feature = Feature::image;
    bool plain = false;     // the row alone is enough; otherwise a function of the handler's name runs
    bool optional = false;  // the function runs for every result
    Upto<EntryRow, 4> entries{};
    int32_t message = 0;             // code; 0: none
    int32_t kind = 0;                // first number of messages that share a code
    const char* line = nullptr;      // plain rows: information line; otherwise error line for another count
    Upto<const char*, 3> members{};  // members that it sets
    Upto<ResultGate, 2> gates{};

    // Facts of results.inc. Each function returns the row.
    constexpr ResultRow& reads(Upto<EntryRow, 4> all) { return entries = all, *this; }
    constexpr ResultRow& looksFor(Upto<EntryRow, 4> all) { return optional = true, reads(all); }
    constexpr ResultRow& sends(int32_t code, int32_t first = 0) {
        return message = code, kind = first, *this;
    }
    constexpr ResultRow& says(const char* format) { return line = format, *this; }
    constexpr ResultRow& keeps(Upto<const char*, 3> names) { return members = names, *this; }
    constexpr ResultRow& when(Upto<ResultGate, 2> all) { return gates = all, *this; }
};

}  // namespace qz
