// SPDX-License-Identifier: Apache-2.0
// Reads the values of tag-monitor events: numbers, names of standard values, and elements that one version
// prints without blanks.
#include "base/Text.h"
#include "facts/Tags.h"
#include "log/TagMonitor.h"

#include <host/StandardTags.h>

#include <algorithm>

namespace qzcam {

namespace {

constexpr size_t kLongestName = 28;

using Words = std::vector<std::string>;

// Blanks separate elements, except in a rational such as "(1 / 3)".
Words wordsOf(std::string_view row) {
    Words words;
    while (!(row = trimmed(row)).empty()) {
        size_t end = row.front() == '(' ? row.find(')') : row.find(' ');
        if (row.front() == '(' && end != std::string_view::npos) {
            words.emplace_back(row.substr(1, end - 1));
            ++end;
        } else {
            words.emplace_back(row.substr(0, end));
        }
        row.remove_prefix(std::min(end, row.size()));
    }
    return words;
}

// Returns the value of a name that is cut at 28 characters.
std::optional<int> valueOfBeginning(uint32_t tag, std::string_view word) {
    constexpr int mostValues = 256;
    std::optional<int> found;
    for (int value = 0; value < mostValues && word.size() == kLongestName; ++value) {
        const char* name = qz::host::nameOfValue(tag, value);
        if (name == nullptr || !startsWith(name, word)) continue;
        if (found) return std::nullopt;
        found = value;
    }
    return found;
}

bool appendWord(Values& values, uint32_t tag, const std::string& word) {
    if (appendElement(values, tag, word)) return true;
    const auto value = valueOfBeginning(tag, word);
    return value && appendElement(values, tag, std::to_string(*value));
}

// "0.500000001.00000000": eight decimals each.
bool appendDecimals(Values& values, uint32_t tag, std::string_view text) {
    constexpr size_t decimals = 8;
    while (!text.empty()) {
        size_t end = std::string_view::npos;
        for (const std::string_view word : {"-nan", "nan", "-inf", "inf"}) {
            if (startsWith(text, word)) end = word.size();
        }
        const size_t point = text.find('.');
        if (end == std::string_view::npos && point == std::string_view::npos) return false;
        if (end == std::string_view::npos) end = point + 1 + decimals;
        if (end > text.size() || !appendElement(values, tag, text.substr(0, end))) return false;
        text.remove_prefix(end);
    }
    return true;
}

// Splits names that follow one another without a blank. Returns false if there are two ways to split them.
bool appendNames(Values& values, uint32_t tag, std::string_view text) {
    constexpr int mostValues = 256;
    while (!text.empty()) {
        std::optional<std::string> found;
        for (int value = 0; value < mostValues; ++value) {
            const char* name = qz::host::nameOfValue(tag, value);
            if (name == nullptr || !startsWith(text, name)) continue;
            if (found && found->size() >= std::string_view(name).size()) continue;
            found = name;
        }
        if (!found || !appendElement(values, tag, *found)) return false;
        text.remove_prefix(found->size());
    }
    return true;
}

// Returns true if the library writes or reads only one element of the tag.
bool hasOneElement(const std::string& tag) {
    for (const TagFact& fact : tagFacts()) {
        if (tag == fact.entry.tag && fact.entry.type == TYPE_BYTE)
            return fact.entry.most == 1 && fact.entry.least == 1;
    }
    return false;
}

// Returns true for a row whose elements have no blank between them.
bool runsTogether(std::string_view row, uint8_t type) {
    return (type == TYPE_BYTE || type == TYPE_FLOAT) && row.find(' ') == std::string_view::npos &&
           !row.empty();
}

bool appendTogether(Values& values, const Tag& tag, const MonitorEvent& event, std::string_view row) {
    if (values.type == TYPE_FLOAT) return appendDecimals(values, tag.id, row);
    const bool isNumber = row.find_first_not_of("0123456789") == std::string_view::npos;
    if (!isNumber) return appendNames(values, tag.id, row);
    const bool isOne = row.size() == 1 || (event.rows.size() == 1 && hasOneElement(event.tag));
    return isOne && appendElement(values, tag.id, row);
}

std::string asPrinted(const MonitorEvent& event) {
    std::string text;
    for (const std::string& row : event.rows) {
        if (!text.empty()) text += ' ';
        text += trimmed(row);
    }
    return text;
}

}  // namespace

std::optional<Values> valuesOf(const MonitorEvent& event, const Tag& tag) {
    Values values{tag.type, 0, {}};
    for (const std::string& row : event.rows) {
        if (runsTogether(row, tag.type)) {
            if (!appendTogether(values, tag, event, row)) return std::nullopt;
            continue;
        }
        for (const std::string& word : wordsOf(row)) {
            if (!appendWord(values, tag.id, word) && !appendNames(values, tag.id, word)) return std::nullopt;
        }
    }
    return values;
}

std::string valueText(const MonitorEvent& event, const Tag* tag) {
    if (tag != nullptr) {
        if (const auto values = valuesOf(event, *tag)) return toText(*values, tag->id);
    }
    return asPrinted(event);
}

}  // namespace qzcam
