// SPDX-License-Identifier: Apache-2.0
#include "facts/Tags.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "facts/Lookup.h"

#include <callback/Results.h>
#include <capabilities/Capabilities.h>
#include <inspect/SizeLists.h>
#include <request/Parameters.h>
#include <tags/TagNames.h>

#include <map>
#include <unordered_map>

namespace qzcam {

namespace {

void addOnce(std::vector<std::string>& names, const char* name) {
    if (!hasElement(names, name)) names.emplace_back(name);
}

class TagFacts {
  public:
    TagFacts() {
        for (const qz::Parameter& row : qz::kParameters) addWritten(row);
        for (const qz::Parameter& row : qz::kParameters) addUsed(row);
        for (const qz::CapabilityRow& row : qz::kCapabilities) add(row);
        for (const qz::ResultRow& row : qz::kResults) add(row);
        for (const qz::EntryRow& entry : qz::kSizeLists) at(Use::Inspection, entry, featureOf(entry));
    }

    std::vector<TagFact> facts;

  private:
    qz::Feature featureOf(const qz::EntryRow& entry) const;
    TagFact& at(Use use, const qz::EntryRow& entry, qz::Feature feature);
    void addWritten(const qz::Parameter& row);
    void addUsed(const qz::Parameter& row);
    void add(const qz::CapabilityRow& row);
    void add(const qz::ResultRow& row);
};

// Inspection reads entries that getters read, too.
qz::Feature TagFacts::featureOf(const qz::EntryRow& entry) const {
    const TagFact* known =
        findIf(facts, [&](const TagFact& fact) { return qz::sameText(fact.entry.tag, entry.tag); });
    return known == nullptr ? qz::Feature::image : known->feature;
}

TagFact& TagFacts::at(Use use, const qz::EntryRow& entry, qz::Feature feature) {
    TagFact* known = findIf(facts, [&](const TagFact& fact) {
        return fact.use == use && qz::sameText(fact.entry.tag, entry.tag);
    });
    if (known != nullptr) return *known;
    facts.push_back({use, entry, feature, {}, nullptr, nullptr});
    return facts.back();
}

void TagFacts::addWritten(const qz::Parameter& row) {
    for (size_t i = 0; i < row.entries.count; ++i) {
        TagFact& fact = at(Use::Request, row.entries[i], row.feature);
        for (const qz::KeyRow& key : row.keys) {
            if (ownsEntry(row, key, i)) addOnce(fact.names, key.name);
        }
    }
}

void TagFacts::addUsed(const qz::Parameter& row) {
    for (const qz::EntryRow& entry : row.uses) {
        TagFact& fact = at(Use::Capability, entry, row.feature);
        for (const qz::KeyRow& key : row.keys) addOnce(fact.names, key.name);
    }
}

// A getter with as many keys as entries publishes one key for each entry.
void TagFacts::add(const qz::CapabilityRow& row) {
    const bool inPairs = row.entries.count > 1 && row.publishes.count == row.entries.count;
    for (size_t i = 0; i < row.entries.count; ++i) {
        TagFact& fact = at(Use::Capability, row.entries[i], row.feature);
        fact.capability = &row;
        for (size_t j = 0; j < row.publishes.count; ++j) {
            if (inPairs && i != j) continue;
            addOnce(fact.names, row.publishes[j].key);
            const bool hasForm =
                fact.publication != nullptr && fact.publication->form != qz::Publication::Form::own;
            if (!hasForm) fact.publication = &row.publishes[j];
        }
    }
}

void TagFacts::add(const qz::ResultRow& row) {
    const qz::MessageRow* message = qz::findMessage(row.message, row.kind);
    for (const qz::EntryRow& entry : row.entries) {
        TagFact& fact = at(Use::Result, entry, row.feature);
        if (message != nullptr) addOnce(fact.names, message->name);
    }
}

std::vector<Tag> declaredTags() {
    std::vector<Tag> tags;
    for (const TagFact& fact : tagFacts()) {
        const std::string name = fact.entry.tag;
        if (!isVendorTag(name)) continue;
        const auto id = static_cast<uint32_t>(CAMERA_METADATA_VENDOR_TAG_BOUNDARY + tags.size());
        const size_t behind = name.rfind('.') + 1;  // 0 for a name without a section
        tags.push_back({id, TYPE_BYTE, behind == 0 ? "" : name.substr(0, behind - 1), name.substr(behind)});
    }
    return tags;
}

constexpr const char* kNoFeature = "other";

}  // namespace

const char* nameOf(Use use) {
    constexpr const char* names[] = {"request", "capability", "result", "inspection"};
    return names[static_cast<size_t>(use)];
}

const std::vector<TagFact>& tagFacts() {
    static const std::vector<TagFact> facts = TagFacts().facts;
    return facts;
}

std::vector<std::string> capabilityNames() {
    std::vector<std::string> names;
    for (const TagFact& fact : tagFacts()) {
        if (fact.capability != nullptr && isVendorTag(fact.entry.tag)) names.emplace_back(fact.entry.tag);
    }
    return names;
}

Side sideOf(Use use) {
    if (use == Use::Request) return Side::Request;
    return use == Use::Result ? Side::Result : Side::Static;
}

const std::set<std::string>& tagsOf(Side side) {
    static const auto all = [] {
        std::map<Side, std::set<std::string>> tags;
        for (const TagFact& fact : tagFacts()) tags[sideOf(fact.use)].insert(fact.entry.tag);
        return tags;
    }();
    return all.at(side);
}

std::string shortName(const std::string& tag) {
    for (const std::string_view section : {CAPTURE(""), CAPABILITY("")}) {
        if (startsWith(tag, section)) return tag.substr(section.size());
    }
    return tag;
}

bool isVendorTag(const std::string& name) { return !startsWith(name, "android."); }

bool lacksSection(const std::string& name) { return name.find('.') == std::string::npos; }

const char* featureOfTag(const std::string& fullName) {
    static const std::unordered_map<std::string, const char*> features = [] {
        std::unordered_map<std::string, const char*> all;
        for (const TagFact& fact : tagFacts()) all.emplace(fact.entry.tag, nameOf(fact.feature));
        return all;
    }();
    const char* const* found = findValue(features, fullName);
    return found == nullptr ? kNoFeature : *found;
}

const char* featureOfKey(const std::string& key) {
    const auto rows = rowsOf(key);
    if (!rows.empty()) return nameOf(rows.front()->feature);
    const qz::CapabilityRow* publisher = findPublisher(key);
    return publisher == nullptr ? kNoFeature : nameOf(publisher->feature);
}

const TagNames& libraryTags() {
    static const TagNames names(declaredTags());
    return names;
}

}  // namespace qzcam
