// SPDX-License-Identifier: Apache-2.0
// Converts the bytes of a text file to UTF-8.
#pragma once

#include "input/Memory.h"

#include <cstdint>
#include <string_view>

namespace qzcam {

enum class Encoding : uint8_t { Utf8, Utf16Little, Utf16Big, Latin1 };

// Finds the encoding by a byte order mark, by the zero bytes of plain English in UTF-16, or by bytes that are
// not UTF-8. A text with only a few bytes that are not UTF-8, such as a log, counts as UTF-8.
Encoding encodingOf(std::string_view bytes);

const char* nameOf(Encoding encoding);

// Returns the text in UTF-8, without byte order mark. Halves of characters become U+FFFD.
Memory decoded(Memory bytes, Encoding encoding);

// Returns true for bytes that are not text in any of these encodings: images, programs.
bool isBinary(std::string_view text);

}  // namespace qzcam
