// The rows of all result handlers as a table: kResults, in the order of the dispatcher.
#pragma once

#include "callback/Messages.h"
#include "callback/ResultRow.h"

namespace qz {

namespace result {

inline constexpr ResultRow kResults[] = {
#define PLAIN(handler, feature, ...) plain(#handler, Feature::feature, __VA_ARGS__),
#define OWN(handler, feature, ...) own(#handler, Feature::feature, __VA_ARGS__),
#include "callback/results.inc"
#undef PLAIN
#undef OWN
};

}  // namespace result

using result::kResults;

constexpr size_t kResultCount = sizeof(kResults) / sizeof(kResults[0]);

constexpr bool distinctResults() {
    for (size_t i = 0; i < kResultCount; ++i) {
        for (size_t j = 0; j < i; ++j) {
            if (sameText(kResults[i].handler, kResults[j].handler)) return false;
            if (sameText(kResults[i].entries[0].tag, kResults[j].entries[0].tag)) return false;
        }
    }
    return true;
}

// The lines take the handler and a number, and each message is one of the table.
constexpr bool soundResults() {
    for (const ResultRow& row : kResults) {
        if (row.says != nullptr && !converts(row.says, "sd")) return false;
        if (row.sends.code != 0 && findMessage(row.sends.code, row.sends.kind) == nullptr) return false;
        if (row.plain && (row.sends.code == 0 || row.entries[0].type != TYPE_INT32)) return false;
    }
    return true;
}

static_assert(kResultCount == 22);
static_assert(distinctResults(), "each handler has one row, and an entry of its own");
static_assert(soundResults());

}  // namespace qz
