// SPDX-License-Identifier: Apache-2.0
#include "input/LogPrefix.h"

#include "base/Text.h"
#include "input/Lines.h"

#include <algorithm>

namespace qzcam {

namespace {

constexpr size_t kNowhere = std::string_view::npos;

bool isLevel(char c) { return std::string_view("VDIWEFA").find(c) != kNowhere; }

// Removes characters of the form from the text. '0' in the form stands for any digit.
bool takeForm(std::string_view& text, std::string_view form) {
    if (text.size() < form.size()) return false;
    for (size_t i = 0; i < form.size(); ++i) {
        if (form[i] == '0' ? !isDigit(text[i]) : text[i] != form[i]) return false;
    }
    text.remove_prefix(form.size());
    return true;
}

size_t takeDigits(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
    const auto count = static_cast<size_t>(end - text.begin());
    text.remove_prefix(count);
    return count;
}

void takeBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
}

// "03-05 10:11:12.345", with a year if need be, or seconds: "8123.456"
bool takeTime(std::string_view& text) {
    takeForm(text, "0000-");
    const bool isWall = takeForm(text, "00-00 00:00:00.");
    if (!isWall && (takeDigits(text) == 0 || !takeForm(text, "."))) return false;
    return takeDigits(text) >= 3;
}

// Reads a tag up to `end`, and the message after it; one blank before the message belongs to the prefix.
std::optional<Logged> tagAndMessage(std::string_view text, std::string_view end) {
    const size_t at = text.find(end);
    if (at == kNowhere) return std::nullopt;
    std::string_view message = text.substr(at + end.size());
    if (startsWith(message, " ")) message.remove_prefix(1);
    const std::string_view tag = text.substr(0, at);
    return Logged{trimmed(tag.substr(0, tag.find('('))), message};
}

// Reads "D/Tag(  812): x" and "D/Tag: x" after the level and its slash.
std::optional<Logged> briefLine(std::string_view text) {
    const size_t parenthesis = text.find('(');
    const size_t colon = text.find(": ");
    if (parenthesis < colon) return tagAndMessage(text, "):");
    if (colon == kNowhere && !endsWith(text, ":")) return std::nullopt;
    return tagAndMessage(text, ":");
}

// Reads "D(  812) x  (Tag)" and "D(  812: 2207) x" after the level.
std::optional<Logged> processLine(std::string_view text) {
    takeForm(text, "(");
    takeBlanks(text);
    if (takeDigits(text) == 0 || text.empty() || (text[0] != ')' && text[0] != ':')) return std::nullopt;
    const size_t end = text.find(") ");
    if (end == kNowhere) return std::nullopt;
    text.remove_prefix(end + 2);
    const size_t tag = endsWith(text, ")") ? text.rfind("  (") : kNowhere;
    if (tag == kNowhere) return Logged{{}, text};
    return Logged{text.substr(tag + 3, text.size() - tag - 4), text.substr(0, tag)};
}

std::optional<Logged> untimed(std::string_view line) {
    if (line.size() < 3 || !isLevel(line[0])) return std::nullopt;
    if (line[1] == '/') return briefLine(line.substr(2));
    return line[1] == '(' ? processLine(line.substr(1)) : std::nullopt;
}

// Reads the fields after the time: "812  2207 D Tag: x", perhaps after a zone and a user, or "D/Tag(  812):
// x".
std::optional<Logged> timed(std::string_view text) {
    constexpr size_t kMostFields = 5;
    for (size_t i = 0; i < kMostFields; ++i) {
        const std::string_view word = takeWord(text);
        if (word.empty()) return std::nullopt;
        if (!isLevel(word[0])) continue;
        if (word.size() == 1) return tagAndMessage(text, ":");
        if (word[1] == '/') return briefLine({word.data() + 2, word.size() - 2 + text.size()});
    }
    return std::nullopt;
}

// "[ 03-05 10:11:12.345   812: 2207 D/Tag ]"
std::optional<Logged> headOfLong(std::string_view line) {
    line = trimmed(line);
    const size_t tag = line.rfind('/');
    if (!endsWith(line, " ]") || tag == kNowhere || !isLevel(line[tag - 1])) return std::nullopt;
    return Logged{trimmed(line.substr(tag + 1, line.size() - tag - 3)), {}};
}

std::string_view withoutColour(std::string_view line) {
    while (startsWith(line, "\x1b[")) line.remove_prefix(std::min(line.find('m'), line.size() - 1) + 1);
    return endsWith(line, "\x1b[0m") ? line.substr(0, line.size() - 4) : line;
}

struct Found {
    std::string_view tag;
    bool isLong = false;  // messages follow their heads
};

std::optional<Found> findDump(std::string_view log) {
    std::string_view head;
    Lines lines(log);
    for (std::string_view line; lines.next(line);) {
        const auto logged = withoutPrefix(line);
        const bool isHead = logged && startsWith(line, "[");
        if (isHead) head = logged->tag;
        if (logged && isDumpHeading(logged->message)) return Found{logged->tag, false};
        if (!logged && !head.empty() && isDumpHeading(line)) return Found{head, true};
    }
    return std::nullopt;
}

}  // namespace

std::optional<Logged> withoutPrefix(std::string_view line) {
    line = withoutColour(line);
    if (line.empty()) return std::nullopt;
    if (isLevel(line.front())) return untimed(line);
    const bool isHead = line.front() == '[';
    std::string_view rest = line.substr(isHead ? 1 : 0);
    takeBlanks(rest);
    if (rest.empty() || !isDigit(rest.front()) || !takeTime(rest)) return std::nullopt;
    return isHead ? headOfLong(line) : timed(rest);
}

std::optional<std::string> dumpInLog(std::string_view log) {
    const auto found = findDump(log);
    if (!found) return std::nullopt;
    std::string text;
    std::string_view head;
    Lines lines(log);
    for (std::string_view line; lines.next(line); text += '\n') {
        const auto logged = withoutPrefix(line);
        if (logged) head = logged->tag;
        if (head != found->tag) continue;
        if (logged) text += logged->message;
        if (!logged && found->isLong) text += line;
    }
    return text;
}

}  // namespace qzcam
