// SPDX-License-Identifier: Apache-2.0
// The Android log. LOG writes a line of a lines.inc. It is a macro, so that the compiler checks the arguments
// against the format.
#pragma once

#include "rows/Line.h"

#define LOG(line, ...) \
    static_cast<void>(__android_log_print(line::priority, line::logTag, line::format, __VA_ARGS__))
#define LOG_TEXT(line) \
    static_cast<void>(__android_log_print(line::priority, line::logTag, line::format))  // no arguments

namespace qz {

// Writes a line whose format comes from a row. The compiler has checked it there.
template <typename... Arguments>
void logText(int priority, const char* logTag, const char* format, Arguments... arguments) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    static_cast<void>(__android_log_print(priority, logTag, format, arguments...));
#pragma GCC diagnostic pop
}

}  // namespace qz
