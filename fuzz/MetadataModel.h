// SPDX-License-Identifier: Apache-2.0
// A simple list of entries: the expected contents of a metadata buffer.
#pragma once

#include "Target.h"

#include <system/camera_metadata.h>
#include <utils/Errors.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace qz::fuzz {

constexpr android::status_t kRefused = 1;

struct Entry {
    uint32_t tag;
    uint8_t type;
    std::string bytes;  // whole elements
};

// Entries in the order of insertion. A search finds the first of several entries of a tag.
class Model {
  public:
    void update(const Entry& entry) {
        const auto place = find(entry.tag);
        if (place == entries.end()) {
            entries.push_back(entry);
        } else {
            *place = entry;
        }
    }
    void erase(uint32_t tag) {
        const auto place = find(tag);
        if (place != entries.end()) entries.erase(place);
    }
    void append(const Model& other) {
        entries.insert(entries.end(), other.entries.begin(), other.entries.end());
    }
    void sort() {
        std::stable_sort(entries.begin(), entries.end(),
                         [](const Entry& a, const Entry& b) { return a.tag < b.tag; });
    }
    std::vector<Entry>::iterator find(uint32_t tag) {
        return std::find_if(entries.begin(), entries.end(),
                            [tag](const Entry& entry) { return entry.tag == tag; });
    }

    std::vector<Entry> entries;
};

inline size_t elementsOf(const Entry& entry) {
    return entry.bytes.size() / camera_metadata_type_size[entry.type];
}

inline void requireEntry(const camera_metadata_ro_entry_t& entry, const Entry& expected,
                         const camera_metadata_t* buffer) {
    const size_t size = entry.count * camera_metadata_type_size[entry.type];
    require(entry.tag == expected.tag && entry.type == expected.type && size == expected.bytes.size(),
            "entries keep their places, types and counts");
    require(std::equal(expected.bytes.begin(), expected.bytes.end(),
                       reinterpret_cast<const char*>(entry.data.u8)),
            "an entry has its own bytes");
    const auto offset = reinterpret_cast<uintptr_t>(entry.data.u8) - reinterpret_cast<uintptr_t>(buffer);
    require(offset + size <= get_camera_metadata_size(buffer), "data lie in the buffer");
    require(size <= 4 || offset % 8 == 0, "data in the data area start on 8 bytes");
}

inline bool isSound(const camera_metadata_t* buffer) {
    const size_t size = get_camera_metadata_size(buffer);
    return validate_camera_metadata_structure(buffer, &size) == 0;
}

}  // namespace qz::fuzz
