// SPDX-License-Identifier: Apache-2.0
// Prints texts in columns.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

constexpr size_t kLongestLine = 160;

using Row = std::vector<std::string>;

// Returns the columns side by side; the last one is not padded.
std::string table(const std::vector<Row>& rows);

// Returns "138", or "138 / 140" if another number was announced.
std::string numberOf(size_t read, const std::optional<size_t>& announced);

// Returns "138 / 140 tags".
std::string numberOf(size_t read, const std::optional<size_t>& announced, const char* one, const char* many);

}  // namespace qzcam
