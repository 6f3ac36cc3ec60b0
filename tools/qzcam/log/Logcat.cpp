// SPDX-License-Identifier: Apache-2.0
#include "log/Logcat.h"

#include "base/Text.h"
#include "log/LogcatFields.h"

#include <algorithm>
#include <array>

namespace qzcam {

namespace {

constexpr std::string_view kLevels = "VDIWEFA";

bool isLevel(char letter) { return kLevels.find(letter) != std::string_view::npos; }

// Removes "Tag     : message" from the scan. A layout pads the tag with blanks.
bool takeTagAndMessage(Scan& scan, LogLine& line) {
    const std::string_view rest = scan.rest();
    size_t colon = rest.find(": ");
    if (colon == std::string_view::npos && endsWith(rest, ":")) colon = rest.size() - 1;
    if (colon == std::string_view::npos) return false;
    line.tag = trimmed(rest.substr(0, colon));
    line.message = rest.substr(std::min(colon + 2, rest.size()));
    return true;
}

// Reads one to three numbers. The first may be a user's name. Further ones are only counted.
struct Ids {
    std::array<std::string_view, 3> words;
    size_t count = 0;

    void add(std::string_view word) {
        if (count < words.size()) words[count] = word;
        ++count;
    }
};

// Removes "  1047:  812: 2207" from the scan.
Ids takeIds(Scan& scan) {
    Ids ids;
    do {
        scan.skipBlanks();
        const std::string_view word = scan.takeWhile([](char c) { return c != ':' && c != ')' && c != ' '; });
        if (word.empty()) return {};
        ids.add(word);
    } while (scan.take(':'));
    return ids;
}

// The last `numbers` ids are pid and perhaps tid; an id before them is the uid.
bool setIds(LogLine& line, const Ids& ids, size_t numbers) {
    if (ids.count != numbers && ids.count != numbers + 1) return false;
    const size_t first = ids.count - numbers;
    const auto pid = parseId(ids.words[first]);
    const auto tid = numbers == 2 ? parseId(ids.words[first + 1]) : std::optional(-1);
    if (!pid || !tid) return false;
    line.pid = *pid;
    line.tid = *tid;
    return true;
}

// "   812  2207 D CameraQzParam: message", with a uid before the pid or without.
bool parseThreadtime(Scan scan, LogLine& line) {
    Ids ids;
    for (;;) {
        scan.skipBlanks();
        const std::string_view word = scan.takeWhile([](char c) { return c != ' '; });
        if (word.empty() || ids.count > 3) return false;
        if (word.size() == 1 && isLevel(word.front()) && ids.count >= 2) {
            line.level = word.front();
            break;
        }
        ids.add(word);
    }
    return setIds(line, ids, 2) && scan.take(' ') && takeTagAndMessage(scan, line);
}

// "D/CameraQzParam(  812): message"
bool parseBrief(Scan scan, LogLine& line) {
    const std::string_view text = scan.rest();
    for (size_t open = text.find('('); open != std::string_view::npos; open = text.find('(', open + 1)) {
        Scan inner(text.substr(open + 1));
        const auto ids = takeIds(inner);
        LogLine found = line;
        if (!setIds(found, ids, 1) || !inner.take(')') || !inner.take(':')) continue;
        inner.take(' ');
        found.tag = trimmed(text.substr(0, open));
        found.message = inner.rest();
        line = std::move(found);
        return true;
    }
    return false;
}

// "D(  812) message  (CameraQzParam)" and "D(  812: 2207) message"
bool parseBrackets(Scan scan, LogLine& line) {
    const auto ids = takeIds(scan);
    if (!scan.take(')')) return false;
    scan.take(' ');
    const std::string_view rest = scan.rest();
    const size_t tag = rest.rfind("  (");
    if (tag != std::string_view::npos && endsWith(rest, ")") && setIds(line, ids, 1)) {
        line.message = rest.substr(0, tag);
        line.tag = rest.substr(tag + 3, rest.size() - tag - 4);
        return true;
    }
    line.message = rest;
    return setIds(line, ids, 2);
}

bool parseLevelFirst(Scan scan, LogLine& line, bool hasTime) {
    const char level = scan.front();
    if (!isLevel(level)) return false;
    scan.take(level);
    line.level = level;
    if (!hasTime && scan.take('(')) return parseBrackets(scan, line);
    if (!scan.take('/')) return false;
    return parseBrief(scan, line) || (!hasTime && takeTagAndMessage(scan, line));
}

bool parseFields(std::string_view text, LogLine& line) {
    Scan scan(text);
    const auto time = takeTime(scan);
    if (!time) return parseLevelFirst(Scan(text), line, false);
    line.time = *time;
    if (!scan.take(' ')) return false;
    return parseLevelFirst(scan, line, true) || parseThreadtime(scan, line);
}

// "[ 03-05 10:11:12.345   812: 2207 D/CameraQzParam ]"
std::optional<LogLine> parseLongHead(std::string_view text) {
    if (!startsWith(text, "[ ") || !endsWith(text, " ]")) return std::nullopt;
    LogLine line;
    Scan scan(text.substr(2, text.size() - 4));
    const auto time = takeTime(scan);
    if (!time) return std::nullopt;
    line.time = *time;
    if (!setIds(line, takeIds(scan), 2)) return std::nullopt;
    scan.skipBlanks();
    line.level = scan.front();
    if (!isLevel(line.level) || !scan.take(line.level) || !scan.take('/')) return std::nullopt;
    line.tag = trimmed(scan.rest());
    return line;
}

// "uid=1047(cameraserver) C3Dev-0-ReqQueu identical 3 lines", "... expire 4 lines"
void readChatty(LogLine& line) {
    if (line.tag != "chatty") return;
    const auto words = split(trimmed(line.message), ' ');
    if (words.size() < 3 || !startsWith(words.back(), "line")) return;
    const auto count = parseInteger(words[words.size() - 2]);
    if (!count || *count < 0) return;
    const std::string_view what = words[words.size() - 3];
    if (what == "identical") line.folded = static_cast<size_t>(*count);
    if (what == "expire") line.pruned = static_cast<size_t>(*count);
}

bool isHeading(std::string_view text) {
    return startsWith(text, "--------- beginning of ") || startsWith(text, "--------- switch to ");
}

bool parse(std::string_view text, LogLine& line) {
    if (!parseFields(text, line)) return false;
    line.message = withoutEscapes(line.message);
    readChatty(line);
    return true;
}

}  // namespace

// In this layout the lines of a message follow its head, and an empty line ends it. A message may also
// contain empty lines, so the head is used up to the next head.
bool LogcatReader::feedLong(std::string_view text, size_t line) {
    if (auto head = parseLongHead(text)) {
        mHead = std::move(head);
        return true;
    }
    if (!mHead || text.empty()) return false;
    LogLine next = *mHead;
    next.line = line;
    next.message = withoutEscapes(text);
    readChatty(next);
    mTake(std::move(next));
    return true;
}

void LogcatReader::feed(std::string_view text, size_t number) {
    const bool isColored = text.find('\x1b') != std::string_view::npos;
    const std::string stripped = isColored ? withoutColors(text) : std::string();
    const std::string_view plain = isColored ? stripped : text;
    if (isHeading(plain)) return;
    if (startsWith(plain, "------ ")) mHead.reset();
    LogLine line;
    line.line = number;
    if (parse(plain, line)) {
        mHead.reset();
        return mTake(std::move(line));
    }
    if (feedLong(plain, number) || plain.empty()) return;
    LogLine raw;
    raw.line = number;
    raw.isRaw = true;
    raw.message = withoutEscapes(plain);
    mTake(std::move(raw));
}

}  // namespace qzcam
