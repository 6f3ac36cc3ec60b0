// The standard tags and their named values as tables to search: what a reader of dumps needs beside the names
// that <system/camera_metadata.h> gives. All results live as long as the program; all functions may be called
// on any thread.
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

// Null when there is no such standard tag.
const StandardTag* findStandardTag(uint32_t tag);
const StandardTag* findStandardTag(std::string_view section, std::string_view name);

// The name of a tag's value ("OFF"), null when that value has none; and the way back.
const char* nameOfValue(uint32_t tag, int32_t value);
std::optional<int32_t> valueOfName(uint32_t tag, std::string_view name);

}  // namespace qz::host
