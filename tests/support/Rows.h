// SPDX-License-Identifier: Apache-2.0
// Tables on a few lines, and the log line that a row expects.
#pragma once

#include "support/Log.h"

#include <sstream>
#include <string>
#include <vector>

namespace qz::test {

using Row = std::vector<std::string>;

// "12,34|0 5,|-1" are two rows of two fields.
inline std::vector<Row> rowsOf(const std::string& table) {
    std::vector<Row> rows;
    std::istringstream texts(table);
    for (std::string text; texts >> text;) {
        rows.emplace_back();
        std::istringstream fields(text);
        for (std::string field; std::getline(fields, field, '|');) rows.back().push_back(field);
    }
    return rows;
}

// An empty text means no line.
inline std::vector<LogLine> lineOf(int priority, const char* tag, const std::string& text) {
    return text.empty() ? std::vector<LogLine>{} : std::vector<LogLine>{{priority, tag, text}};
}

}  // namespace qz::test
