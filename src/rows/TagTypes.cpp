// SPDX-License-Identifier: Apache-2.0
// Checks the element types of tags over all rows together, at compile time.
#include "callback/Results.h"
#include "capabilities/Capabilities.h"
#include "request/Parameters.h"

namespace qz {

namespace {

// More than the number of entries in all rows.
constexpr size_t kCapacity = 512;

struct Entries {
    const EntryRow* rows[kCapacity] = {};
    size_t count = 0;

    template <typename List>
    constexpr void add(const List& list) {
        for (const EntryRow& row : list) rows[count++] = &row;
    }
};

constexpr Entries allEntries() {
    Entries all;
    for (const Parameter& row : kParameters) {
        all.add(row.entries);
        all.add(row.uses);
    }
    for (const CapabilityRow& row : kCapabilities) all.add(row.entries);
    for (const ResultRow& row : kResults) all.add(row.entries);
    return all;
}

// A section declares a tag once, with one type.
constexpr bool haveOneTypePerTag(const Entries& entries) {
    for (size_t i = 0; i < entries.count; ++i) {
        for (size_t j = 0; j < i; ++j) {
            const EntryRow &a = *entries.rows[i], &b = *entries.rows[j];
            if (a.type != b.type && sameText(a.tag, b.tag)) return false;
        }
    }
    return true;
}

static_assert(haveOneTypePerTag(allEntries()), "a tag of a section has one element type in all rows");

}  // namespace

}  // namespace qz
