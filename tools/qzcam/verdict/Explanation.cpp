// SPDX-License-Identifier: Apache-2.0
#include "verdict/Explanation.h"

#include "facts/Hints.h"
#include "facts/Lookup.h"
#include "host/EventWords.h"
#include "host/LogCapture.h"
#include "verdict/KeyValue.h"
#include "verdict/RowSteps.h"

#include <camera/VendorTagDescriptor.h>
#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace qzcam {

namespace {

using Row = qz::Parameter;
constexpr char kMeaningless[] = "no such word";

std::string writtenText(const std::vector<VerdictEntry>& rows) {
    std::string text;
    for (const VerdictEntry& row : rows) {
        // Not a tag: the numbers in vendor entries have no names.
        if (row.values.count > 0)
            text += (text.empty() ? "" : "; ") + toText(row.values, CAMERA_METADATA_VENDOR_TAG_BOUNDARY);
    }
    return text;
}

bool readsAs(const std::vector<const Row*>& rows, const std::string& key, qz::KeyRow::As as) {
    return std::any_of(rows.begin(), rows.end(), [&](const Row* row) {
        const qz::KeyRow::As how = keyIn(*row, key)->as;
        return how == as || how == qz::KeyRow::As::textAndInteger;
    });
}

// Returns further parameters with which the row writes an entry on a complete device. They open its gates and
// set its other keys.
Texts companyOf(const Row& row, const std::string& key) {
    Texts texts;
    if (row.gated(qz::Gate::lightPainting)) texts["qz-exposure-mode"] = "super-night";
    for (const qz::KeyRow& other : row.keys) {
        if (other.name != key && row.gated(qz::Gate::allKeys))
            texts[other.name] = examplesOf(row, other).front();
    }
    return texts;
}

void addLine(std::vector<std::string>& lines, const std::string& line) {
    if (!line.empty() && std::find(lines.begin(), lines.end(), line) == lines.end()) lines.push_back(line);
}

std::vector<std::string> conditionsOf(const std::vector<const Row*>& rows, const std::string& key) {
    std::vector<std::string> lines;
    for (const Row* row : rows) {
        const qz::KeyRow& own = *keyIn(*row, key);
        if (own.condition) addLine(lines, fmt::format("also decides about {}", row->keys[0].name));
        if (own.note != nullptr) addLine(lines, own.note);
        for (const qz::Gate gate : row->gates)
            addLine(lines, fmt::format("{}: {}", row->setter, textOf(gate)));
        for (const char* property : row->properties)
            addLine(lines, fmt::format("{}: property {} decides, too", row->setter, property));
    }
    return lines;
}

}  // namespace

std::string whyUnread(const std::string& key) {
    const KeyOwner owner = ownerOf(key);
    if (owner != KeyOwner::None) return fmt::format("; {}", meaningOf(owner));
    const std::string note = noteOnHostKey(key);
    if (!note.empty()) return "; " + note;
    if (key.find('=') != std::string::npos) return "; a value goes into --params KEY=VALUE";
    const auto writing = keysWriting(key);
    if (!writing.empty())
        return fmt::format("; it is a tag, which is written for {}", fmt::join(writing, ", "));
    return perhaps(likelyKeys(key));
}

Explainer::Explainer(const Device& device)
    : mNames(device.vendorTags), mVerdicts(device, mNames, mCharacteristics) {
    installVendorTags(device);
    mCharacteristics = staticCharacteristics(device);
}

Explainer::~Explainer() { android::VendorTagDescriptor::clearGlobalVendorTagDescriptor(); }

