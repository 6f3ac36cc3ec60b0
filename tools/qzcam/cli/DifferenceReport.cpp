// SPDX-License-Identifier: Apache-2.0
// Prints differences for people and for programs.
#include "cli/Difference.h"
#include "output/JsonPrinter.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>

namespace qzcam {

namespace {

using Json = nlohmann::ordered_json;

constexpr size_t kWidestName = 60;
constexpr size_t kWidestFact = 36;

constexpr size_t kLongestText = 400;
constexpr uint32_t kNoTag = 0xFFFFFFFF;

std::string textOf(const std::optional<Fact>& fact) {
    if (!fact) return "-";
    return fact->text.empty() ? "\"\"" : visible(fact->text);
}

template <typename List>
size_t firstDifference(const List& a, const List& b) {
    const auto shorter = static_cast<std::ptrdiff_t>(std::min(a.size(), b.size()));
    return static_cast<size_t>(std::mismatch(a.begin(), a.begin() + shorter, b.begin()).first - a.begin());
}

// Prints a long list from its first difference on: before it, the texts of both entries may be the same.
std::string fromFirstDifference(const Values& values, const Values& other) {
    const size_t size = values.count == 0 ? 0 : values.bytes.size() / values.count;
    const size_t index = size == 0 ? 0 : firstDifference(values.bytes, other.bytes) / size;
    if (values.type != other.type || index < kMostShown || index >= values.count) return {};
    const auto begin = values.bytes.begin() + static_cast<std::ptrdiff_t>(index * size);
    const Values rest{values.type, values.count - index, {begin, values.bytes.end()}};
    return fmt::format("{} from value {} on: {}", typeAndCount(values), index + 1, toText(rest, kNoTag));
}

std::string fromFirstDifference(const std::string& text, const std::string& other) {
    if (text.size() <= kLongestText) return text;
    const size_t first = firstDifference(text, other);
    const size_t place = first < kLongestText / 2 ? 0 : text.find_last_of(" ,", first) + 1;
    const bool toEnd = text.size() - place <= kLongestText;
    return (place > 0 ? "... " : "") + text.substr(place, kLongestText) + (toEnd ? "" : " ...");
}

std::string nameOf(const Difference& row) { return visible(row.name); }

std::string shownOf(const std::optional<Fact>& fact, const std::optional<Fact>& other) {
    if (fact && other && fact->values && other->values) {
        std::string text = fromFirstDifference(*fact->values, *other->values);
        if (!text.empty()) return text;
    }
    return visible(fromFirstDifference(textOf(fact), textOf(other)));  // this may cut a character
}

template <typename Text>
size_t widest(const std::vector<Difference>& rows, size_t most, Text text) {
    size_t width = 1;
    for (const Difference& row : rows) {
        const size_t size = std::string(text(row)).size();
        if (size <= most) width = std::max(width, size);
    }
    return width;
}

std::string headOf(const Comparison& comparison) {
    return fmt::format("\n{}: {} of {} differ", comparison.title, comparison.differences.size(),
                       comparison.compared);
}

// Prints both sides side by side if the line is wide enough, otherwise one below the other.
std::string table(const std::vector<Difference>& rows) {
    const size_t name = widest(rows, kWidestName, nameOf);
    const size_t a = widest(rows, kWidestFact, [](const Difference& row) { return textOf(row.a); });
    std::string text = fmt::format("  {:<{}}  {:<{}}  B\n", "", name, "A", a);
    for (const Difference& row : rows) {
        const std::string inA = shownOf(row.a, row.b);
        const std::string inB = shownOf(row.b, row.a);
        if (inA.size() <= kWidestFact && nameOf(row).size() <= kWidestName) {
            text += fmt::format("  {:<{}}  {:<{}}  {}\n", nameOf(row), name, inA, a, inB);
        } else {
            text += fmt::format("  {}\n      A  {}\n      B  {}\n", nameOf(row), inA, inB);
        }
    }
    return text;
}

std::string section(const Comparison& comparison) {
    if (comparison.differences.empty()) return {};
    return headOf(comparison) + "\n" + table(comparison.differences);
}

bool isSame(const Difference& one, const Difference& other) {
    return one.name == other.name && textOf(one.a) == textOf(other.a) && textOf(one.b) == textOf(other.b);
}

// A difference that the previous request also had is only counted.
std::string requestSection(const Comparison& request, const std::vector<Difference>& before) {
    std::vector<Difference> added;
    for (const Difference& row : request.differences) {
        const bool isOld = std::any_of(before.begin(), before.end(),
                                       [&](const Difference& old) { return isSame(row, old); });
        if (!isOld) added.push_back(row);
    }
    const size_t old = request.differences.size() - added.size();
    const std::string asBefore = old > 0 ? fmt::format(", {} as in the request above", old) : "";
    return headOf(request) + asBefore + "\n" + (added.empty() ? "" : table(added));
}

Json jsonOf(const std::optional<Fact>& fact) {
    if (!fact) return nullptr;
    if (!fact->values) return fact->text;
    const Values& values = *fact->values;
    return {{"type", camera_metadata_type_names[values.type]}, {"values", jsonOf(values)}};
}

Json jsonOf(const Comparison& comparison) {
    Json list = Json::array();
    for (const Difference& row : comparison.differences) {
        list.push_back({{"name", row.name}, {"a", jsonOf(row.a)}, {"b", jsonOf(row.b)}});
    }
    return list;
}

Json jsonOf(const Facts& alike) {
    Json list = Json::array();
    for (const auto& [name, fact] : alike)
        list.push_back({{"name", name}, {"value", jsonOf(std::optional(fact))}});
    return list;
}

Json lineJson(const std::optional<size_t>& line) { return line ? Json(*line) : Json(nullptr); }

}  // namespace

std::string diffText(const DiffReport& report) {
    std::string text = fmt::format("A  {}\nB  {}\n", report.a, report.b);
    text += section(report.tags) + section(report.capabilities) + section(report.parameters);
    const std::vector<Difference>* before = nullptr;
    for (const RequestComparison& request : report.requests) {
        text += requestSection(request.entries, before ? *before : std::vector<Difference>());
        before = &request.entries.differences;
    }
    if (report.empty()) text += "\nNothing differs.\n";
    return text;
}

std::string diffJson(const DiffReport& report) {
    Json requests = Json::array();
    for (const RequestComparison& request : report.requests) {
        requests.push_back({{"lineA", lineJson(request.lineA)},
                            {"lineB", lineJson(request.lineB)},
                            {"entries", jsonOf(request.entries)},
                            {"alike", jsonOf(request.entries.alike)}});
    }
    const Json json{{"format", "qzcam-diff"},
                    {"version", 1},
                    {"a", report.a},
                    {"b", report.b},
                    {"tags", jsonOf(report.tags)},
                    {"capabilities", jsonOf(report.capabilities)},
                    {"parameters", jsonOf(report.parameters)},
                    {"requests", std::move(requests)},
                    {"alike",
                     {{"tags", jsonOf(report.tags.alike)},
                      {"capabilities", jsonOf(report.capabilities.alike)},
                      {"parameters", jsonOf(report.parameters.alike)}}}};
    return jsonText(json);
}

}  // namespace qzcam
