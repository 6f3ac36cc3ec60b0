#include "core/Numbers.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace qz {

namespace {

constexpr int64_t kMin = std::numeric_limits<int32_t>::min();
constexpr int64_t kMax = std::numeric_limits<int32_t>::max();

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

int32_t lowWord(int64_t value) { return static_cast<int32_t>(static_cast<uint32_t>(value)); }

}  // namespace

int32_t parseInt32(const char* text, const char** end) {
    const char* at = text;
    while (isSpace(*at)) ++at;
    const bool negative = *at == '-';
    if (negative || *at == '+') ++at;
    const char* const digits = at;
    int64_t number = 0;  // stops growing far outside int32
    for (; isDigit(*at); ++at) {
        if (number <= kMax) number = 10 * number + (*at - '0');
    }
    if (negative) number = -number;
    *end = at == digits ? text : at;
    errno = number < kMin || number > kMax ? ERANGE : 0;
    return static_cast<int32_t>(std::clamp(number, kMin, kMax));
}

int32_t parseInt32(const char* text) {
    const char* end = nullptr;
    return parseInt32(text, &end);
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
