#include "Check.h"

#include "EntryCheck.h"
#include "Input.h"
#include "Printer.h"
#include "Survey.h"
#include "WriteAll.h"

#include <QzName2Tag.h>
#include <android/log.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>

namespace qzcam {

namespace {

constexpr const char* kRequests = "requests";
constexpr const char* kCapabilities = "capabilities";
constexpr const char* kResults = "results";
constexpr const char* kInspection = "inspection";
constexpr size_t kShownOfCutList = 16;

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

class WantedTags {
  public:
    explicit WantedTags(const Survey& survey) : mSurvey(survey) {
        addRequests();
        addCapabilities();
        addResults();
        addInspection();
        for (const std::string& name : survey.names) {
            if (mSeen.count(name) == 0) at(kRequests, name);
        }
    }

    std::vector<Wanted>& rows() { return mRows; }

  private:
    // Null for a tag that is not a vendor's.
    Wanted* at(const char* group, const std::string& tag);
    void addWritten(const std::string& key, const std::vector<Written>& written);
    void addRequests();
    void addCapabilities();
    void addResults();
    void addInspection();

    const Survey& mSurvey;
    std::vector<Wanted> mRows;
    std::set<std::string> mSeen;
};

Wanted* WantedTags::at(const char* group, const std::string& tag) {
    if (!mSurvey.isVendor(tag)) return nullptr;
    mSeen.insert(tag);
    const auto found = std::find_if(mRows.begin(), mRows.end(), [&](const Wanted& wanted) {
        return wanted.row.group == group && wanted.row.tag == tag;
    });
    if (found != mRows.end()) return &*found;
    Wanted& wanted = mRows.emplace_back();
    wanted.row.group = group;
    wanted.row.tag = tag;
    return &wanted;
}

void WantedTags::addWritten(const std::string& key, const std::vector<Written>& written) {
    for (const Written& row : written) {
        Wanted* wanted = at(kRequests, row.tag);
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
        Wanted* wanted = at(kCapabilities, fact.tag);
        if (wanted == nullptr) continue;
        addOnce(wanted->row.keys, fact.forKey);
        for (const std::string& key : fact.keys) addOnce(wanted->row.keys, key);
        wanted->row.counts = fact.counts.toText();
        wanted->entry = &fact;
        if (fact.typeSeen) wanted->type = fact.type;
    }
}

void WantedTags::addResults() {
    for (const ResultFact& fact : mSurvey.results) {
        Wanted* wanted = at(kResults, fact.tag);
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

class DeviceChecker {
  public:
    DeviceChecker(const Device& device, Probe& probe, const Survey& survey)
        : mDevice(device), mProbe(probe), mSurvey(survey), mDeclared(device, survey.names) {}

    DeviceCheck run();

  private:
    void judge(Wanted& wanted);
    void judgeEntry(Wanted& wanted, const Tag& tag);
    std::vector<std::string> unused() const;
    const StaticEntry* entryOf(uint32_t tag) const;

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
    std::stable_sort(check.tags.begin(), check.tags.end(),
                     [](const TagCheck& a, const TagCheck& b) { return a.verdict < b.verdict; });
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
        row.what = row.group == kRequests ? "the request refuses it" : "counts as an empty entry";
        return;
    }
    if (wanted.entry != nullptr) judgeEntry(wanted, *tag);
}

void DeviceChecker::judgeEntry(Wanted& wanted, const Tag& tag) {
    const StaticEntry* entry = entryOf(tag.id);
    if (entry == nullptr || entry->values.count == 0) {
        wanted.row.verdict = TagVerdict::NoEntry;
        return;
    }
    const bool cut = mDevice.cutLists > 0 && entry->values.count == kShownOfCutList;
    EntryFinding finding = checkEntry(mProbe, *wanted.entry, entry->values, cut);
    wanted.row.verdict = finding.verdict;
    wanted.row.what = std::move(finding.what);
}

const StaticEntry* DeviceChecker::entryOf(uint32_t tag) const {
    const auto found = std::find_if(mDevice.entries.begin(), mDevice.entries.end(),
                                    [&](const StaticEntry& entry) { return entry.tag == tag; });
    return found == mDevice.entries.end() ? nullptr : &*found;
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

}  // namespace

const char* nameOf(TagVerdict verdict) {
    static constexpr const char* names[] = {"mistyped", "malformed", "doubtful",
                                            "missing",  "no entry",  "fine"};
    static_assert(std::size(names) == kVerdicts);
    return names[static_cast<size_t>(verdict)];
}

size_t DeviceCheck::count(const std::string& group, TagVerdict verdict) const {
    const auto isOne = [&](const TagCheck& row) {
        return (group.empty() || row.group == group) && row.verdict == verdict;
    };
    return static_cast<size_t>(std::count_if(tags.begin(), tags.end(), isOne));
}

bool DeviceCheck::failed() const {
    return count({}, TagVerdict::Mistyped) + count({}, TagVerdict::Malformed) > 0;
}

// In the order of their worst tags.
std::vector<std::string> DeviceCheck::groups() const {
    std::vector<std::string> names;
    for (const TagCheck& row : tags) addOnce(names, row.group);
    return names;
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
        text = "\n" + checkText(input->device, result, colour);
    }
    if (!writeAll(stdout, text) || !input->whole) return kBadInput;
    return result.failed() ? kExpectationFailed : kFine;
}

}  // namespace qzcam
