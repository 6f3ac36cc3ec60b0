// SPDX-License-Identifier: Apache-2.0
// Table of all result handlers in the order of the dispatcher: kResults.
#pragma once

#include "callback/Messages.h"
#include "callback/ResultRow.h"

#include <iterator>

namespace qz {

inline constexpr ResultRow kResults[] = {
#define PLAIN(handler, feature, ...) ResultRow{#handler, Feature::feature, true} __VA_ARGS__,
#define OWN(handler, feature, ...) ResultRow{#handler, Feature::feature, false} __VA_ARGS__,
#include "callback/results.inc"
#undef PLAIN
#undef OWN
};

constexpr size_t kResultCount = std::size(kResults);

// Returns null if no row has the name.
constexpr const ResultRow* findResult(const char* handler) {
    for (const ResultRow& row : kResults) {
        if (sameText(row.handler, handler)) return &row;
    }
    return nullptr;
}

// Each handler has one row, its lines take the handler and a number, and its message is in the table.
constexpr bool sound(const ResultRow& row) {
    if (findResult(row.handler) != &row) return false;
    if (row.line != nullptr && !converts(row.line, "sd")) return false;
    if (row.message != 0 && findMessage(row.message, row.kind) == nullptr) return false;
    return !row.plain || (row.message != 0 && row.entries[0].type == TYPE_INT32);
}

constexpr bool soundResults() {
    for (const ResultRow& row : kResults) {
        if (!sound(row)) return false;
        for (const ResultRow* other = kResults; other != &row; ++other) {
            if (sameText(other->entries[0].tag, row.entries[0].tag)) return false;
        }
    }
    return true;
}

static_assert(kResultCount == 22);
static_assert(soundResults(), "each row is sound, and begins with an entry of its own");

}  // namespace qz
