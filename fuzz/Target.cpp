#include "Target.h"

#include <android/log.h>

#include <cstdio>
#include <cstdlib>

namespace qz::fuzz {

namespace {

// Lines are formatted as usual, since that is where a bad argument shows, and dropped.
bool dropLog() {
    __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
    __android_log_set_logger([](const __android_logger_data*, const char*) {});
    return true;
}

}  // namespace

void require(bool holds, const char* law) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", law);
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
