// SPDX-License-Identifier: Apache-2.0
#include "device/Findings.h"

#include <fmt/format.h>

#include <array>
#include <cstdint>

namespace qzcam {

namespace {

struct UnusedName {
    const char* name;
    const char* text;
};

// The texts are in the order of UnusedPart::Kind.
constexpr std::array<UnusedName, 12> kUnusedNames{{
    {"unknownTag", "entries of unknown tags"},
    {"unknownType", "entries of unknown types"},
    {"mistyped", "entries of another type than their tag's"},
    {"damaged", "damaged entries"},
    {"unknownWord", "entries with unknown words"},
    {"repeatedEntry", "repeated entries"},
    {"repeatedTag", "repeated vendor tags"},
    {"tooManyTags", "vendor tags beyond the limit of the host platform"},
    {"garbledLine", "garbled lines"},
    {"section", "other sections"},
    {"halText", "texts of the HAL"},
    {"otherBlock", "blocks of other vendors"},
}};
static_assert(kUnusedNames.size() == static_cast<size_t>(UnusedPart::Kind::OtherBlock) + 1);

}  // namespace

const char* nameOf(Fault::Kind kind) {
    constexpr const char* names[] = {"nameOfTwoTypes", "numberOfTwoNames", "lengthAgainstType"};
    return names[static_cast<size_t>(kind)];
}

const char* nameOf(UnusedPart::Kind kind) { return kUnusedNames[static_cast<size_t>(kind)].name; }

const char* textOf(UnusedPart::Kind kind) { return kUnusedNames[static_cast<size_t>(kind)].text; }

std::string summaryOf(const std::vector<UnusedPart>& unused) {
    std::array<size_t, kUnusedNames.size()> counts{};
    for (const UnusedPart& each : unused) counts[static_cast<size_t>(each.kind)] += each.count;
    std::string text;
    for (size_t kind = 0; kind < counts.size(); ++kind) {
        if (counts[kind] == 0) continue;
        text += fmt::format("{}{} ({})", text.empty() ? "" : ", ", kUnusedNames[kind].text, counts[kind]);
    }
    return text;
}

std::string textOf(const UnusedPart& part) {
    const std::string lines = part.lastLine > part.line ? fmt::format("lines {}-{}", part.line, part.lastLine)
                                                        : fmt::format("line {}", part.line);
    return fmt::format("{}: {}: {}", lines, textOf(part.kind), part.name);
}

}  // namespace qzcam