std::optional<Explanation> Explainer::explain(const std::string& key, const Texts& given) {
    const auto rows = rowsOf(key);
    if (rows.empty()) return std::nullopt;
    Explanation found;
    found.key = key;
    found.asText = readsAs(rows, key, qz::KeyRow::As::text);
    found.asInteger = readsAs(rows, key, qz::KeyRow::As::integer);
    for (const Row* row : rows) found.setters.emplace_back(row->setter);
    found.conditions = conditionsOf(rows, key);
    found.company = given;
    const Texts company = companyOf(*rows.front(), key);
    found.company.insert(company.begin(), company.end());
    found.company.erase(key);
    addValues(found, *rows.front());
    addTargets(found);
    addChoices(found, rows);
    addLimits(found, *rows.front());
    if (const auto value = given.find(key); value != given.end()) {
        found.company = given;
        found.given = verdictOn(found, value->second);
    }
    return found;
}

void Explainer::addValues(Explanation& found, const Row& row) {
    const qz::KeyRow& key = *keyIn(row, found.key);
    found.hasVocabulary = !wordsOf(row, key).empty();
    for (const std::string& value : examplesOf(row, key)) {
        VerdictRow verdict = verdictOn(found, value);
        found.values.push_back({value, writtenText(verdict.entries), std::move(verdict)});
    }
    if (!found.asText || key.form == qz::KeyRow::Form::name) return;
    VerdictRow verdict = verdictOn(found, kMeaningless);
    found.otherwise = Explanation::Value{"any other text", writtenText(verdict.entries), std::move(verdict)};
}

void Explainer::addTargets(Explanation& found) {
    for (const Explanation::Value& value : found.values) {
        for (const VerdictEntry& entry : value.verdict.entries) {
            const bool known = std::any_of(found.targets.begin(), found.targets.end(),
                                           [&](const auto& target) { return target.tag == entry.name; });
            if (known) continue;
            const Tag* tag = mNames.find(entry.name);
            found.targets.push_back({entry.name, entry.values.count > 0 ? typeAndCount(entry.values) : "",
                                     tag ? camera_metadata_type_names[tag->type] : "", tag ? tag->id : 0});
        }
    }
}

VerdictRow Explainer::verdictOn(const Explanation& found, const std::string& value) {
    Texts texts = found.company;
    texts[found.key] = value;
    Trace trace;
    const LogListener listener([&](const LogEvent& line) { addLogLine(trace, line); });
    Camera camera(0, mCharacteristics, [](Message&&) {});
    for (const auto& [key, text] : texts) camera.parameters().set(key.c_str(), text.c_str());
    android::CameraMetadata metadata;
    trace.clear();
    camera.adapter().watch(&trace);
    camera.translator().paramToMetaData(&metadata);
    camera.adapter().watch(nullptr);
    return mVerdicts.find(trace, {found.key}, texts, {}).front();
}

// Returns the keys of the row's offers that this device publishes.
void Explainer::addChoices(Explanation& found, const std::vector<const Row*>& rows) const {
    const LogListener silence([](const LogEvent&) {});
    Camera camera(0, mCharacteristics, [](Message&&) {});
    camera.translator().metaDataToParam();
    for (const auto& [key, capability] : camera.adapter().takePublished()) {
        const bool offered = std::any_of(rows.begin(), rows.end(), [&key = key](const Row* row) {
            return std::any_of(row->offers.begin(), row->offers.end(),
                               [&](const char* each) { return key == each; });
        });
        const char* value = camera.parameters().get(key.c_str());
        if (offered && value != nullptr)
            found.choices.push_back({key, value, mNames.nameOf(capability), Change::None});
    }
}

void Explainer::addLimits(Explanation& found, const Row& row) const {
    const qz::KeyRow& key = *keyIn(row, found.key);
    if (key.limit == qz::KeyRow::Limit::none) return;
    for (Offer& offer : mVerdicts.offers().of(row, key, found.company)) {
        const bool isPublished = std::any_of(row.offers.begin(), row.offers.end(), [&](const char* each) {
            return startsWith(offer.source, each);
        });
        if (!isPublished) found.limits.push_back(std::move(offer));
    }
}

}  // namespace qzcam
