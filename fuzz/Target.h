// What a fuzz target is made of: one function that is handed the bytes of each execution.
#pragma once

#include "Input.h"

#include <cstddef>
#include <cstdint>

namespace qz::fuzz {

// Each target's source has its own.
void execute(Input& input);

// A law that did not hold ends the process, which counts as a finding.
void require(bool holds, const char* law);

}  // namespace qz::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
