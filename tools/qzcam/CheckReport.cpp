// What a check found, for people and for programs.
#include "Check.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>

namespace qzcam {

namespace {

constexpr std::array<TagVerdict, kVerdicts> kAll{TagVerdict::Mistyped, TagVerdict::Malformed,
                                                 TagVerdict::Doubtful, TagVerdict::Missing,
                                                 TagVerdict::NoEntry,  TagVerdict::Fine};

class Report {
  public:
    Report(const DeviceCheck& check, bool colour) : mCheck(check), mColour(colour) {}

    std::string text(const Device& device);

  private:
    void addSummary();
    void addGroup(const std::string& group);
    void addRow(const TagCheck& row);
    void addMissing(const std::string& group);
    void addUnused();
    void addVerdict(const Device& device);
    std::string styled(const char* style, const std::string& text) const {
        return mColour ? fmt::format("\033[{}m{}\033[0m", style, text) : text;
    }

    const DeviceCheck& mCheck;
    bool mColour;
    std::string mText;
};

const char* styleOf(TagVerdict verdict) {
    if (verdict == TagVerdict::Mistyped || verdict == TagVerdict::Malformed) return "31";
    return verdict == TagVerdict::Fine ? "32" : verdict == TagVerdict::Doubtful ? "33" : "2";
}

std::string Report::text(const Device& device) {
    addSummary();
    for (const std::string& group : mCheck.groups()) addGroup(group);
    addUnused();
    addVerdict(device);
    return std::move(mText);
}

void Report::addSummary() {
    mText += fmt::format("{:<14}{:>9}", "", "looked up");
    for (const TagVerdict verdict : kAll) mText += fmt::format("{:>11}", nameOf(verdict));
    mText += "\n";
    for (const std::string& group : mCheck.groups()) {
        size_t all = 0;
        std::string counts;
        for (const TagVerdict verdict : kAll) {
            const size_t count = mCheck.count(group, verdict);
            all += count;
            const std::string number = fmt::format("{:>11}", count == 0 ? "-" : fmt::to_string(count));
            counts += count == 0 ? number : styled(styleOf(verdict), number);
        }
        mText += fmt::format("{:<14}{:>9}{}\n", group, all, counts);
    }
}

// What is wrong, tag by tag; what is missing altogether, in a word.
void Report::addGroup(const std::string& group) {
    const size_t missing = mCheck.count(group, TagVerdict::Missing);
    const auto isWorthARow = [&](const TagCheck& row) {
        return row.group == group && row.verdict != TagVerdict::Fine && row.verdict != TagVerdict::Missing;
    };
    const bool hasRows = std::any_of(mCheck.tags.begin(), mCheck.tags.end(), isWorthARow);
    if (!hasRows && missing == 0) return;
    mText += "\n" + styled("1", group) + "\n";
    for (const TagCheck& row : mCheck.tags) {
        if (isWorthARow(row)) addRow(row);
    }
    if (missing > 0) addMissing(group);
}

void Report::addRow(const TagCheck& row) {
    std::string what = row.what;
    if (row.verdict == TagVerdict::Mistyped) {
        what = fmt::format("declared {}, expected {}: {}", row.declared, row.expected, row.what);
    } else if (row.verdict == TagVerdict::NoEntry) {
        what = fmt::format("{}, but this camera has no entry", row.declared);
    }
    mText += fmt::format("  {}  {}\n",
                         styled(styleOf(row.verdict), fmt::format("{:<9}", nameOf(row.verdict))), row.tag);
    mText += fmt::format("             {}", what);
    if (!row.keys.empty()) mText += styled("2", fmt::format("  for {}", fmt::join(row.keys, ", ")));
    mText += "\n";
}

void Report::addMissing(const std::string& group) {
    const bool all = mCheck.count(group, TagVerdict::Missing) ==
                     static_cast<size_t>(std::count_if(mCheck.tags.begin(), mCheck.tags.end(),
                                                       [&](const auto& row) { return row.group == group; }));
    if (all) {
        mText += styled("2", "  missing    all of them") + "\n";
        return;
    }
    for (const TagCheck& row : mCheck.tags) {
        if (row.group != group || row.verdict != TagVerdict::Missing) continue;
        mText += fmt::format("  {}  {}", styled("2", "missing  "), row.tag);
        if (!row.expected.empty()) mText += fmt::format(" ({})", row.expected);
        if (!row.what.empty()) mText += fmt::format(": {}", row.what);
        if (!row.keys.empty()) mText += styled("2", fmt::format("  for {}", fmt::join(row.keys, ", ")));
        mText += "\n";
    }
}

void Report::addUnused() {
    if (mCheck.unused.empty()) return;
    mText += "\n" + styled("1", "declared beside them, but never looked up") + "\n";
    for (const std::string& name : mCheck.unused) mText += fmt::format("  {}\n", name);
}

void Report::addVerdict(const Device& device) {
    const size_t mistyped = mCheck.count({}, TagVerdict::Mistyped);
    const size_t malformed = mCheck.count({}, TagVerdict::Malformed);
    const size_t missing = mCheck.count({}, TagVerdict::Missing);
    if (mCheck.failed()) {
        mText += fmt::format("\n{} mistyped, {} malformed\n", mistyped, malformed);
    } else if (missing == mCheck.tags.size()) {
        mText += device.hasVendorTags ? "\nThis device declares none of the library's vendor tags.\n"
                                      : "\nThis device has no vendor tags at all.\n";
    } else {
        mText += missing == 0 ? "\nAll fine.\n"
                              : fmt::format("\nNothing is mistyped or malformed; {} missing.\n", missing);
    }
}

nlohmann::ordered_json tagJson(const TagCheck& row) {
    nlohmann::ordered_json json{{"tag", row.tag},       {"verdict", nameOf(row.verdict)},
                                {"declared", nullptr},  {"expected", nullptr},
                                {"counts", row.counts}, {"for", row.keys}};
    if (!row.declared.empty()) json["declared"] = row.declared;
    if (!row.expected.empty()) json["expected"] = row.expected;
    if (!row.what.empty()) json["what"] = row.what;
    return json;
}

}  // namespace

std::string checkText(const Device& device, const DeviceCheck& check, bool colour) {
    return Report(check, colour).text(device);
}

std::string checkJson(const Device& device, const DeviceCheck& check) {
    nlohmann::ordered_json json{
        {"format", 1}, {"device", device.file}, {"camera", device.camera}, {"failed", check.failed()}};
    for (const TagVerdict verdict : kAll) json["counts"][nameOf(verdict)] = check.count({}, verdict);
    json["groups"] = nlohmann::ordered_json::array();
    for (const std::string& group : check.groups()) {
        nlohmann::ordered_json tags = nlohmann::ordered_json::array();
        for (const TagCheck& row : check.tags) {
            if (row.group == group) tags.push_back(tagJson(row));
        }
        json["groups"].push_back({{"group", group}, {"tags", std::move(tags)}});
    }
    json["unused"] = check.unused;
    // Names come out of files; what is no text in them must not stop the report.
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace qzcam
