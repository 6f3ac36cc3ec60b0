// The standard tags and their named values as tables to search: what a reader of dumps needs beside the names
// that <system/camera_metadata.h> gives. They hold all up to Android 14, so that dumps of newer platforms can
// be read; the constants in the headers end with Android 7.1. All results live as long as the program; all
// functions may be called on any thread.
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

// All of them, ascending by number: for (const StandardTag& tag : StandardTags()) ...
class StandardTags {
  public:
    const StandardTag* begin() const;
    const StandardTag* end() const;
};

// Null when there is no such standard tag.
const StandardTag* findStandardTag(uint32_t tag);
const StandardTag* findStandardTag(std::string_view section, std::string_view name);

// The name of a tag's value ("OFF"), null when that value has none; and the way back.
const char* nameOfValue(uint32_t tag, int64_t value);
std::optional<int32_t> valueOfName(uint32_t tag, std::string_view name);

}  // namespace qz::host
