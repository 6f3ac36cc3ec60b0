// SPDX-License-Identifier: Apache-2.0
#include "show/Table.h"

#include <fmt/format.h>

#include <algorithm>

namespace qzcam {

namespace {

constexpr size_t kWidest = 60;  // cell

}  // namespace

std::string table(const std::vector<Row>& rows) {
    std::vector<size_t> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i + 1 < row.size(); ++i)
            widths[i] = std::max(widths[i], std::min(row[i].size(), kWidest));
    }
    std::string text;
    for (const Row& row : rows) {
        std::string line = " ";
        for (size_t i = 0; i < row.size(); ++i) {
            const bool isLast = i + 1 == row.size();
            if (isLast || widths[i] > 0) line += fmt::format(" {:<{}} ", row[i], isLast ? 0 : widths[i]);
        }
        text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return text;
}

std::string numberOf(size_t read, const std::optional<size_t>& announced) {
    if (!announced || *announced == read) return fmt::to_string(read);
    return fmt::format("{} / {}", read, *announced);
}

std::string numberOf(size_t read, const std::optional<size_t>& announced, const char* one, const char* many) {
    return fmt::format("{} {}", numberOf(read, announced),
                       read == 1 && announced.value_or(1) == 1 ? one : many);
}

}  // namespace qzcam
