// SPDX-License-Identifier: Apache-2.0
// A fuzz target: one function that receives the bytes of each execution.
#pragma once

#include "Input.h"

#include <cstddef>
#include <cstdint>

namespace qz::fuzz {

// Each target's source defines it.
void execute(Input& input);

// A violated invariant aborts, which counts as a finding.
void require(bool holds, const char* invariant);

}  // namespace qz::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
