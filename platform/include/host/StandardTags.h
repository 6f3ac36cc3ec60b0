// SPDX-License-Identifier: Apache-2.0
// Standard tags and their named values as tables to search, for readers of dumps: they find tags by name. The
// tables contain all tags up to Android 14, so that dumps of newer platforms can be read. The constants in
// the headers end with Android 7.1. All results live as long as the program. Any thread may call any
// function.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace qz::host {

struct StandardTag {
    uint32_t tag;
    uint8_t type;      // TYPE_*
    const char* name;  // without its section: "aeMode"
};

// All standard tags, sorted by number: for (const StandardTag& tag : StandardTags()) ...
class StandardTags {
  public:
    const StandardTag* begin() const;
    const StandardTag* end() const;
};

// Returns null if there is no such standard tag.
const StandardTag* findStandardTag(uint32_t tag);
const StandardTag* findStandardTag(std::string_view section, std::string_view name);

// Convert between a tag's value and its name ("OFF"). The name is null if the value has none.
const char* nameOfValue(uint32_t tag, int64_t value);
std::optional<int32_t> valueOfName(uint32_t tag, std::string_view name);

}  // namespace qz::host
