// SPDX-License-Identifier: Apache-2.0
// Parses single lines of a camera dump: entries, vendor tags, titles.
#pragma once

#include "device/Report.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace qzcam {

// Removes a decimal number from the start of the text and returns it.
std::optional<uint64_t> takeDecimal(std::string_view& text);

// Returns the decimal number that follows the first `start`, perhaps after blanks.
std::optional<uint64_t> numberAfter(std::string_view text, std::string_view start);

// Parses "name (tag): type[count]" with a hexadecimal tag.
std::optional<ArrayEntry> parseEntry(std::string_view body);

// Parses "0x80000000 (iso) with type 0 (byte) defined in section com.ambrix.capture.metadata". `typeName` is
// the word in brackets.
struct VendorTagLine {
    VendorTag tag;
    uint64_t type = 0;
    std::string_view typeName;
};
std::optional<VendorTagLine> parseVendorTag(std::string_view body);

// Parses `Device 4 maps to "8"`.
std::optional<ApiDevice> parseApiDevice(std::string_view body);

// Returns the title of "== Title: ==".
std::string_view titleOf(std::string_view body);

// Finds the camera in a title, in the spellings of old and new platforms: "Camera HAL device
// device@3.4/legacy/0 (v3.4) static information", "Camera device 0 static information", "Camera 0
// information".
struct CameraTitle {
    std::string_view name;
    std::string_view version;  // "3.4", or empty
};
std::optional<CameraTitle> cameraOfTitle(std::string_view title);

// Returns the name after the last slash.
std::string_view idOf(std::string_view name);

// Returns true for a text of printable ASCII that is not empty.
bool isPlain(std::string_view text);

}  // namespace qzcam
