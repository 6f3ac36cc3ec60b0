// SPDX-License-Identifier: Apache-2.0
#include "verdict/Check.h"

#include "device/ScopedVendorTags.h"
#include "facts/Tags.h"
#include "host/Camera.h"
#include "host/LogCapture.h"
#include "verdict/EntryCheck.h"

#include <QzName2Tag.h>
#include <fmt/format.h>
#include <rows/Line.h>
#include <utils/Errors.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <set>
#include <tuple>

namespace qzcam {

namespace {

// The device's vendor tags by the full names that the library looks up.
using DeclaredTags = std::map<std::string, const Tag*>;

DeclaredTags declaredTags(const Device& device) {
    const LogListener silence([](const LogEvent&) {});
    std::map<uint32_t, const Tag*> byId;
    for (const Tag& tag : device.vendorTags) byId.emplace(tag.id, &tag);
    DeclaredTags tags;
    for (const TagFact& fact : tagFacts()) {
        if (!isVendorTag(fact.entry.tag)) continue;
        const auto found = byId.find(qz::QzName2Tag::getInstance()->vendorTagFromName(fact.entry.tag));
        if (found != byId.end()) tags.emplace(fact.entry.tag, found->second);
    }
    return tags;
}

// Returns the first error line of each getter, by the tag of the entry that it reads. Lines of the adapter
// are left out, because they are only about counts.
std::map<std::string, std::string> complaints(const Device& device) {
    Trace trace;
    const LogListener listener([&](const LogEvent& line) {
        if (line.tag == qz::kTranslatorLog) addLogLine(trace, line);
    });
    const android::CameraMetadata characteristics = staticCharacteristics(device);
    Camera camera(0, characteristics, [](Message&&) {});
    camera.adapter().watch(&trace);
    camera.translator().metaDataToParam();
    camera.adapter().watch(nullptr);
    std::map<std::string, std::string> texts;
    std::string tag;
    for (const TraceStep& step : trace) {
        if (step.kind == TraceStep::Kind::Static) tag = step.name;
        if (step.kind == TraceStep::Kind::Failure) texts.emplace(tag, step.name);
    }
    return texts;
}

using VerdictCounts = std::array<size_t, kVerdicts>;

// Sorts features by the number of their tags with the worst verdicts, and the tags of a feature by their
// verdicts.
void sortWorstFirst(std::vector<TagCheck>& tags) {
    std::array<VerdictCounts, qz::kFeatureCount> counts{};
    const auto countsOf = [&](qz::Feature feature) -> VerdictCounts& {
        return counts[static_cast<size_t>(feature)];
    };
    for (const TagCheck& tag : tags) ++countsOf(tag.feature)[static_cast<size_t>(tag.verdict)];
    for (VerdictCounts& each : counts) each.back() = 0;  // fine tags do not count
    std::stable_sort(tags.begin(), tags.end(), [&](const TagCheck& a, const TagCheck& b) {
        if (countsOf(a.feature) != countsOf(b.feature)) return countsOf(a.feature) > countsOf(b.feature);
        return std::tie(a.feature, a.verdict) < std::tie(b.feature, b.verdict);
    });
}

template <typename Entry>
const Entry* entryOf(const std::vector<Entry>& entries, uint32_t tag) {
    const auto found =
        std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) { return entry.tag == tag; });
    return found == entries.end() ? nullptr : &*found;
}

class DeviceChecker {
  public:
    explicit DeviceChecker(const Device& device)
        : mDevice(device),
          mTags(device),
          mDeclared(declaredTags(device)),
          mComplaints(complaints(device)),
          mNames(device.vendorTags) {}

    DeviceCheck run() const;

  private:
    TagCheck checkVendorTag(const TagFact& fact) const;
    EntryFinding findingOf(const TagFact& fact, const Tag& tag) const;
    EntryFinding judged(const TagFact& fact, const StaticEntry& entry) const;
    void addStandardEntry(std::vector<TagCheck>& tags, const TagFact& fact) const;
    std::vector<std::string> unused() const;
    bool isUsed(const Tag& tag) const;

    const Device& mDevice;
    const ScopedVendorTags mTags;
    const DeclaredTags mDeclared;
    const std::map<std::string, std::string> mComplaints;
    const TagNames mNames;
};

TagCheck blank(const TagFact& fact) {
    TagCheck check;
    check.tag = fact.entry.tag;
    check.feature = fact.feature;
    check.use = nameOf(fact.use);
    check.names = fact.names;
    check.expected = fact.entry;
    return check;
}

void take(TagCheck& check, EntryFinding finding) {
    check.verdict = finding.verdict;
    check.problem = std::move(finding.problem);
}

EntryFinding missing(const TagFact& fact) {
    if (!lacksSection(fact.entry.tag)) return {TagVerdict::Missing, {}};
    return {TagVerdict::Missing, "looked up without a section: almost no device can declare it"};
}

EntryFinding mistyped(const TagFact& fact) {
    const bool isWritten = fact.use == Use::Request;
    return {TagVerdict::Mistyped, isWritten ? fmt::format("the update fails ({})", android::INVALID_OPERATION)
                                            : "read as empty" + unpublished(fact)};
}

