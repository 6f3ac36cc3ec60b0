// SPDX-License-Identifier: Apache-2.0
// Runs each case under the emulator, with marks before and after the counted part: first an empty part, for
// the cost of the marks, then floor and library of each case. Prints the addresses of the libraries, then a
// line for each case: name, has a mark, may not allocate, allocations of floor and library.
#include <android/log.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <vector>

#include "Allocations.h"
#include "Cases.h"
#include "Mark.h"

namespace {

using qz::bench::Case;

void mark() { syscall(SYS_getppid, qz::bench::kMark); }

void count(const std::function<void()>& side) {
    mark();
    side();
    mark();
}

// Results alternate: after two passes the state of a side no longer changes.
void settleAndCount(const std::function<void()>& side) {
    for (int i = 0; i < 2; ++i) side();
    count(side);
}

size_t allocationsOf(const std::function<void()>& side) {
    const size_t before = qz::bench::allocations();
    side();
    return qz::bench::allocations() - before;
}

void measure(const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        each.prepare();
        settleAndCount(each.floor);
        settleAndCount(each.library);
        std::printf("%s|%d|%d|%zu|%zu\n", each.name.c_str(), each.marked, each.allocatesNothing,
                    allocationsOf(each.floor), allocationsOf(each.library));
    }
}

}  // namespace

// Usage: cost [--short]. --short leaves out the growing cases.
int main(int argc, char** argv) {
    __android_log_set_logger([](const __android_logger_data*, const char*) {});
    std::cout << std::ifstream("/proc/self/maps").rdbuf() << std::endl;
    settleAndCount([] {});
    measure(qz::bench::markedCases());
    const bool all = argc < 2 || strcmp(argv[1], "--short") != 0;
    if (all) measure(qz::bench::growingCases());
}
