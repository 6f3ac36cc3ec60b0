// SPDX-License-Identifier: Apache-2.0
// Reads the bytes of a file, a pipe or a terminal.
#pragma once

#include "input/Memory.h"

#include <cstddef>
#include <string>

namespace qzcam {

// Limits for files without an end, packed files that unpack to far too much, and pipes that are never closed.
struct InputLimits {
    size_t bytes = size_t{1} << 30U;         // limit of a file or pipe, packed and unpacked
    size_t deviceBytes = size_t{64} << 20U;  // limit of a device such as /dev/zero
    int seconds = 60;                        // longest time without a byte, except at a terminal
};

// Reads up to the end; "-" is standard input. Returns an empty text, or a description of the problem.
std::string readBytes(Memory& bytes, const std::string& path, const InputLimits& limits);

}  // namespace qzcam
