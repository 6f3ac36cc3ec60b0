// SPDX-License-Identifier: Apache-2.0
// Compares log lines with the formats that they were printed with.
#pragma once

#include <cstring>
#include <string>

namespace qz::test {

// Returns true if the format can produce the text.
inline bool isPrintedAs(const char* format, const char* text) {
    for (; *format != '\0' && *format != '%'; ++format, ++text) {
        if (*format != *text) return false;
    }
    if (*format == '\0') return *text == '\0';
    ++format;
    format += strspn(format, "#0123456789.*zl");
    const bool isText = *format == 's' || *format == 'c';
    for (;; ++text) {
        if (isPrintedAs(format + 1, text)) return true;
        if (*text == '\0' || (!isText && strchr("-+0123456789abcdefx.", *text) == nullptr)) return false;
    }
}

inline bool isPrintedAs(const char* format, const std::string& text) {
    return isPrintedAs(format, text.c_str());
}

}  // namespace qz::test
