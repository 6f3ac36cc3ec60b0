// SPDX-License-Identifier: Apache-2.0
// Entries of a host, and tables of texts: a row is a line of fields between bars, and an indented line
// continues the row before it.
#pragma once

#include "support/Log.h"

#include <system/camera_metadata.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

namespace qz::test {

using B = std::vector<uint8_t>;
using I = std::vector<int32_t>;
using F = std::vector<float>;
using L = std::vector<int64_t>;
using Elements = std::variant<B, I, F, L>;  // in the order of the platform's type codes

// The allocation has exactly the size of the entry, so that a sanitizer detects a read past the end.
inline camera_metadata_ro_entry entryOf(uint32_t tag, const Elements& elements) {
    camera_metadata_ro_entry entry = {};
    entry.tag = tag;
    entry.type = static_cast<uint8_t>(elements.index());
    std::visit(
        [&entry](const auto& list) {
            entry.count = list.size();
            entry.data.u8 = reinterpret_cast<const uint8_t*>(list.data());
        },
        elements);
    return entry;
}

inline std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
    return parts;
}

inline std::vector<std::vector<std::string>> rowsOf(const std::string& table) {
    std::vector<std::vector<std::string>> rows;
    for (const std::string& line : split(table, '\n')) {
        const size_t start = line.find_first_not_of(' ');
        if (start == std::string::npos) continue;
        if (start == 0) rows.emplace_back();
        for (const std::string& field : split(line.substr(start), '|')) rows.back().push_back(field);
    }
    return rows;
}

// Parses "3,-4", or "0..10" for all numbers from 0 to 10, as type b, i, f or l.
inline Elements elementsOf(char type, const std::string& text) {
    std::vector<double> numbers;
    for (const std::string& number : split(text, ',')) numbers.push_back(std::stod(number));
    if (text.rfind("0..", 0) == 0) {
        numbers.clear();
        for (int i = 0; i <= std::stoi(text.substr(3)); ++i) numbers.push_back(i);
    }
    switch (type) {
        case 'b':
            return B(numbers.begin(), numbers.end());
        case 'f':
            return F(numbers.begin(), numbers.end());
        case 'l':
            return L(numbers.begin(), numbers.end());
        default:
            return I(numbers.begin(), numbers.end());
    }
}

// Returns "I text\n" for each line with the log tag `tag`, by its level (D, I, W, E), and "> text\n" for each
// line with the log tag `other`.
inline std::string textOf(const std::vector<LogLine>& lines, const std::string& tag,
                          const std::string& other = "") {
    std::string text;
    for (const LogLine& line : lines) {
        if (line.tag != tag && line.tag != other) continue;
        text += line.tag == tag ? "??VDIWEF"[line.priority] : '>';
        text += ' ' + line.text + '\n';
    }
    return text;
}

}  // namespace qz::test
