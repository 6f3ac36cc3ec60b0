// SPDX-License-Identifier: Apache-2.0
#include "verdict/Check.h"

#include "base/Lists.h"
#include "device/ScopedVendorTags.h"
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
std::map<std::string, std::string> errorLines(const Device& device) {
    PassSteps steps;
    const LogListener listener([&](const LogEvent& line) {
        if (line.tag == qz::kTranslatorLog) addLogLine(steps, line);
    });
    const android::CameraMetadata characteristics = staticCharacteristics(device);
    Camera camera(0, characteristics, [](Message&&) {});
    camera.adapter().watch(&steps);
    camera.translator().metaDataToParam();
    camera.adapter().watch(nullptr);
    std::map<std::string, std::string> texts;
    std::string tag;
    for (const PassStep& step : steps) {
        if (step.kind == PassStep::Kind::Static) tag = step.name;
        if (step.kind == PassStep::Kind::Failure) texts.emplace(tag, step.name);
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
    for (const TagCheck& tag : tags) ++countsOf(tag.fact->feature)[static_cast<size_t>(tag.verdict)];
    for (VerdictCounts& each : counts) each.back() = 0;  // fine tags do not count
    std::stable_sort(tags.begin(), tags.end(), [&](const TagCheck& a, const TagCheck& b) {
        const VerdictCounts& ofA = countsOf(a.fact->feature);
        const VerdictCounts& ofB = countsOf(b.fact->feature);
        if (ofA != ofB) return ofA > ofB;
        return std::tie(a.fact->feature, a.verdict) < std::tie(b.fact->feature, b.verdict);
    });
}

template <typename Entry>
const Entry* entryOf(const std::vector<Entry>& entries, uint32_t tag) {
    return findIf(entries, [&](const Entry& entry) { return entry.tag == tag; });
}

class DeviceChecker {
  public:
    explicit DeviceChecker(const Device& device)
        : mDevice(device),
          mTags(device),
          mDeclared(declaredTags(device)),
          mErrors(errorLines(device)),
          mNames(device.vendorTags) {}

    DeviceCheck run() const;

  private:
    const Tag* tagOf(const TagFact& fact) const;
    TagCheck checkTag(const TagFact& fact) const;
    TagFinding checkStatic(const TagFact& fact, const Tag& tag) const;
    TagFinding checkValues(const TagFact& fact, const StaticEntry& entry) const;
    std::vector<std::string> unused() const;
    bool isUsed(const Tag& tag) const;

    const Device& mDevice;
    const ScopedVendorTags mTags;
    const DeclaredTags mDeclared;
    const std::map<std::string, std::string> mErrors;
    const TagNames mNames;
};

TagFinding missing(const TagFact& fact) {
    if (!lacksSection(fact.entry.tag)) return {TagVerdict::Missing, {}};
    return {TagVerdict::Missing, "looked up without a section: almost no device can declare it"};
}

TagFinding mistyped(const TagFact& fact) {
    const bool isWritten = fact.use == Use::Request;
    return {TagVerdict::Mistyped, isWritten ? fmt::format("the update fails ({})", android::INVALID_OPERATION)
                                            : "read as empty" + unpublished(fact)};
}

DeviceCheck DeviceChecker::run() const {
    DeviceCheck check;
    for (const TagFact& fact : tagFacts()) {
        const bool isVendors = isVendorTag(fact.entry.tag);
        if (!isVendors && fact.use != Use::Capability) continue;
        TagCheck tag = checkTag(fact);
        // All devices declare standard tags, and most have their entries.
        if (isVendors || tag.verdict == TagVerdict::Malformed) check.tags.push_back(std::move(tag));
    }
    sortWorstFirst(check.tags);
    check.unused = unused();
    return check;
}

const Tag* DeviceChecker::tagOf(const TagFact& fact) const {
    if (!isVendorTag(fact.entry.tag)) return mNames.find(fact.entry.tag);
    const Tag* const* declared = findValue(mDeclared, fact.entry.tag);
    return declared == nullptr ? nullptr : *declared;
}

TagCheck DeviceChecker::checkTag(const TagFact& fact) const {
    const Tag* tag = tagOf(fact);
    if (tag == nullptr) return {missing(fact), &fact, {}, {}};
    const char* declared = typeName(tag->type);
    if (tag->type != fact.entry.type) return {mistyped(fact), &fact, declared, {}};
    if (fact.use != Use::Capability) return {{}, &fact, declared, {}};
    TagCheck check{checkStatic(fact, *tag), &fact, declared, {}};
    if (const StaticEntry* entry = entryOf(mDevice.entries, tag->id)) check.values = entry->values;
    return check;
}

TagFinding DeviceChecker::checkStatic(const TagFact& fact, const Tag& tag) const {
    if (const StaticEntry* entry = entryOf(mDevice.entries, tag.id)) {
        if (entry->values.count > 0) return checkValues(fact, *entry);
        return {TagVerdict::NoEntry, "this camera's entry has no values"};
    }
    const MistypedEntry* mistyped = entryOf(mDevice.mistyped, tag.id);
    if (mistyped == nullptr) return {TagVerdict::NoEntry, "this camera has no entry"};
    return {TagVerdict::Malformed,
            fmt::format("entry is {}, tag declares {}: read as empty (line {}){}", mistyped->form,
                        camera_metadata_type_names[tag.type], mistyped->line, unpublished(fact))};
}

// Checks an entry against its row, then against the error lines of its getter.
TagFinding DeviceChecker::checkValues(const TagFact& fact, const StaticEntry& entry) const {
    TagFinding finding = checkEntry(fact, entry);
    const std::string* error = findValue(mErrors, fact.entry.tag);
    if (finding.verdict != TagVerdict::Fine || error == nullptr) return finding;
    return {TagVerdict::Malformed, "the library logs an error: " + *error};
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
    return anyOf(mDeclared, [&](const auto& row) { return row.second->id == tag.id; });
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

const char* FeatureCheck::name() const {
    return qz::kFeatureNames[static_cast<size_t>(begin->fact->feature)];
}

size_t FeatureCheck::count(TagVerdict verdict) const {
    const auto isOne = [&](const TagCheck& row) { return row.verdict == verdict; };
    return static_cast<size_t>(std::count_if(begin, end, isOne));
}

std::vector<FeatureCheck> byFeature(const DeviceCheck& check) {
    std::vector<FeatureCheck> features;
    for (const TagCheck& row : check.tags) {
        const bool isNew = features.empty() || features.back().begin->fact->feature != row.fact->feature;
        if (isNew) features.push_back({&row, &row});
        ++features.back().end;
    }
    return features;
}

DeviceCheck checkDevice(const Device& device) { return DeviceChecker(device).run(); }

}  // namespace qzcam
