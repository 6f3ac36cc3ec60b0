// A law for all that the tool prints.
#pragma once

#include "Target.h"

#include <nlohmann/json.hpp>

#include <cctype>
#include <string>
#include <string_view>

namespace qz::fuzz {

// Neither control characters, of ASCII or beyond it, nor bytes that are not UTF-8, as a strict writer of JSON
// sees it.
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
