// SPDX-License-Identifier: Apache-2.0
#include "compare/ComparisonReport.h"

#include "base/Text.h"
#include "output/JsonPrinter.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>

namespace qzcam {

namespace {

using Json = nlohmann::ordered_json;
using Kind = ComparedEntry::Kind;

constexpr size_t kWidestValue = 32;

std::string valueText(const std::string& text) { return text.empty() ? "-" : cut(text, kWidestValue); }

std::string originText(const Texts& parameters) {
    std::string text;
    for (const auto& [key, value] : parameters)
        text += fmt::format("{}{}={}", text.empty() ? "<- " : " ", visible(key), cut(value, kWidestValue));
    return text;
}

struct Widths {
    size_t tag = 0;
    size_t there = 5;
    size_t here = 4;
};

Widths widthsOf(const ArrayComparison& comparison) {
    Widths widths;
    for (const ComparedEntry& row : comparison.entries) {
        widths.tag = std::max(widths.tag, visible(row.tag).size());
        widths.there = std::max(widths.there, valueText(row.there).size());
        widths.here = std::max(widths.here, valueText(row.here).size());
    }
    return widths;
}

std::string rowText(const ComparedEntry& row, const Widths& widths) {
    std::string text =
        fmt::format("{:<10}  {:<{}}  {:<{}}  {:<{}}", nameOf(row.kind), visible(row.tag), widths.tag,
                    valueText(row.there), widths.there, valueText(row.here), widths.here);
    const std::string origin = originText(row.parameters);
    if (!origin.empty()) text += "  " + origin;
    if (!row.reason.empty()) text += (origin.empty() ? "  " : "; ") + visible(row.reason);
    return text.substr(0, text.find_last_not_of(' ') + 1) + "\n";
}

std::string headText(const ComparedSides& sides) {
    std::string text = fmt::format("there  {}, camera {}: {} (line {})\nhere   {}\n", visible(sides.file),
                                   visible(sides.camera), sides.array, sides.line, visible(sides.here));
    if (!sides.otherArrays.empty())
        text += fmt::format("other arrays: {}; --array chooses one\n", fmt::join(sides.otherArrays, ", "));
    return text + "\n";
}

std::string countsText(const ArrayComparison& comparison) {
    const auto count = [&](Kind kind) { return comparison.count(kind); };
    return fmt::format("\n{} same, {} different, {} only there, {} only here\n", count(Kind::Same),
                       count(Kind::Different), count(Kind::OnlyThere), count(Kind::OnlyHere));
}

Json sideJson(const Values& values) { return {{"type", typeName(values.type)}, {"values", jsonOf(values)}}; }

Json rowJson(const ComparedEntry& row) {
    std::string kind = nameOf(row.kind);
    std::replace(kind.begin(), kind.end(), ' ', '-');
    Json json{{"tag", row.tag}, {"comparison", kind}, {"library", row.isFromLibrary}};
    if (row.line != 0) json["line"] = row.line;
    if (row.thereValues) json["there"] = sideJson(*row.thereValues);
    if (row.cut) json["cut"] = true;
    if (row.hereValues) json["here"] = sideJson(*row.hereValues);
    if (!row.parameters.empty()) json["parameters"] = row.parameters;
    if (!row.reason.empty()) json["reason"] = row.reason;
    return json;
}

}  // namespace

std::string comparisonText(const ComparedSides& sides, const ArrayComparison& comparison) {
    const Widths widths = widthsOf(comparison);
    std::string text = headText(sides);
    text += fmt::format("{:<10}  {:<{}}  {:<{}}  here\n", "", "", widths.tag, "there", widths.there);
    bool ofLibrary = true;
    for (const ComparedEntry& row : comparison.entries) {
        if (ofLibrary && !row.isFromLibrary) text += "\nentries that the library never writes\n";
        ofLibrary = row.isFromLibrary;
        text += rowText(row, widths);
    }
    return text + countsText(comparison);
}

std::string comparisonJson(const ComparedSides& sides, const ArrayComparison& comparison) {
    Json json{{"format", "qzcam-compare"},        {"version", 1},         {"file", sides.file},
              {"camera", sides.camera},           {"array", sides.array}, {"line", sides.line},
              {"otherArrays", sides.otherArrays}, {"here", sides.here}};
    json["counts"] = {{"same", comparison.count(Kind::Same)},
                      {"different", comparison.count(Kind::Different)},
                      {"onlyThere", comparison.count(Kind::OnlyThere)},
                      {"onlyHere", comparison.count(Kind::OnlyHere)}};
    json["entries"] = Json::array();
    for (const ComparedEntry& row : comparison.entries) json["entries"].push_back(rowJson(row));
    return jsonText(json);
}

}  // namespace qzcam
