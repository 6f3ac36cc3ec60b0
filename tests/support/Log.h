// SPDX-License-Identifier: Apache-2.0
// Captures the library's log lines during a test.
#pragma once

#include <android/log.h>

#include <algorithm>
#include <mutex>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace qz::test {

struct LogLine {
    int priority;  // ANDROID_LOG_*
    std::string tag;
    std::string text;

    bool operator==(const LogLine& other) const {
        return priority == other.priority && tag == other.tag && text == other.text;
    }
    friend std::ostream& operator<<(std::ostream& out, const LogLine& line) {
        return out << "{" << line.priority << ", " << line.tag << ", \"" << line.text << "\"}";
    }
};

// Keeps every log line of the process during its lifetime, debug lines included. Only one may exist at a
// time.
class LogCapture {
  public:
    LogCapture() {
        sCurrent = this;
        __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
        __android_log_set_logger([](const __android_logger_data* data, const char* message) {
            const std::lock_guard lock(sCurrent->mMutex);
            sCurrent->mLines.push_back({data->priority, data->tag != nullptr ? data->tag : "", message});
        });
    }
    ~LogCapture() {
        __android_log_set_logger(__android_log_stderr_logger);
        sCurrent = nullptr;
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    // Return all lines since the last take(), or those with one log tag.
    std::vector<LogLine> take() {
        const std::lock_guard lock(mMutex);
        return std::exchange(mLines, {});
    }
    std::vector<LogLine> take(const std::string& tag) {
        std::vector<LogLine> lines = take();
        lines.erase(
            std::remove_if(lines.begin(), lines.end(), [&](const LogLine& line) { return line.tag != tag; }),
            lines.end());
        return lines;
    }
    // Takes all lines and returns the tags of the errors.
    std::vector<std::string> takeErrors() {
        std::vector<std::string> tags;
        for (const LogLine& line : take()) {
            if (line.priority == ANDROID_LOG_ERROR) tags.push_back(line.tag);
        }
        return tags;
    }

  private:
    static inline LogCapture* sCurrent = nullptr;
    std::mutex mMutex;
    std::vector<LogLine> mLines;
};

}  // namespace qz::test
