// SPDX-License-Identifier: Apache-2.0
#include "cli/Cli.h"

#include <android/log.h>

#include <cstdio>
#include <exception>
#include <new>

namespace {

// The library logs a line while it is loaded, before the program can capture it. Of the program's own code
// only this section runs before that; sanitizers are not ready at that time.
__attribute__((no_sanitize("address", "thread", "undefined"))) void beSilentWhileLoading(int, char**,
                                                                                         char**) {
    __android_log_set_logger([](const __android_logger_data*, const char*) {});
}

__attribute__((section(".preinit_array"), used)) void (*const kFirst)(int, char**,
                                                                      char**) = beSilentWhileLoading;

}  // namespace

int main(int argc, char** argv) {
    try {
        return qzcam::runTool(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("qzcam: not enough memory\n", stderr);
        return qzcam::kBadInput;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "qzcam: %s\n", error.what());
        return qzcam::kBadInput;
    }
}
