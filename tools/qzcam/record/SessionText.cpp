// SPDX-License-Identifier: Apache-2.0
#include "record/SessionText.h"

#include "base/Text.h"

#include <fmt/format.h>

namespace qzcam {

namespace {

std::string from(size_t source) { return source == 0 ? "" : fmt::format("line {}", source); }

}  // namespace

std::string sessionWord(const std::string& text) {
    if (!text.empty() && text.find_first_of(" \t\"#") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

std::string sessionValues(const Values& values) {
    std::string list;
    for (size_t i = 0; i < values.count; ++i) list += (i == 0 ? "" : ",") + elementText(values, i);
    return list;
}

void SessionText::command(const std::string& text, size_t source) {
    mLines.push_back(source == 0 ? visible(text) : fmt::format("{}  # {}", visible(text), from(source)));
}

void SessionText::comment(const std::string& text, size_t source) {
    mLines.push_back(
        fmt::format("# {}{}", visible(text), source == 0 ? "" : fmt::format(" ({})", from(source))));
}

void SessionText::gap() {
    if (!mLines.empty() && !mLines.back().empty()) mLines.emplace_back();
}

void SessionText::withdraw(size_t line, const std::string& reason) {
    mLines[line - 1].insert(0, "# ").append(": " + visible(reason));
}

std::string SessionText::text() const { return fmt::format("{}\n", fmt::join(mLines, "\n")); }

}  // namespace qzcam
