// SPDX-License-Identifier: Apache-2.0
// A metadata entry in a row: its tag, element type and number of elements.
#pragma once

#include "tags/TagNames.h"

#include <system/camera_metadata.h>

#include <cstddef>
#include <cstdint>

namespace qz {

struct EntryRow {
    const char* tag = nullptr;  // full name, section and tag
    uint8_t type = NUM_TYPES;   // TYPE_BYTE ...
    uint8_t least = 1;          // number of elements; `most` 0: no upper limit
    uint8_t most = 1;
    bool onlyEnds = false;          // only `least` and `most` are valid, no count between them
    const char* refused = nullptr;  // failure text of an entry that is written

    // Returns true for a count that the library uses.
    constexpr bool allows(size_t count) const {
        if (onlyEnds) return count == least || count == most;
        return count >= least && (most == 0 || count <= most);
    }
};

constexpr EntryRow byte(const char* tag, const char* refused = nullptr) {
    return {tag, TYPE_BYTE, 1, 1, false, refused};
}
constexpr EntryRow int32(const char* tag, const char* refused = nullptr) {
    return {tag, TYPE_INT32, 1, 1, false, refused};
}
constexpr EntryRow int64(const char* tag) { return {tag, TYPE_INT64, 1, 1, false, nullptr}; }
constexpr EntryRow float32(const char* tag, const char* refused = nullptr) {
    return {tag, TYPE_FLOAT, 1, 1, false, refused};
}
constexpr EntryRow rational(const char* tag, const char* refused = nullptr) {
    return {tag, TYPE_RATIONAL, 1, 1, false, refused};
}

constexpr EntryRow counting(EntryRow entry, uint8_t least, uint8_t most) {
    entry.least = least;
    entry.most = most;
    return entry;
}
constexpr EntryRow exactly(uint8_t count, EntryRow entry) { return counting(entry, count, count); }
constexpr EntryRow atLeast(uint8_t count, EntryRow entry) { return counting(entry, count, 0); }
constexpr EntryRow between(uint8_t least, uint8_t most, EntryRow entry) {
    return counting(entry, least, most);
}
constexpr EntryRow either(uint8_t count, uint8_t other, EntryRow entry) {
    entry = counting(entry, count, other);
    entry.onlyEnds = true;
    return entry;
}

}  // namespace qz
