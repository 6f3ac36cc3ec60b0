// SPDX-License-Identifier: Apache-2.0
#include "base/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <limits>

namespace qzcam {

namespace {

constexpr size_t kMostProblems = 20;
constexpr size_t kExcerpt = 60;

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Valid UTF-8 that must not reach a terminal: non-characters, and characters that change the display of
// others.
bool isHidden(uint32_t code) {
    constexpr std::array<std::pair<uint32_t, uint32_t>, 7> kHidden{
        {{0xd800, 0xdfff},    // surrogates
         {0x200b, 0x200f},    // zero width, direction
         {0x2028, 0x202e},    // line ends, direction
         {0x2060, 0x206f},    // direction
         {0xfeff, 0xfeff},    // byte order mark
         {0xfff9, 0xfffb},    // annotations
         {0xfffe, 0xffff}}};  // no characters
    return std::any_of(kHidden.begin(), kHidden.end(),
                       [code](const auto& range) { return code >= range.first && code <= range.second; });
}

// Returns the number of bytes of the text's first UTF-8 character, or 0 if it is invalid or not printable.
size_t printable(std::string_view text) {
    const auto at = [&](size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    const unsigned first = at(0);
    if (first < 0x80) return first >= ' ' && first <= '~' ? 1 : 0;
    const size_t size = first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
    if (first < 0xc2 || first > 0xf4) return 0;
    uint32_t code = first & (0x7fU >> size);
    for (size_t i = 1; i < size; ++i) {
        if ((at(i) & 0xc0U) != 0x80) return 0;
        code = code << 6U | (at(i) & 0x3fU);
    }
    constexpr std::array<uint32_t, 5> kLowest{0, 0, 0xa0, 0x800, 0x10000};  // below: controls, overlong forms
    return code >= kLowest[size] && code <= 0x10ffff && !isHidden(code) ? size : 0;
}

// Moves the first character of the text to the end of `shown`.
void moveVisible(std::string_view& text, std::string& shown) {
    const size_t size = printable(text);
    if (size > 0) {
        shown.append(text.substr(0, size));
    } else {
        shown += fmt::format("\\x{:02x}", static_cast<unsigned char>(text.front()));
    }
    text.remove_prefix(std::max<size_t>(size, 1));
}

}  // namespace

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

bool startsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::optional<std::string_view> takeUntil(std::string_view& text, std::string_view end) {
    const size_t stop = text.find(end);
    if (stop == std::string_view::npos) return std::nullopt;
    const std::string_view taken = text.substr(0, stop);
    text.remove_prefix(stop + end.size());
    return taken;
}

std::string_view takeWord(std::string_view& text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    const auto* const end = std::find_if(text.begin(), text.end(), isBlank);
    const std::string_view word = text.substr(0, static_cast<size_t>(end - text.begin()));
    text.remove_prefix(word.size());
    return word;
}

std::string counted(size_t count, std::string_view what) {
    return counted(count, what, fmt::format("{}s", what));
}

std::string counted(size_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

std::string lowered(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

std::string visible(std::string_view text) {
    std::string shown;
    shown.reserve(text.size());
    while (!text.empty()) moveVisible(text, shown);
    return shown;
}

std::string cut(std::string_view text, size_t most) {
    std::string shown;
    while (!text.empty() && shown.size() < most) moveVisible(text, shown);
    return text.empty() ? shown : shown + "...";
}

std::string excerpt(std::string_view text) { return fmt::format("'{}'", cut(text, kExcerpt)); }

void complain(std::string_view text) { fmt::print(stderr, "{}\n", visible(text)); }

std::optional<int64_t> parseInteger(std::string_view text) {
    const bool negative = startsWith(text, "-");
    if (negative) text.remove_prefix(1);
    const bool hex = startsWith(text, "0x") || startsWith(text, "0X");
    if (hex) text.remove_prefix(2);
    uint64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, hex ? 16 : 10);
    if (error != std::errc{} || stop != end) return std::nullopt;
    // The lowest number has no positive counterpart.
    constexpr auto kHighest = static_cast<uint64_t>(std::numeric_limits<int64_t>::max());
    if (value > kHighest + (negative ? 1U : 0U)) return std::nullopt;
    return static_cast<int64_t>(negative ? ~value + 1 : value);
}

std::optional<Size> parseSize(std::string_view text) {
    const size_t cross = text.find('x', 1);
    if (cross == std::string_view::npos) return std::nullopt;
    const auto width = parseInteger(text.substr(0, cross));
    const auto height = parseInteger(text.substr(cross + 1));
    const auto fits = [](std::optional<int64_t> n) { return n && *n >= 0 && *n <= INT32_MAX; };
    if (!fits(width) || !fits(height)) return std::nullopt;
    return Size{static_cast<int32_t>(*width), static_cast<int32_t>(*height)};
}

std::optional<std::string> takeQuoted(std::string_view& text) {
    std::string inner;
    for (size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '"') {
            text.remove_prefix(i + 1);
            return inner;
        }
        const bool escape =
            text[i] == '\\' && i + 1 < text.size() && (text[i + 1] == '"' || text[i + 1] == '\\');
        if (escape) ++i;
        inner += text[i];
    }
    return std::nullopt;
}

std::string replaced(std::string_view text, Replacements replacements) {
    std::string result;
    result.reserve(text.size() + text.size() / 64);
    for (const char c : text) {
        const auto* const found = std::find_if(replacements.begin(), replacements.end(),
                                               [c](const auto& each) { return each.first == c; });
        if (found == replacements.end()) {
            result += c;
        } else {
            result += found->second;
        }
    }
    return result;
}

bool Lines::next(std::string_view& line) {
    if (mRest.empty()) return false;
    const size_t end = mRest.find('\n');
    line = mRest.substr(0, end);
    mRest.remove_prefix(end == std::string_view::npos ? mRest.size() : end + 1);
    if (endsWith(line, "\r")) line.remove_suffix(1);
    ++mNumber;
    return true;
}

void Problems::add(size_t line, std::string_view what) {
    if (++mCount > kMostProblems) return;
    mFirst.push_back(visible(line == 0 ? fmt::format("{}: {}", mFile, what)
                                       : fmt::format("{}:{}: {}", mFile, line, what)));
}

}  // namespace qzcam
