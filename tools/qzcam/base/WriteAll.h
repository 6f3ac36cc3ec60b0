// SPDX-License-Identifier: Apache-2.0
// Writes a whole text at once.
#pragma once

#include <cstdio>
#include <string>

namespace qzcam {

// Prints a message and returns false if the text cannot be written. A closed pipe (`| head`) is not an error.
bool writeAll(std::FILE* out, const std::string& text);

// Returns the message.
void cannotWrite(int error);

}  // namespace qzcam
