// Metadata entries as a host hands them out, of exactly their own bytes: a sanitizer sees who reads on.
#pragma once

#include <system/camera_metadata.h>

#include <cstdint>
#include <variant>
#include <vector>

namespace qz::test {

using B = std::vector<uint8_t>;
using I = std::vector<int32_t>;
using F = std::vector<float>;
using L = std::vector<int64_t>;
using Elements = std::variant<B, I, F, L>;  // in the order of the platform's type codes

inline camera_metadata_ro_entry entryOf(uint32_t tag, const Elements& elements) {
    camera_metadata_ro_entry entry = {};
    entry.tag = tag;
    entry.type = static_cast<uint8_t>(elements.index());
    std::visit(
        [&entry](const auto& list) {
            entry.count = list.size();
            entry.data.u8 = reinterpret_cast<const uint8_t*>(list.data());
        },
        elements);
    return entry;
}

}  // namespace qz::test
