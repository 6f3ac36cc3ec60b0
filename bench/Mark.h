// SPDX-License-Identifier: Apache-2.0
// A mark of the measured program for the emulator: a system call with this first argument.
#pragma once

#include <cstdint>

namespace qz::bench {

constexpr uint32_t kMark = 0x627a6d6b;

}  // namespace qz::bench
