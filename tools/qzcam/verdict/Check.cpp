#include "verdict/Check.h"

#include "base/Input.h"
#include "base/WriteAll.h"
#include "facts/Features.h"
#include "facts/Survey.h"
#include "output/Printer.h"
#include "verdict/EntryCheck.h"

#include <QzName2Tag.h>
#include <android/log.h>
#include <fmt/format.h>
#include <utils/Errors.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <optional>
#include <tuple>

namespace qzcam {

namespace {

constexpr const char* kRequest = "request";
constexpr const char* kCapability = "capability";
constexpr const char* kResult = "result";
constexpr const char* kInspection = "inspection";

// The device as the library's resolver sees it.
class DeclaredTags {
  public:
    DeclaredTags(const Device& device, const std::vector<std::string>& names) {
        const auto before = android::VendorTagDescriptor::getGlobalVendorTagDescriptor();
        const LogListener silence([](const LogEvent&) {});
        installVendorTags(device);
        std::map<uint32_t, const Tag*> byId;
        for (const Tag& tag : device.vendorTags) byId.emplace(tag.id, &tag);
        const qz::QzName2Tag* resolver = qz::QzName2Tag::getInstance();
        for (const std::string& name : names) {
            const auto found = byId.find(resolver->vendorTagFromName(name.c_str()));
            if (found != byId.end()) mTags.emplace(name, found->second);
        }
        android::VendorTagDescriptor::setAsGlobalVendorTagDescriptor(before);
    }

    const Tag* find(const std::string& name) const {
        const auto found = mTags.find(name);
        return found == mTags.end() ? nullptr : found->second;
    }
    bool isUsed(const Tag& tag) const {
        return std::any_of(mTags.begin(), mTags.end(),
                           [&](const auto& row) { return row.second->id == tag.id; });
    }

  private:
    std::map<std::string, const Tag*> mTags;
};

void addOnce(std::vector<std::string>& list, const std::string& text) {
    if (!text.empty() && std::find(list.begin(), list.end(), text) == list.end()) list.push_back(text);
}

// What the library does with a tag, before a device is looked at.
struct Wanted {
    TagCheck row;
    std::optional<uint8_t> type;
    std::set<size_t> counts;                // that are written
    const CapabilityFact* entry = nullptr;  // how its static entry is read
};

void takeCapability(Wanted& wanted, const CapabilityFact& fact) {
    for (const std::string& key : fact.forKeys) addOnce(wanted.row.keys, key);
    for (const std::string& key : fact.keys) addOnce(wanted.row.keys, key);
    wanted.row.counts = fact.counts.toText();
    wanted.entry = &fact;
    if (fact.typeSeen) wanted.type = fact.type;
}

class WantedTags {
  public:
    explicit WantedTags(const Survey& survey) : mSurvey(survey) {
        addRequests();
        addCapabilities();
        addResults();
        addInspection();
        for (const std::string& name : survey.names) {
            if (mSeen.count(name) == 0) at(kRequest, name);
        }
    }

    std::vector<Wanted>& rows() { return mRows; }

  private:
    // Null for a tag that is not a vendor's.
    Wanted* at(const char* use, const std::string& tag);
    void addWritten(const std::string& key, const std::vector<Written>& written);
    void addRequests();
    void addCapabilities();
    void addResults();
    void addInspection();

