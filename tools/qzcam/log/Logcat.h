// SPDX-License-Identifier: Apache-2.0
// Reads the text that logcat prints, in every layout (brief, process, tag, thread, raw, time, threadtime,
// long) and with every modifier, into lines with their fields.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

// The time of a log line. Two times can be compared when they have the same kind.
struct LogTime {
    enum class Kind {
        None,       // the layout has no time
        Wall,       // date and time of day; 1972 stands for an unknown year
        Monotonic,  // since the phone was started
    };
    Kind kind = Kind::None;
    int64_t nanoseconds = 0;
    std::string text;  // the printed time
};

struct LogLine {
    size_t line = 0;  // number in the input
    LogTime time;
    int pid = -1;  // -1: the layout has none
    int tid = -1;
    char level = 0;  // V D I W E F; 0: the layout has none
    std::string tag;
    std::string message;  // printable escapes are undone
    bool isRaw = false;   // the line is only a message, if it is a log line at all
    size_t folded = 0;    // further equal messages, which the log only counts
    size_t pruned = 0;    // earlier lines that the log has lost; it prints their number
};

// Reads a log line by line. A message of several lines gives several lines in every layout.
class LogcatReader {
  public:
    using Take = std::function<void(LogLine)>;

    explicit LogcatReader(Take take) : mTake(std::move(take)) {}

    void feed(std::string_view text, size_t line);

  private:
    bool feedLong(std::string_view text, size_t line);

    Take mTake;
    std::optional<LogLine> mHead;  // head of a message in the layout "long"
};

}  // namespace qzcam
