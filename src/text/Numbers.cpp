// SPDX-License-Identifier: Apache-2.0
#include "text/Numbers.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace qz {

namespace {

constexpr int64_t kMin = std::numeric_limits<int32_t>::min();
constexpr int64_t kMax = std::numeric_limits<int32_t>::max();

constexpr uint32_t kDigits = 10;

// Returns a value of 10 or more for a non-digit.
uint32_t digitOf(char c) { return static_cast<uint32_t>(c) - '0'; }

// Returns true for the letter of an exponent or of 0x.
bool isMark(char c) { return (c | 0x20) == 'e' || (c | 0x20) == 'x'; }

// Reads the usual numbers: a few digits, perhaps a decimal point and a few more digits, and no exponent. The
// digits as an integer and the power of ten are exact in a T, so that their quotient is the nearest T. The
// standard functions give the same result with ten times as many instructions, and a request may hold a dozen
// such numbers.
template <typename T>
bool parseShort(const char* text, const char** end, T* number) {
    constexpr uint32_t most = 1 << 24;  // float represents every integer up to this one
    uint32_t whole = 0;
    uint32_t scale = 1;
    const char* at = text;
    for (; digitOf(*at) < kDigits && whole < most; ++at) whole = 10 * whole + digitOf(*at);
    if (at == text) return false;
    if (*at == '.') {
        for (++at; digitOf(*at) < kDigits && whole < most && scale < most; ++at) {
            whole = 10 * whole + digitOf(*at);
            scale *= 10;
        }
    }
    if (whole >= most || scale >= most || isMark(*at)) return false;
    *number = static_cast<T>(whole) / static_cast<T>(scale);
    *end = at;
    return true;
}

int32_t lowWord(int64_t value) { return static_cast<int32_t>(static_cast<uint32_t>(value)); }

}  // namespace

int32_t parseInt32(const char* text, const char** end) {
    char* stop = nullptr;
    const int64_t number = std::strtoll(text, &stop, 10);
    *end = stop;
    errno = number < kMin || number > kMax ? ERANGE : 0;
    return static_cast<int32_t>(std::clamp(number, kMin, kMax));
}

int32_t parseInt32(const char* text) {
    const char* end = nullptr;
    return parseInt32(text, &end);
}

float parseFloat(const char* text, const char** end) {
    errno = 0;
    float number = 0;
    if (parseShort(text, end, &number)) return number;
    char* stop = nullptr;
    number = std::strtof(text, &stop);
    *end = stop;
    return number;
}

double parseDouble(const char* text, const char** end) {
    double number = 0;
    if (parseShort(text, end, &number)) return number;
    char* stop = nullptr;
    number = std::strtod(text, &stop);
    *end = stop;
    return number;
}

uint32_t parseUint32(const char* text) {
    constexpr int64_t max = std::numeric_limits<uint32_t>::max();
    const int64_t number = std::strtoll(text, nullptr, 0);
    return number < -max || number > max ? std::numeric_limits<uint32_t>::max()
                                         : static_cast<uint32_t>(number);
}

int32_t wrapMultiply(int32_t a, int32_t b) { return lowWord(int64_t{a} * b); }

int32_t wrapAdd(int32_t a, int32_t b) { return lowWord(int64_t{a} + b); }

int32_t wrapDivide(int32_t a, int32_t b) { return lowWord(int64_t{a} / b); }

int32_t truncateToInt32(double value) {
    if (std::isnan(value)) return 0;
    return static_cast<int32_t>(std::clamp(value, static_cast<double>(kMin), static_cast<double>(kMax)));
}

}  // namespace qz
