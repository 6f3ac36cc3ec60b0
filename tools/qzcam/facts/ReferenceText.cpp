// SPDX-License-Identifier: Apache-2.0
// Prints the reference on a terminal: all details, or one line for each fact.
#include "base/Lists.h"
#include "facts/Reference.h"

#include <fmt/format.h>

#include <algorithm>

namespace qzcam {

namespace {

using Style = Column::Style;

// "tag  byte[1]", "key  text  a number"
std::string valueText(const Value& value) {
    if (isEntry(value)) return fmt::format("{}  {}[{}]", value[0].text, value[1].text, value[2].text);
    std::string text = value[0].text;
    for (size_t i = 1; i < value.size(); ++i) text += "  " + value[i].text;
    return text;
}

std::string mapping(const Value& value, size_t width) {
    return fmt::format("{:<{}}  -> {}", value[0].text, width, value[1].text);
}

size_t widthOf(const std::vector<Value>& values) {
    size_t width = 0;
    for (const Value& value : values) width = std::max(width, value[0].text.size());
    return width;
}

std::string linesOf(const Column& column, const std::vector<Value>& values) {
    std::string lines;
    const size_t width = widthOf(values);
    for (const Value& value : values) {
        const std::string text = column.style == Style::Words ? mapping(value, width) : valueText(value);
        lines += fmt::format("  {:<12}{}\n", lines.empty() ? column.label : "", text);
    }
    return lines;
}

std::string blockOf(const Section& section, const Doc& doc) {
    std::string block = doc.heading + "\n";
    for (size_t i = 0; i < section.columns.size(); ++i) block += linesOf(section.columns[i], doc.cells[i]);
    return block;
}

// Behind the names: what the entries are, or the last column.
std::string summaryOf(const Doc& doc) {
    const auto* entries =
        findIf(doc.cells, [](const auto& values) { return !values.empty() && isEntry(values[0]); });
    if (entries != nullptr) return valueText(entries->front());
    const auto& last = doc.cells.back();
    return last.empty() || last[0].size() != 1 ? std::string() : last[0][0].text;
}

}  // namespace

std::string referenceText(const Reference& reference) {
    std::string text;
    for (const Section& section : reference) {
        for (const Doc& doc : section.docs) text += blockOf(section, doc);
    }
    return text;
}

std::string referenceIndex(const Reference& reference) {
    std::string text;
    for (const Section& section : reference) {
        text += fmt::format("{}{}\n", text.empty() ? "" : "\n", section.title);
        for (const Doc& doc : section.docs) {
            const std::string names = doc.heading.substr(0, doc.heading.find(": "));
            text += fmt::format("  {:<40} {}\n", names, summaryOf(doc));
        }
    }
    return text + "\n'qzcam params NAME' shows the details.\n";
}

}  // namespace qzcam
