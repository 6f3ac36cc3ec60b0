// SPDX-License-Identifier: Apache-2.0
// From the bytes of a text file to UTF-8.
#pragma once

#include "input/Memory.h"

#include <cstdint>
#include <string_view>

namespace qzcam {

enum class Encoding : uint8_t { Utf8, Utf16Little, Utf16Big, Latin1 };

// By a byte order mark, by the zero bytes that UTF-16 has in plain English, or by bytes that are not UTF-8. A
// text that is UTF-8 but for some bytes, as logs may be, counts as UTF-8.
Encoding encodingOf(std::string_view bytes);

const char* nameOf(Encoding encoding);

// The text in UTF-8, without byte order mark. Halves of characters become U+FFFD.
Memory decoded(Memory bytes, Encoding encoding);

// True for what is no text in any of these: images, programs.
bool isBinary(std::string_view text);

}  // namespace qzcam