DeviceCheck DeviceChecker::run() const {
    DeviceCheck check;
    for (const TagFact& fact : tagFacts()) {
        if (isVendorTag(fact.entry.tag)) {
            check.tags.push_back(checkVendorTag(fact));
        } else if (fact.use == Use::Capability) {
            addStandardEntry(check.tags, fact);
        }
    }
    sortWorstFirst(check.tags);
    check.unused = unused();
    return check;
}

TagCheck DeviceChecker::checkVendorTag(const TagFact& fact) const {
    TagCheck check = blank(fact);
    const auto found = mDeclared.find(check.tag);
    if (found == mDeclared.end()) {
        take(check, missing(fact));
        return check;
    }
    const Tag& tag = *found->second;
    check.declared = camera_metadata_type_names[tag.type];
    if (tag.type != fact.entry.type) {
        take(check, mistyped(fact));
    } else if (fact.use == Use::Capability) {
        take(check, findingOf(fact, tag));
        if (const StaticEntry* entry = entryOf(mDevice.entries, tag.id)) check.values = entry->values;
    }
    return check;
}

// Adds a standard tag only if its entry cannot be read: all devices declare standard tags, and most have
// their entries.
void DeviceChecker::addStandardEntry(std::vector<TagCheck>& tags, const TagFact& fact) const {
    const Tag* tag = mNames.find(fact.entry.tag);
    if (tag == nullptr) return;
    TagCheck check = blank(fact);
    check.declared = camera_metadata_type_names[tag->type];
    take(check, findingOf(fact, *tag));
    if (check.verdict == TagVerdict::Malformed) tags.push_back(std::move(check));
}

EntryFinding DeviceChecker::findingOf(const TagFact& fact, const Tag& tag) const {
    if (const StaticEntry* entry = entryOf(mDevice.entries, tag.id)) {
        if (entry->values.count > 0) return judged(fact, *entry);
        return {TagVerdict::NoEntry, "this camera's entry has no values"};
    }
    const MistypedEntry* mistyped = entryOf(mDevice.mistyped, tag.id);
    if (mistyped == nullptr) return {TagVerdict::NoEntry, "this camera has no entry"};
    return {TagVerdict::Malformed,
            fmt::format("entry is {}, tag declares {}: read as empty (line {}){}", mistyped->form,
                        camera_metadata_type_names[tag.type], mistyped->line, unpublished(fact))};
}

// Checks an entry against its row, then against the error lines of its getter.
EntryFinding DeviceChecker::judged(const TagFact& fact, const StaticEntry& entry) const {
    EntryFinding finding = checkEntry(fact, entry);
    const auto complaint = mComplaints.find(fact.entry.tag);
    if (finding.verdict != TagVerdict::Fine || complaint == mComplaints.end()) return finding;
    return {TagVerdict::Malformed, "the library logs an error: " + complaint->second};
}

// Returns the other tags in the sections of the library's tags: one of them may be misspelt.
std::vector<std::string> DeviceChecker::unused() const {
    std::set<std::string> sections;
    for (const TagFact& fact : tagFacts()) {
        const std::string name = fact.entry.tag;
        if (isVendorTag(name) && !lacksSection(name)) sections.insert(name.substr(0, name.rfind('.')));
    }
    std::vector<std::string> names;
    for (const Tag& tag : mDevice.vendorTags) {
        if (sections.count(tag.section) != 0 && !isUsed(tag)) names.push_back(tag.fullName());
    }
    return names;
}

bool DeviceChecker::isUsed(const Tag& tag) const {
    return std::any_of(mDeclared.begin(), mDeclared.end(),
                       [&](const auto& row) { return row.second->id == tag.id; });
}

}  // namespace

const char* nameOf(TagVerdict verdict) {
    static constexpr const char* names[] = {"mistyped", "malformed", "doubtful",
                                            "missing",  "no entry",  "fine"};
    static_assert(std::size(names) == kVerdicts);
    return names[static_cast<size_t>(verdict)];
}

size_t DeviceCheck::count(TagVerdict verdict) const {
    return FeatureCheck{tags.data(), tags.data() + tags.size()}.count(verdict);
}

bool DeviceCheck::failed() const { return count(TagVerdict::Mistyped) + count(TagVerdict::Malformed) > 0; }

const char* FeatureCheck::name() const { return qz::kFeatureNames[static_cast<size_t>(begin->feature)]; }

size_t FeatureCheck::count(TagVerdict verdict) const {
    const auto isOne = [&](const TagCheck& row) { return row.verdict == verdict; };
    return static_cast<size_t>(std::count_if(begin, end, isOne));
}

std::vector<FeatureCheck> byFeature(const DeviceCheck& check) {
    std::vector<FeatureCheck> features;
    for (const TagCheck& row : check.tags) {
        const bool isNew = features.empty() || features.back().begin->feature != row.feature;
        if (isNew) features.push_back({&row, &row});
        ++features.back().end;
    }
    return features;
}

DeviceCheck checkDevice(const Device& device) { return DeviceChecker(device).run(); }

}  // namespace qzcam
