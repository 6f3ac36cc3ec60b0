// SPDX-License-Identifier: Apache-2.0
#include "verdict/CheckReport.h"

#include "base/Terminal.h"
#include "base/Text.h"
#include "device/FindingsJson.h"
#include "facts/RowTexts.h"
#include "output/JsonPrinter.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace qzcam {

namespace {

class CheckText {
  public:
    CheckText(const DeviceCheck& check, bool colour) : mCheck(check), mColour(colour) {}

    std::string text(const Device& device);

  private:
    void addSummary();
    void addFeature(const FeatureCheck& feature);
    void addRow(const TagCheck& row);
    void addUnused();
    void addVerdict(const Device& device);
    std::string styled(const char* style, const std::string& text) const {
        return qzcam::styled(mColour, style, text);
    }

    const DeviceCheck& mCheck;
    bool mColour;
    std::string mText;
};

const char* typeOf(const qz::EntryRow& entry) { return typeName(entry.type); }

std::string CheckText::text(const Device& device) {
    addSummary();
    const bool hasAny = mCheck.count(TagVerdict::Missing) < mCheck.tags.size();
    for (const FeatureCheck& feature : byFeature(mCheck)) {
        if (hasAny) addFeature(feature);
    }
    addUnused();
    addVerdict(device);
    return std::move(mText);
}

void CheckText::addSummary() {
    mText += fmt::format("{:<19}{:>9}", "", "looked up");
    for (const TagVerdict verdict : kAllVerdicts) mText += fmt::format("{:>11}", nameOf(verdict));
    mText += "\n";
    for (const FeatureCheck& feature : byFeature(mCheck)) {
        mText += fmt::format("{:<19}{:>9}", feature.name(), feature.size());
        for (const TagVerdict verdict : kAllVerdicts) {
            const size_t count = feature.count(verdict);
            const std::string number = fmt::format("{:>11}", count == 0 ? "-" : fmt::to_string(count));
            mText += count == 0 ? number : styled(styleOf(verdict), number);
        }
        mText += "\n";
    }
}

// Lists the wrong tags. If a feature has none of its tags, one line replaces the list.
void CheckText::addFeature(const FeatureCheck& feature) {
    if (feature.count(TagVerdict::Fine) == feature.size()) return;
    mText += "\n" + styled("1", feature.name()) + "\n";
    if (feature.count(TagVerdict::Missing) == feature.size()) {
        mText += styled("2", fmt::format("  missing    all {} of them", feature.size())) + "\n";
        return;
    }
    for (const TagCheck* row = feature.begin; row != feature.end; ++row) {
        if (row->verdict != TagVerdict::Fine) addRow(*row);
    }
}

void CheckText::addRow(const TagCheck& row) {
    const auto& keys = row.fact->names;
    const bool named = std::all_of(keys.begin(), keys.end(), [&](const std::string& key) {
        return contains(row.problem, key);  // "is not published"
    });
    const std::string names = named ? "" : styled("2", fmt::format("  for {}", fmt::join(keys, ", ")));
    mText += fmt::format("  {}  {:<10}  {}",
                         styled(styleOf(row.verdict), fmt::format("{:<9}", nameOf(row.verdict))),
                         nameOf(row.fact->use), row.tag());
    mText += row.verdict == TagVerdict::Missing ? "" : "\n                         ";
    mText += wordsOf(row) + names + "\n";
}

void CheckText::addUnused() {
    if (mCheck.unused.empty()) return;
    mText += "\n" + styled("1", "declared by the device, but never looked up") + "\n";
    for (const std::string& name : mCheck.unused) mText += fmt::format("  {}\n", name);
}

void CheckText::addVerdict(const Device& device) {
    const size_t mistyped = mCheck.count(TagVerdict::Mistyped);
    const size_t malformed = mCheck.count(TagVerdict::Malformed);
    const size_t missing = mCheck.count(TagVerdict::Missing);
    if (!device.hasVendorSection) {
        mText += "\nNo vendor tag section in this text: the device may declare further tags.\n";
    }
    if (mCheck.failed()) {
        mText += fmt::format("\n{} mistyped, {} malformed, {} missing\n", mistyped, malformed, missing);
    } else if (missing == mCheck.tags.size()) {
        if (!device.hasVendorSection) return;
        mText += device.hasVendorTags ? "\nThis device declares none of the library's vendor tags.\n"
                                      : "\nThis device has no vendor tags.\n";
    } else {
        mText += missing == 0 ? "\nAll fine.\n"
                              : fmt::format("\nNothing is mistyped or malformed; {} missing.\n", missing);
    }
}

// Returns one count, or a description of the valid counts in words.
nlohmann::ordered_json countsJson(const qz::EntryRow& entry) {
    if (entry.least == entry.most) return entry.least;
    return countText(entry);
}

nlohmann::ordered_json tagJson(const TagCheck& row) {
    nlohmann::ordered_json json{{"tag", row.tag()},
                                {"use", nameOf(row.fact->use)},
                                {"verdict", jsonWord(row.verdict)},
                                {"declared", nullptr},
                                {"expected", typeOf(row.fact->entry)},
                                {"counts", countsJson(row.fact->entry)},
                                {"for", row.fact->names}};
    if (!row.declared.empty()) json["declared"] = row.declared;
    if (!row.problem.empty()) json["what"] = row.problem;
    if (row.values) json["values"] = jsonOf(*row.values);
    return json;
}

}  // namespace

