// SPDX-License-Identifier: Apache-2.0
// Table of all lines that the library can write to the log, for readers of logs: kLines.
#pragma once

#include "callback/Results.h"
#include "capabilities/Capabilities.h"
#include "request/Parameters.h"
#include "rows/Line.h"
#include "text/Vocabularies.h"

#include <array>

namespace qz {

struct LogLine {
    const char* logTag = nullptr;
    const char* function = nullptr;  // function that writes it; "" for several
    int priority = 0;
    const char* format = nullptr;
};

inline constexpr LogLine kListedLines[] = {
#define LINE(name, function, level, text) {LINE_LOG_TAG, function, ANDROID_LOG_##level, text},
#include "rows/lines.inc"
#undef LINE
};

// Calls `take` with each line: the lines of the folders' lists first, then the lines of the rows.
template <typename Take>
constexpr void forEachLine(Take take) {
    const auto add = [&take](const char* logTag, const char* function, int priority, const char* format) {
        if (format != nullptr) take(LogLine{logTag, function, priority, format});
    };
    for (const LogLine& line : kListedLines) take(line);
    for (const Parameter& row : kParameters) {
        if (!row.plain) continue;
        add(kTranslatorLog, row.setter, ANDROID_LOG_INFO, row.information);
        add(kTranslatorLog, row.setter, ANDROID_LOG_ERROR, row.refused());
    }
    for (const CapabilityRow& row : kCapabilities) {
        add(kTranslatorLog, row.getter, row.counts.priority, row.counts.format);
        add(kTranslatorLog, row.getter, row.echoes.priority, row.echoes.format);
    }
    for (const ResultRow& row : kResults) {
        add(kCallBackLog, row.handler, row.plain ? ANDROID_LOG_INFO : ANDROID_LOG_ERROR, row.line);
    }
    for (const NamedVocabulary& named : kVocabularies) {
        const Vocabulary* words = named.vocabulary;
        add(kTranslatorLog, words->toText, ANDROID_LOG_ERROR, words->unknownText);
    }
}

constexpr size_t countLines() {
    size_t count = 0;
    forEachLine([&count](const LogLine& /*line*/) { ++count; });
    return count;
}

constexpr std::array<LogLine, countLines()> allLines() {
    std::array<LogLine, countLines()> lines{};
    size_t place = 0;
    forEachLine([&lines, &place](const LogLine& line) { lines[place++] = line; });
    return lines;
}

inline constexpr auto kLines = allLines();

}  // namespace qz
