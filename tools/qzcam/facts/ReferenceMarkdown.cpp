// SPDX-License-Identifier: Apache-2.0
// The reference as tables with one line for each row of the library: docs/reference.md.
#include "facts/Reference.h"

#include <fmt/format.h>

namespace qzcam {

namespace {

using Style = Column::Style;

// A bar would end its cell.
std::string escaped(const std::string& text) {
    std::string safe;
    for (const char c : text) {
        safe += c == '\n' ? "\\n" : c == '|' ? "\\|" : std::string(1, c);
    }
    return safe;
}

std::string code(const std::string& text) { return "`" + escaped(text) + "`"; }

std::string joinedParts(const Value& value, Style style) {
    std::string text = style == Style::Text ? escaped(value[0].text) : code(value[0].text);
    for (size_t i = 1; i < value.size(); ++i) {
        text += (style == Style::Words ? " → " : i == 1 ? " " : ", ") + escaped(value[i].text);
    }
    return text;
}

// Entries as "`tag` byte[1]".
std::string valueText(const Value& value, Style style) {
    if (!isEntry(value)) return joinedParts(value, style);
    return fmt::format("{} {}[{}]", code(value[0].text), value[1].text, value[2].text);
}

std::string cellText(const std::vector<Value>& values, Style style) {
    std::string text;
    for (const Value& value : values) {
        if (!text.empty()) text += style == Style::Words ? ", " : "<br>";
        text += valueText(value, style);
    }
    return text;
}

std::string tableOf(const Section& section) {
    std::string head = "|";
    std::string rule = "|";
    for (const Column& column : section.columns) {
        if (!column.inTable) continue;
        head += fmt::format(" {} |", column.title);
        rule += "---|";
    }
    std::string table = head + "\n" + rule + "\n";
    for (const Doc& doc : section.docs) {
        table += "|";
        for (size_t i = 0; i < section.columns.size(); ++i) {
            const Column& column = section.columns[i];
            if (column.inTable) table += fmt::format(" {} |", cellText(doc.cells[i], column.style));
        }
        table += "\n";
    }
    return table;
}

}  // namespace

std::string referenceMarkdown(const Reference& reference) {
    std::string text =
        "# Reference\n\nEverything that the library reads, writes, publishes, sends and logs, from its own rows.\nThis file is the "
        "output of `qzcam params --markdown`, and a test compares the two.\n";
    for (const Section& section : reference) {
        if (section.docs.empty()) continue;
        text += fmt::format("\n## {}\n\n{}\n\n{}", section.title, section.intro, tableOf(section));
    }
    return text;
}

}  // namespace qzcam
