// The elements of one metadata entry, of whichever type, between text and metadata.
#pragma once

#include <camera/CameraMetadata.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct Values {
    uint8_t type = TYPE_BYTE;
    size_t count = 0;
    std::vector<uint8_t> bytes;  // count elements as they lie in a metadata buffer

    bool operator==(const Values& other) const {
        return type == other.type && count == other.count && bytes == other.bytes;
    }
    bool operator!=(const Values& other) const { return !(*this == other); }
};

// Appends the element that the text stands for: a number, "n/d" for a rational, or the name of one of the
// standard tag's values. False, and nothing appended, when it is none of this type.
bool appendElement(Values& values, uint32_t tag, std::string_view text);

// What appendElement() wants, for messages: "a number from 0 to 255".
std::string elementForm(uint8_t type);

// "1,2,3". A byte entry also takes texts, "abc" for its bytes and u"abc" for its UTF-16 bytes, both without
// terminator: `"abc",0`. Nothing when the text is not a list of this type.
std::optional<Values> parseValues(uint8_t type, uint32_t tag, std::string_view list);

// For people: elements separated by blanks, values with a name as "0 (OFF)", a text of bytes also as text. Of
// a long list only the first ones.
constexpr size_t kMostShown = 64;
std::string toText(const Values& values, uint32_t tag);

Values valuesOf(const camera_metadata_ro_entry_t& entry);
android::status_t update(android::CameraMetadata& metadata, uint32_t tag, const Values& values);

// "byte[3]"
std::string typeAndCount(const Values& values);

}  // namespace qzcam
