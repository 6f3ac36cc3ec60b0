// SPDX-License-Identifier: Apache-2.0
// Fits texts to the width of a terminal, and styles them.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// Returns the number of columns, or 80 if the file is not a terminal.
size_t terminalWidth(std::FILE* file);

// Returns the text in a style, or the text itself without colour or style. A style is the number of an escape
// sequence: "1" is bold, "2" dim, "31" red.
std::string styled(bool colour, const char* style, const std::string& text);

// Breaks a visible text into lines of at most `width` columns, at blanks if possible. Further lines begin
// with `indent` blanks.
std::string wrapped(std::string_view text, size_t width, size_t indent);

// Does the same with pieces of text, two blanks apart. A piece that does not fit begins on the next line.
std::string wrapped(const std::vector<std::string>& pieces, size_t width, size_t indent);

}  // namespace qzcam
