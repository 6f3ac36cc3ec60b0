// SPDX-License-Identifier: Apache-2.0
#include "log/LogcatFields.h"

#include "base/Text.h"

#include <charconv>

namespace qzcam {

namespace {

constexpr int64_t kSecond = 1'000'000'000;
constexpr int64_t kDay = 86'400;
constexpr int64_t kFirstEpoch =
    100'000'000;  // seconds: a larger number counts from 1970, a smaller one from the phone's start
constexpr int kUnknownYear = 1972;  // a leap year

// Returns the days from 1970-01-01 to a date of the Gregorian calendar.
int64_t daysTo(int year, int month, int day) {
    const int64_t y = month <= 2 ? year - 1 : year;
    const int64_t era = y / 400;
    const int64_t yearOfEra = y - era * 400;
    const int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146'097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719'468;
}

std::optional<int64_t> parseDigits(std::string_view text) {
    int64_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (text.empty() || error != std::errc{} || stop != end) return std::nullopt;
    return number;
}

// Returns the value of up to nine digits. A log has millions of times, and this is faster than a general
// parser.
int valueOf(std::string_view digits) {
    int number = 0;
    for (const char digit : digits) number = number * 10 + (digit - '0');
    return number;
}

// Removes a number of exactly this many digits.
std::optional<int> takeNumber(Scan& scan, size_t digits) {
    Scan ahead = scan;
    const std::string_view text = ahead.takeDigits();
    if (text.size() != digits) return std::nullopt;
    scan = ahead;
    return valueOf(text);
}

// ".345", ".345678" or ".345678901", as nanoseconds.
std::optional<int64_t> takeFraction(Scan& scan) {
    if (!scan.take('.')) return std::nullopt;
    const std::string_view digits = scan.takeDigits();
    if (digits.size() < 3 || digits.size() > 9) return std::nullopt;
    int64_t fraction = valueOf(digits);
    for (size_t i = digits.size(); i < 9; ++i) fraction *= 10;
    return fraction;
}

// " +0100", as seconds.
int64_t takeZone(Scan& scan) {
    Scan ahead = scan;
    if (!ahead.take(' ')) return 0;
    const char sign = ahead.front();
    if ((sign != '+' && sign != '-') || !ahead.take(sign)) return 0;
    const auto zone = takeNumber(ahead, 4);
    if (!zone) return 0;
    scan = ahead;
    const int64_t seconds = *zone / 100 * 3600 + *zone % 100 * 60;
    return sign == '-' ? -seconds : seconds;
}

// "03-05" or "2024-03-05", as days.
std::optional<int64_t> takeDate(Scan& scan) {
    auto year = takeNumber(scan, 4);
    if (year && !scan.take('-')) return std::nullopt;
    const auto month = takeNumber(scan, 2);
    if (!month || !scan.take('-')) return std::nullopt;
    const auto day = takeNumber(scan, 2);
    if (!day || *month < 1 || *month > 12 || *day < 1 || *day > 31) return std::nullopt;
    return daysTo(year.value_or(kUnknownYear), *month, *day);
}

std::optional<int64_t> takeTimeOfDay(Scan& scan) {
    const auto hour = takeNumber(scan, 2);
    if (!hour || !scan.take(':')) return std::nullopt;
    const auto minute = takeNumber(scan, 2);
    if (!minute || !scan.take(':')) return std::nullopt;
    const auto second = takeNumber(scan, 2);
    if (!second || *hour > 23 || *minute > 59 || *second > 60) return std::nullopt;
    return *hour * 3600 + *minute * 60 + *second;
}

std::optional<LogTime> takeWall(Scan& scan) {
    const auto days = takeDate(scan);
    if (!days || !scan.take(' ')) return std::nullopt;
    const auto seconds = takeTimeOfDay(scan);
    if (!seconds) return std::nullopt;
    const auto fraction = takeFraction(scan);
    if (!fraction) return std::nullopt;
    const int64_t zone = takeZone(scan);
    return LogTime{LogTime::Kind::Wall, (*days * kDay + *seconds - zone) * kSecond + *fraction, {}};
}

// Returns seconds since 1970, or since the phone was started.
std::optional<LogTime> takeSeconds(Scan& scan) {
    scan.skipBlanks();
    const auto seconds = parseDigits(scan.takeDigits());
    if (!seconds || *seconds > INT64_MAX / kSecond - 1) return std::nullopt;
    const auto fraction = takeFraction(scan);
    if (!fraction) return std::nullopt;
    const auto kind = *seconds >= kFirstEpoch ? LogTime::Kind::Wall : LogTime::Kind::Monotonic;
    return LogTime{kind, *seconds * kSecond + *fraction, {}};
}

using Read = std::optional<LogTime> (*)(Scan&);

bool isOctal(char c) { return c >= '0' && c <= '7'; }

// Reads a numeric escape after its backslash: "\x1B", or one to three octal digits.
std::optional<char> takeNumericEscape(Scan& scan) {
    int base = 8;
    std::string_view digits;
    if (scan.take('x')) {
        base = 16;
        digits = scan.rest().substr(0, 2);
    } else {
        size_t length = 0;
        while (length < 3 && length < scan.rest().size() && isOctal(scan.rest()[length])) ++length;
        digits = scan.rest().substr(0, length);
    }
    int byte = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, byte, base);
    if (digits.empty() || error != std::errc{} || stop != end || byte > 255) return std::nullopt;
    for (size_t i = 0; i < digits.size(); ++i) scan.take(scan.front());
    return static_cast<char>(byte);
}

std::optional<char> takeEscape(Scan& scan) {
    constexpr std::string_view letters = "abvfr\\";
    constexpr std::string_view bytes = "\a\b\v\f\r\\";
    const size_t found = letters.find(scan.front());
    if (scan.rest().empty() || found == std::string_view::npos) return takeNumericEscape(scan);
    scan.take(scan.front());
    return bytes[found];
}

}  // namespace

std::optional<int> parseId(std::string_view text) {
    const auto number = parseDigits(text);
    return number && *number <= INT32_MAX ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

std::optional<LogTime> takeTime(Scan& scan) {
    for (const Read read : {Read{takeWall}, Read{takeSeconds}}) {
        Scan ahead = scan;
        auto time = read(ahead);
        if (!time) continue;
        const size_t length = scan.rest().size() - ahead.rest().size();
        time->text = trimmed(scan.rest().substr(0, length));
        scan = ahead;
        return time;
    }
    return std::nullopt;
}

std::string withoutColors(std::string_view text) {
    std::string plain;
    for (size_t at = 0; at < text.size(); ++at) {
        if (text.substr(at, 2) == "\x1b[") {
            size_t end = at + 2;
            while (end < text.size() && (text[end] == ';' || isDigit(text[end]))) ++end;
            if (end < text.size() && text[end] == 'm') {
                at = end;
                continue;
            }
        }
        plain += text[at];
    }
    return plain;
}

std::string withoutEscapes(std::string_view text) {
    if (text.find('\\') == std::string_view::npos) return std::string(text);
    std::string plain;
    Scan scan(text);
    while (!scan.rest().empty()) {
        if (!scan.take('\\')) {
            plain += scan.front();
            scan.take(scan.front());
            continue;
        }
        const auto byte = takeEscape(scan);
        if (!byte) return std::string(text);
        plain += *byte;
    }
    return plain;
}

}  // namespace qzcam
