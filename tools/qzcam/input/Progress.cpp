// SPDX-License-Identifier: Apache-2.0
#include "input/Progress.h"

#include "base/Text.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>
#include <utility>

namespace qzcam {

namespace {

constexpr auto kPatience = std::chrono::seconds(1);
constexpr auto kInterval = std::chrono::milliseconds(200);

std::string mebibytes(size_t bytes) {
    constexpr double kMebibyte = 1U << 20U;
    return fmt::format("{:.1f}", static_cast<double>(bytes) / kMebibyte);
}

}  // namespace

Progress::Progress(const std::string& what)
    : mWhat(visible(what)), mAtTerminal(isatty(STDERR_FILENO) == 1), mNext(Clock::now() + kPatience) {}

Progress::~Progress() {
    if (mShown) fmt::print(stderr, "\r\x1b[K");
}

void Progress::reached(size_t bytes, size_t total) {
    if (mAtTerminal && Clock::now() >= mNext) show(bytes, total);
}

void Progress::show(size_t bytes, size_t total) {
    mShown = true;
    mNext = Clock::now() + kInterval;
    const std::string all = total == 0 ? std::string() : fmt::format(" of {}", mebibytes(total));
    fmt::print(stderr, "\r{}: {}{} MiB\x1b[K", mWhat, mebibytes(bytes), all);
    static_cast<void>(std::fflush(stderr));
}

}  // namespace qzcam
