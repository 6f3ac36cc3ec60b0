// SPDX-License-Identifier: Apache-2.0
// Log formats of rows. The compiler checks them against the arguments that they are printed with.
#pragma once

#include <cstddef>

namespace qz {

constexpr bool sameText(const char* a, const char* b) {
    while (*a == *b && *a != '\0') {
        ++a;
        ++b;
    }
    return *a == *b;
}

constexpr bool isOneOf(char c, const char* characters) {
    for (; *characters != '\0'; ++characters) {
        if (c == *characters) return true;
    }
    return false;
}

// Returns conversion `index` of a format as one letter: s, d, u, x, f; z for %zu, l for %lld. Returns '\0'
// after the last one.
constexpr char conversion(const char* format, size_t index) {
    for (const char* at = format; *at != '\0'; ++at) {
        if (*at != '%') continue;
        char kind = *++at;
        if (kind == '%') continue;
        while (isOneOf(kind, "#0123456789.-+")) kind = *++at;
        const char length = kind;
        while (isOneOf(*at, "zl")) ++at;
        if (isOneOf(length, "zl")) kind = length;
        if (index-- == 0) return kind;
        if (*at == '\0') break;
    }
    return '\0';
}

// Returns true if the format has exactly these conversions: "sud" for "%s(), failed to update iso: %u,
// return: %d".
constexpr bool converts(const char* format, const char* kinds) {
    size_t i = 0;
    for (; kinds[i] != '\0'; ++i) {
        if (conversion(format, i) != kinds[i]) return false;
    }
    return conversion(format, i) == '\0';
}

// Does the same, but accepts %u in place of %d, since both print an int.
constexpr bool convertsInts(const char* format, const char* kinds) {
    size_t i = 0;
    for (; kinds[i] != '\0'; ++i) {
        const char kind = conversion(format, i);
        if (kind != kinds[i] && !(kind == 'u' && kinds[i] == 'd')) return false;
    }
    return conversion(format, i) == '\0';
}

static_assert(converts("%s(), failed to update iso: %u, return: %d", "sud"));
static_assert(converts("100%% of %zu, %#x and %lld", "zxl") && !converts("%s %d", "s") &&
              !converts("%s", "sd"));

}  // namespace qz
