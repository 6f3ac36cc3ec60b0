// SPDX-License-Identifier: Apache-2.0
// Removes changes that a text got on its way: line ends of other systems, blanks of web pages, quotation
// marks of mails.
#pragma once

#include "input/Memory.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qzcam {

// A session is used without these changes. A report was written by a program, so any deviation was added
// later.
enum class TextKind : uint8_t { Report, Session };

// Changes the text in place. Line N stays line N, and a second call changes nothing. Returns the removed
// changes: "quotation marks '>'".
std::vector<std::string> normalise(Memory& text, TextKind kind);

}  // namespace qzcam
