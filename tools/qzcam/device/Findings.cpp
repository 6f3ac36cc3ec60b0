// SPDX-License-Identifier: Apache-2.0
#include "device/Findings.h"

#include <fmt/format.h>

#include <array>
#include <cstdint>

namespace qzcam {

namespace {

struct LeftName {
    const char* name;
    const char* text;
};

// The texts are in the order of Left::Kind.
constexpr std::array<LeftName, 13> kLeftNames{{
    {"unknownTag", "entries of unknown tags"},
    {"unknownType", "entries of unknown types"},
    {"mistyped", "entries of another type than their tag's"},
    {"damaged", "damaged entries"},
    {"unknownWord", "entries with unknown words"},
    {"repeatedEntry", "repeated entries"},
    {"repeatedTag", "repeated vendor tags"},
    {"tooManyTags", "vendor tags beyond what a device takes"},
    {"garbledLine", "garbled lines"},
    {"strayArray", "arrays without a camera"},
    {"section", "other sections"},
    {"halText", "texts of the HAL"},
    {"otherBlock", "blocks of other vendors"},
}};
static_assert(kLeftNames.size() == static_cast<size_t>(Left::Kind::OtherBlock) + 1);

}  // namespace

const char* nameOf(Left::Kind kind) { return kLeftNames[static_cast<size_t>(kind)].name; }

const char* textOf(Left::Kind kind) { return kLeftNames[static_cast<size_t>(kind)].text; }

std::string summaryOf(const std::vector<Left>& left) {
    std::array<size_t, kLeftNames.size()> counts{};
    for (const Left& each : left) counts[static_cast<size_t>(each.kind)] += each.count;
    std::string text;
    for (size_t kind = 0; kind < counts.size(); ++kind) {
        if (counts[kind] == 0) continue;
        text += fmt::format("{}{} ({})", text.empty() ? "" : ", ", kLeftNames[kind].text, counts[kind]);
    }
    return text;
}

std::string textOf(const Left& left) {
    const std::string lines = left.lastLine > left.line ? fmt::format("lines {}-{}", left.line, left.lastLine)
                                                        : fmt::format("line {}", left.line);
    return fmt::format("{}: {}: {}", lines, textOf(left.kind), left.name);
}

}  // namespace qzcam