    const Survey& mSurvey;
    std::vector<Wanted> mRows;
    std::set<std::string> mSeen;
};

Wanted* WantedTags::at(const char* use, const std::string& tag) {
    if (!mSurvey.isVendor(tag)) return nullptr;
    mSeen.insert(tag);
    const auto found = std::find_if(mRows.begin(), mRows.end(), [&](const Wanted& wanted) {
        return wanted.row.use == use && wanted.row.tag == tag;
    });
    if (found != mRows.end()) return &*found;
    Wanted& wanted = mRows.emplace_back();
    wanted.row.tag = tag;
    wanted.row.feature = featureOf(tag);
    wanted.row.use = use;
    return &wanted;
}

void WantedTags::addWritten(const std::string& key, const std::vector<Written>& written) {
    for (const Written& row : written) {
        Wanted* wanted = at(kRequest, row.tag);
        if (wanted == nullptr) continue;
        addOnce(wanted->row.keys, key);
        wanted->type = row.values.type;
        wanted->counts.insert(row.values.count);
        const bool oneCount = wanted->counts.size() == 1;
        wanted->row.counts = oneCount ? std::to_string(row.values.count) : "any";
    }
}

void WantedTags::addRequests() {
    for (const ParameterFact& parameter : mSurvey.parameters) {
        for (const Outcome& outcome : parameter.outcomes) addWritten(parameter.key, outcome.written);
    }
    for (const ClientFact& client : mSurvey.clients) addWritten(client.key, client.written);
}

void WantedTags::addCapabilities() {
    for (const CapabilityFact& fact : mSurvey.capabilities) {
        Wanted* wanted = at(kCapability, fact.tag);
        if (wanted != nullptr) takeCapability(*wanted, fact);
    }
}

void WantedTags::addResults() {
    for (const ResultFact& fact : mSurvey.results) {
        Wanted* wanted = at(kResult, fact.tag);
        if (wanted == nullptr) continue;
        for (const Message& message : fact.messages) addOnce(wanted->row.keys, message.name);
        wanted->row.counts = fact.counts.good.empty() ? "" : fact.counts.toText();
        if (fact.typeSeen) wanted->type = fact.type;
    }
}

void WantedTags::addInspection() {
    for (const SizeListFact& fact : mSurvey.sizeLists) {
        Wanted* wanted = at(kInspection, fact.tag);
        if (wanted != nullptr && fact.typeSeen) wanted->type = fact.type;
    }
}

using VerdictCounts = std::array<size_t, kVerdicts>;

// Features by how many of their tags are as bad as can be, tags by how bad they are.
void sortWorstFirst(std::vector<TagCheck>& tags) {
    std::array<VerdictCounts, kFeatures> counts{};
    for (const TagCheck& tag : tags) ++counts[tag.feature][static_cast<size_t>(tag.verdict)];
    for (VerdictCounts& each : counts) each.back() = 0;  // fine ones make nothing worse
    std::stable_sort(tags.begin(), tags.end(), [&](const TagCheck& a, const TagCheck& b) {
        if (counts[a.feature] != counts[b.feature]) return counts[a.feature] > counts[b.feature];
        return std::tie(a.feature, a.verdict) < std::tie(b.feature, b.verdict);
    });
}

template <typename Entry>
const Entry* entryOf(const std::vector<Entry>& entries, uint32_t tag) {
    const auto found =
        std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) { return entry.tag == tag; });
    return found == entries.end() ? nullptr : &*found;
}

std::string consequence(const Wanted& wanted) {
    return wanted.entry == nullptr ? std::string() : unpublished(wanted.entry->keys);
}

class DeviceChecker {
  public:
    DeviceChecker(const Device& device, Probe& probe, const Survey& survey)
        : mDevice(device), mProbe(probe), mSurvey(survey), mDeclared(device, survey.names) {}

    DeviceCheck run();

  private:
    void judge(Wanted& wanted);
    void addStandardEntries(std::vector<TagCheck>& tags);
    void judgeEntry(Wanted& wanted, const Tag& tag);
    EntryFinding findingOf(const CapabilityFact& fact, const Tag& tag);
    std::vector<std::string> unused() const;

    const Device& mDevice;
    Probe& mProbe;
    const Survey& mSurvey;
    DeclaredTags mDeclared;
};

DeviceCheck DeviceChecker::run() {
    DeviceCheck check;
    WantedTags wanted(mSurvey);
    for (Wanted& row : wanted.rows()) {
        judge(row);
        check.tags.push_back(std::move(row.row));
    }
    addStandardEntries(check.tags);
    sortWorstFirst(check.tags);
    check.unused = unused();
    return check;
}

void DeviceChecker::judge(Wanted& wanted) {
    TagCheck& row = wanted.row;
    if (wanted.type) row.expected = camera_metadata_type_names[*wanted.type];
    const Tag* tag = mDeclared.find(row.tag);
    if (tag == nullptr) {
        row.verdict = TagVerdict::Missing;
        if (mSurvey.withoutSection.count(row.tag) != 0) {
            row.what = "asked for without a section, so that hardly any device can declare it";
        }
        return;
    }
    row.declared = camera_metadata_type_names[tag->type];
    if (wanted.type && tag->type != *wanted.type) {
        row.verdict = TagVerdict::Mistyped;
        row.what = row.use == kRequest ? fmt::format("the update fails ({})", android::INVALID_OPERATION)
                                       : "read as empty" + consequence(wanted);
        return;
    }
    if (wanted.entry != nullptr) judgeEntry(wanted, *tag);
}

