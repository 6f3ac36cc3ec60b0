// SPDX-License-Identifier: Apache-2.0
// Converts the elements of one metadata entry, of any type, between text and metadata.
#pragma once

#include <camera/CameraMetadata.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct Values {
    uint8_t type = TYPE_BYTE;
    size_t count = 0;
    std::vector<uint8_t> bytes;  // count elements in the layout of a metadata buffer

    bool operator==(const Values& other) const {
        return type == other.type && count == other.count && bytes == other.bytes;
    }
    bool operator!=(const Values& other) const { return !(*this == other); }
};

// A word for a number that no table contains. Its element has all bits set.
struct UnknownWord {
    size_t index = 0;  // element
    std::string word;
};

// Appends the element in the text: a number, "n/d" for a rational, or the name of one of the standard tag's
// values. Returns false and appends nothing if the text is not an element of this type.
bool appendElement(Values& values, uint32_t tag, std::string_view text);

// Returns the element type with this name, and the name of a type.
std::optional<uint8_t> typeNamed(std::string_view name);
const char* typeName(uint8_t type);

// Returns one element. T is the C++ type of the entry's element type.
template <typename T>
T elementAt(const Values& values, size_t index) {
    T element{};
    std::memcpy(&element, values.bytes.data() + index * sizeof(element), sizeof(element));
    return element;
}

// Calls `use` with a zero of the C++ type of an element type below NUM_TYPES.
template <typename Use>
auto withElementType(uint8_t type, Use use) {
    switch (type) {
        case TYPE_BYTE:
            return use(uint8_t{});
        case TYPE_INT32:
            return use(int32_t{});
        case TYPE_FLOAT:
            return use(float{});
        case TYPE_INT64:
            return use(int64_t{});
        case TYPE_DOUBLE:
            return use(double{});
        default:
            return use(camera_metadata_rational_t{});
    }
}

// Returns an element of type byte, int32 or int64; nothing for another type.
std::optional<int64_t> integerAt(const Values& values, size_t index);

// Returns an element as a number, a rational as "n/d".
std::string elementText(const Values& values, size_t index);

// Describes a valid element for messages: "a number from 0 to 255".
std::string elementForm(uint8_t type);

// Parses a list, "1,2,3". A byte entry also accepts texts, "abc" for its bytes and u"abc" for its UTF-16
// bytes, both without terminator: `"abc",0`. Returns nothing if the text is not a list of this type.
std::optional<Values> parseValues(uint8_t type, uint32_t tag, std::string_view list);

// Appends an element with all bits set.
void appendPlaceholder(Values& values);

// Prints elements for people: separated by blanks, a named value as "0 (OFF)", an unknown word as "? (WORD)",
// a text of bytes also as text, and only the first elements of a long list.
constexpr size_t kMostShown = 64;
std::string toText(const Values& values, uint32_t tag, const std::vector<UnknownWord>& words = {});

Values valuesOf(const camera_metadata_ro_entry_t& entry);
android::status_t update(android::CameraMetadata& metadata, uint32_t tag, const Values& values);

// "byte[3]"
std::string typeAndCount(const Values& values);

}  // namespace qzcam
