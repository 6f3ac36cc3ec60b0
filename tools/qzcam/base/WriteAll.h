// SPDX-License-Identifier: Apache-2.0
// Writes or reads a whole text at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

namespace qzcam {

// Prints a message and returns false if the text cannot be written. A closed pipe (`| head`) is not an error.
bool writeAll(std::FILE* out, const std::string& text);

// Returns the text that was written to a temporary file, or its beginning.
std::string contentOf(std::FILE* file, size_t most = SIZE_MAX);

// Prints the message.
void cannotWrite(int error);

}  // namespace qzcam
