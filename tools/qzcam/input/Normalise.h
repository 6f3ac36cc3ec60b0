// SPDX-License-Identifier: Apache-2.0
// Takes away what a text has caught on its way: line ends of other systems, blanks of web pages, marks of
// quotations.
#pragma once

#include "input/Memory.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qzcam {

// A session says what it means. A report was written by a program, and what differs from that has come later.
enum class TextKind : uint8_t { Report, Session };

// Changes the text in its place. Line N stays line N, and a text that was normalised stays as it is. Returns
// what it has undone: "quotation marks '>'".
std::vector<std::string> normalise(Memory& text, TextKind kind);

}  // namespace qzcam
