// SPDX-License-Identifier: Apache-2.0
#include "Target.h"

#include <android/log.h>

#include <cstdio>
#include <cstdlib>

namespace qz::fuzz {

namespace {

// Lines are formatted as usual, since formatting reveals a bad argument, and then dropped.
bool dropLog() {
    __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
    __android_log_set_logger([](const __android_logger_data*, const char*) {});
    return true;
}

}  // namespace

void require(bool holds, const char* invariant) {
    if (holds) return;
    std::fprintf(stderr, "violated invariant: %s\n", invariant);
    std::abort();
}

}  // namespace qz::fuzz

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool quiet = qz::fuzz::dropLog();
    static_cast<void>(quiet);
    qz::fuzz::Input input(data, size);
    qz::fuzz::execute(input);
    return 0;
}
