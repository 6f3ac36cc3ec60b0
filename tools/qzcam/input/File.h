// SPDX-License-Identifier: Apache-2.0
// The bytes of a file, a pipe or a terminal.
#pragma once

#include "input/Memory.h"

#include <cstddef>
#include <string>

namespace qzcam {

// Files may have no end, packed files may unpack to far more than anybody has, and pipes may never be closed.
struct InputLimits {
    size_t bytes = size_t{1} << 30U;         // limit of a file or pipe, as it is and unpacked
    size_t deviceBytes = size_t{64} << 20U;  // limit of /dev/zero and its like
    int seconds = 60;                        // without a byte, elsewhere than at a terminal
};

// Reads up to the end; "-" is standard input. Otherwise the text says what is wrong.
std::string readBytes(Memory& bytes, const std::string& path, const InputLimits& limits);

}  // namespace qzcam
