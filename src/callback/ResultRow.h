// The row of one result handler: every fact of its way from a result entry to the application. results.inc
// holds the rows.
#pragma once

#include "QzHostInterfaces.h"
#include "rows/Entry.h"
#include "rows/Feature.h"
#include "rows/Format.h"
#include "rows/Upto.h"

namespace qz {

// Conditions under which an entry that has arrived is not told.
enum class ResultGate : uint8_t {
    onChange,          // the values are those that were told last
    zeroOnce,          // 0 was told last, and it is 0 again
    notZero,           // the value is 0
    modeIsOne,         // the first entry, a mode, is not 1
    onceAMode,         // the result was told since the mode became 1
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

// A message, and the first number that tells messages of one code apart.
struct Sends {
    int32_t code = 0;
    int32_t kind = 0;
};

struct ResultRow {
    const char* handler = nullptr;
    bool plain = false;     // nothing but this row; otherwise a function of the handler's name runs
    bool optional = false;  // the function runs whatever the result has
    Feature feature = Feature::image;
    Upto<EntryRow, 4> entries;
    Sends sends;                 // code 0: no message
    const char* says = nullptr;  // a plain row's information line; otherwise the error line for another count
    Upto<const char*, 3> keeps;  // members that it sets
    Upto<ResultGate, 2> gates;

    constexpr bool gated(ResultGate gate) const {
        for (const ResultGate each : gates) {
            if (each == gate) return true;
        }
        return false;
    }
};

// The columns of results.inc.
namespace result {

struct Says {
    const char* line;
};
struct Keeps {
    Upto<const char*, 3> members;
};
struct Entries {
    Upto<EntryRow, 4> rows;
    bool optional;
};

constexpr Sends sends(int32_t code, int32_t kind = 0) { return {code, kind}; }
constexpr Says says(const char* line) { return {line}; }
template <typename... Members>
constexpr Keeps keeps(Members... members) {
    return {Upto<const char*, 3>(members...)};
}
template <typename... Rows>
constexpr Entries entries(const Rows&... rows) {
    return {Upto<EntryRow, 4>(rows...), false};
}
template <typename... Rows>
constexpr Entries optional(const Rows&... rows) {
    return {Upto<EntryRow, 4>(rows...), true};
}

constexpr void apply(ResultRow& row, const Sends& facts) { row.sends = facts; }
constexpr void apply(ResultRow& row, const Says& facts) { row.says = facts.line; }
constexpr void apply(ResultRow& row, const Keeps& facts) { row.keeps = facts.members; }
constexpr void apply(ResultRow& row, ResultGate gate) { row.gates.add(gate); }

template <typename... Facts>
constexpr ResultRow own(const char* handler, Feature feature, const Entries& entries, const Facts&... facts) {
    ResultRow row;
    row.handler = handler;
    row.optional = entries.optional;
    row.feature = feature;
    row.entries = entries.rows;
    (apply(row, facts), ...);
    return row;
}

template <typename... Facts>
constexpr ResultRow plain(const char* handler, Feature feature, const EntryRow& entry,
                          const Facts&... facts) {
    ResultRow row = own(handler, feature, entries(entry), facts...);
    row.plain = true;
    return row;
}

}  // namespace result
}  // namespace qz
