// SPDX-License-Identifier: Apache-2.0
#include "cli/StreamedInput.h"

#include "base/Text.h"
#include "input/Lines.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iterator>
#include <string_view>

namespace qzcam {

namespace {

volatile std::sig_atomic_t sInterrupted = 0;

}  // namespace

// Unlike std::signal(), sigaction() lets Ctrl-C end a read that waits.
StreamedInput::StreamedInput() : mPipeBefore(std::signal(SIGPIPE, SIG_IGN)) {
    sInterrupted = 0;
    struct sigaction action {};
    action.sa_handler = [](int) { sInterrupted = 1; };
    sigaction(SIGINT, &action, &mInterruptBefore);
}

StreamedInput::~StreamedInput() {
    sigaction(SIGINT, &mInterruptBefore, nullptr);
    std::signal(SIGPIPE, mPipeBefore);
}

StreamedInput::Arrival StreamedInput::readMore() {
    constexpr int pause = 200;  // milliseconds
    std::array<pollfd, 2> ready{{{STDIN_FILENO, POLLIN, 0}, {STDOUT_FILENO, 0, 0}}};
    const int count = poll(ready.data(), ready.size(), pause);
    if (sInterrupted != 0) return Arrival::End;
    if (count <= 0) return Arrival::Nothing;
    if (ready[1].revents != 0) return Arrival::End;  // the reader of the output has gone
    std::array<char, 1U << 16U> chunk{};
    const ssize_t size = ::read(STDIN_FILENO, chunk.data(), chunk.size());
    if (size < 0 && errno == EAGAIN) return Arrival::Nothing;
    if (size <= 0) return Arrival::End;
    mText.append(chunk.data(), static_cast<size_t>(size));
    return Arrival::Text;
}

void StreamedInput::begin() {
    constexpr size_t enough = 100;  // bytes
    auto arrival = Arrival::Text;
    while (mText.size() < enough && arrival != Arrival::End) {
        arrival = readMore();
        if (arrival == Arrival::Nothing && !mText.empty()) return;
    }
}

bool StreamedInput::mustBeReadWhole() const {
    constexpr std::string_view beginnings[] = {"PK\x03\x04", "\x1f\x8b", "\xff\xfe", "\xfe\xff", "====="};
    const auto begins = [this](std::string_view beginning) { return startsWith(mText, beginning); };
    if (std::any_of(std::begin(beginnings), std::end(beginnings), begins)) return true;
    Lines lines(mText);
    std::string_view line;
    while (lines.next(line) && trimmed(line).empty()) {
    }
    return isDumpHeading(line);
}

}  // namespace qzcam
