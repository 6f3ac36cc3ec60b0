// SPDX-License-Identifier: Apache-2.0
// Checks that hold for all output of the tool.
#pragma once

#include "Target.h"

#include <nlohmann/json.hpp>

#include <cctype>
#include <string>
#include <string_view>

namespace qz::fuzz {

// Checks that a text has no control characters, of ASCII or beyond it, and only valid UTF-8, as a strict JSON
// writer requires.
inline void requirePrints(std::string_view line) {
    for (size_t i = 0; i < line.size(); ++i) {
        const auto byte = static_cast<unsigned char>(line[i]);
        const auto next = static_cast<unsigned char>(i + 1 < line.size() ? line[i + 1] : ' ');
        require(std::iscntrl(byte) == 0, "it prints");
        require(byte != 0xc2 || next >= 0xa0, "it holds no control character beyond ASCII");
    }
    try {
        require(!nlohmann::json(line).dump().empty(), "it is written");
    } catch (const nlohmann::json::exception&) {
        require(false, "it is UTF-8");
    }
}

}  // namespace qz::fuzz