// Standard tags are declared everywhere, and most devices have their entries: listed are those that cannot be
// read.
void DeviceChecker::addStandardEntries(std::vector<TagCheck>& tags) {
    const TagNames names(mDevice.vendorTags);
    for (const CapabilityFact& fact : mSurvey.capabilities) {
        const Tag* tag = mSurvey.isVendor(fact.tag) ? nullptr : names.find(fact.tag);
        if (tag == nullptr) continue;
        Wanted wanted;
        wanted.row.tag = fact.tag;
        wanted.row.feature = featureOf(fact.tag);
        wanted.row.use = kCapability;
        wanted.row.declared = wanted.row.expected = camera_metadata_type_names[tag->type];
        takeCapability(wanted, fact);
        judgeEntry(wanted, *tag);
        if (wanted.row.verdict == TagVerdict::Malformed) tags.push_back(std::move(wanted.row));
    }
}

void DeviceChecker::judgeEntry(Wanted& wanted, const Tag& tag) {
    EntryFinding finding = findingOf(*wanted.entry, tag);
    wanted.row.verdict = finding.verdict;
    wanted.row.what = std::move(finding.what);
}

EntryFinding DeviceChecker::findingOf(const CapabilityFact& fact, const Tag& tag) {
    if (const StaticEntry* entry = entryOf(mDevice.entries, tag.id)) {
        if (entry->values.count > 0) return checkEntry(mProbe, fact, entry->values, entry->cut);
        return {TagVerdict::NoEntry, "this camera's entry is without values"};
    }
    const MistypedEntry* mistyped = entryOf(mDevice.mistyped, tag.id);
    if (mistyped == nullptr) return {TagVerdict::NoEntry, "this camera has no entry"};
    return {TagVerdict::Malformed,
            fmt::format("entry is {}, tag declares {}: read as empty (line {}){}", mistyped->form,
                        camera_metadata_type_names[tag.type], mistyped->line, unpublished(fact.keys))};
}

// Where the library's own tags stand, a misspelt one may stand too.
std::vector<std::string> DeviceChecker::unused() const {
    std::set<std::string> sections;
    for (const std::string& name : mSurvey.names) {
        if (mSurvey.withoutSection.count(name) == 0) sections.insert(name.substr(0, name.rfind('.')));
    }
    std::vector<std::string> names;
    for (const Tag& tag : mDevice.vendorTags) {
        if (sections.count(tag.section) != 0 && !mDeclared.isUsed(tag)) names.push_back(tag.fullName());
    }
    return names;
}

std::string otherCamerasText(const Device& device) {
    if (device.otherCameras.empty()) return {};
    return fmt::format("  other cameras: {}; --camera chooses one\n", fmt::join(device.otherCameras, ", "));
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

const char* FeatureCheck::name() const { return featureName(begin->feature); }

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

DeviceCheck checkDevice(const Device& device, Probe& probe, const Survey& survey) {
    return DeviceChecker(device, probe, survey).run();
}

DeviceCheck checkDevice(const Device& device) {
    Probe probe;
    const Survey survey = surveyLibrary(probe, Depth::Tags);
    return checkDevice(device, probe, survey);
}

ExitStatus check(const CheckOptions& options) {
    const auto input = readDevice(options.device, options.camera);
    if (!input) return kBadInput;
    const DeviceCheck result = checkDevice(input->device);
    const bool colour = wantsColour(stdout);
    std::string text;
    if (options.json) {
        text = checkJson(input->device, result);
    } else {
        Printer(stdout, colour, ANDROID_LOG_SILENT).device(input->device);
        text = otherCamerasText(input->device) + "\n" + checkText(input->device, result, colour);
    }
    if (!writeAll(stdout, text) || !input->whole) return kBadInput;
    return result.failed() ? kExpectationFailed : kFine;
}

}  // namespace qzcam