const char* jsonWord(TagVerdict verdict) {
    return verdict == TagVerdict::NoEntry ? "noEntry" : nameOf(verdict);
}

const char* styleOf(TagVerdict verdict) {
    if (verdict == TagVerdict::Mistyped || verdict == TagVerdict::Malformed) return "31";
    return verdict == TagVerdict::Fine ? "32" : verdict == TagVerdict::Doubtful ? "33" : "2";
}

std::string wordsOf(const TagCheck& row) {
    switch (row.verdict) {
        case TagVerdict::Mistyped:
            return fmt::format("declared {}, expected {}: {}", row.declared, typeOf(row.fact->entry),
                               row.problem);
        case TagVerdict::NoEntry:
            return fmt::format("{}, but {}", row.declared, row.problem);
        case TagVerdict::Missing:
            return fmt::format(" ({}){}", typeOf(row.fact->entry),
                               row.problem.empty() ? "" : ": " + row.problem);
        default:
            return row.problem;
    }
}

std::string checkText(const Device& device, const DeviceCheck& check, bool colour) {
    return CheckText(check, colour).text(device);
}

nlohmann::ordered_json checkMembers(const Device& device, const DeviceCheck& check) {
    nlohmann::ordered_json json{{"camera", device.camera}, {"failed", check.failed()}};
    for (const TagVerdict verdict : kAllVerdicts) json["counts"][jsonWord(verdict)] = check.count(verdict);
    json["features"] = nlohmann::ordered_json::array();
    for (const FeatureCheck& feature : byFeature(check)) {
        nlohmann::ordered_json tags = nlohmann::ordered_json::array();
        for (const TagCheck* row = feature.begin; row != feature.end; ++row) tags.push_back(tagJson(*row));
        json["features"].push_back({{"feature", feature.name()}, {"tags", std::move(tags)}});
    }
    json["unused"] = check.unused;
    addFindings(json, device);
    return json;
}

std::string checkJson(const Device& device, const DeviceCheck& check) {
    nlohmann::ordered_json json{{"format", "qzcam-check"},
                                {"version", 1},
                                {"device", device.file},
                                {"camera", device.camera},
                                {"otherCameras", device.otherCameras}};
    json.update(checkMembers(device, check));
    return jsonText(json);
}

}  // namespace qzcam
