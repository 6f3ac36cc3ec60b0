// SPDX-License-Identifier: Apache-2.0
#include "verdict/Explanation.h"

#include "base/Lists.h"
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
constexpr char kUnknownWord[] = "no such word";

Explanation::Value valueOf(const std::string& value, VerdictRow verdict) {
    std::string written;
    for (const VerdictEntry& row : verdict.entries) {
        // Not a tag: the numbers in vendor entries have no names.
        if (row.values.count > 0) {
            written +=
                (written.empty() ? "" : "; ") + toText(row.values, CAMERA_METADATA_VENDOR_TAG_BOUNDARY);
        }
    }
    return {value, std::move(written), std::move(verdict)};
}

bool readsAs(const std::vector<const Row*>& rows, const std::string& key, qz::KeyRow::As as) {
    return anyOf(rows, [&](const Row* row) {
        const qz::KeyRow::As how = keyIn(*row, key)->as;
        return how == as || how == qz::KeyRow::As::textAndInteger;
    });
}

// Returns further parameters with which the row writes an entry on a complete device. They open its gates and
// set its other keys.
Texts furtherKeysOf(const Row& row, const std::string& key) {
    Texts texts;
    if (row.gated(qz::Gate::lightPainting)) texts["qz-exposure-mode"] = "super-night";
    for (const qz::KeyRow& other : row.keys) {
        if (other.name != key && row.gated(qz::Gate::allKeys))
            texts[other.name] = examplesOf(row, other).front();
    }
    return texts;
}

void addLine(std::vector<std::string>& lines, const std::string& line) {
    if (!line.empty() && !hasElement(lines, line)) lines.push_back(line);
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
    const auto likely = likelyKeys(key);
    return likely.empty() ? "; 'qzcam params' lists the keys" : perhaps(likely);
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
    found.alsoSet = given;
    const Texts further = furtherKeysOf(*rows.front(), key);
    found.alsoSet.insert(further.begin(), further.end());
    found.alsoSet.erase(key);
    addValues(found, *rows.front());
    addTargets(found);
    addChoices(found, rows);
    addLimits(found, *rows.front());
    if (const auto value = given.find(key); value != given.end()) {
        found.alsoSet = given;
        found.given = verdictOn(found, value->second);
    }
    return found;
}

void Explainer::addValues(Explanation& found, const Row& row) {
    const qz::KeyRow& key = *keyIn(row, found.key);
    found.hasVocabulary = !wordsOf(row, key).empty();
    for (const std::string& value : examplesOf(row, key)) {
        found.values.push_back(valueOf(value, verdictOn(found, value)));
    }
    if (!found.asText || key.form == qz::KeyRow::Form::name) return;
    found.otherwise = valueOf("any other text", verdictOn(found, kUnknownWord));
}

void Explainer::addTargets(Explanation& found) {
    for (const Explanation::Value& value : found.values) {
        for (const VerdictEntry& entry : value.verdict.entries) {
            if (anyOf(found.targets, [&](const auto& target) { return target.tag == entry.name; })) continue;
            const Tag* tag = mNames.find(entry.name);
            found.targets.push_back({entry.name, entry.values.count > 0 ? typeAndCount(entry.values) : "",
                                     tag ? camera_metadata_type_names[tag->type] : "", tag ? tag->id : 0});
        }
    }
}

VerdictRow Explainer::verdictOn(const Explanation& found, const std::string& value) {
    Texts texts = found.alsoSet;
    texts[found.key] = value;
    PassSteps steps;
    const LogListener listener([&](const LogEvent& line) { addLogLine(steps, line); });
    Camera camera(0, mCharacteristics, [](Message&&) {});
    for (const auto& [key, text] : texts) camera.parameters().set(key.c_str(), text.c_str());
    android::CameraMetadata metadata;
    steps.clear();
    camera.adapter().watch(&steps);
    camera.translator().paramToMetaData(&metadata);
    camera.adapter().watch(nullptr);
    return mVerdicts.find(steps, {found.key}, texts, {}).front();
}

// Adds the keys of the rows' offers that this device publishes.
void Explainer::addChoices(Explanation& found, const std::vector<const Row*>& rows) const {
    for (const Row* row : rows) {
        for (const std::string key : row->offers) {
            const Offers::Published* offer = mVerdicts.offers().published(key);
            const bool isNew = !anyOf(found.choices, [&](const ParamRow& each) { return each.key == key; });
            if (offer == nullptr || !isNew) continue;
            found.choices.push_back({key, offer->value, mNames.nameOf(offer->capability), Change::None});
        }
    }
}

void Explainer::addLimits(Explanation& found, const Row& row) const {
    const qz::KeyRow& key = *keyIn(row, found.key);
    if (key.limit == qz::KeyRow::Limit::none) return;
    for (Offer& offer : mVerdicts.offers().of(row, key, found.alsoSet)) {
        const bool isPublished =
            anyOf(row.offers, [&](const char* each) { return startsWith(offer.source, each); });
        if (!isPublished) found.limits.push_back(std::move(offer));
    }
}

}  // namespace qzcam
