// SPDX-License-Identifier: Apache-2.0
#include "facts/Lookup.h"

#include "base/Lists.h"

#include <capabilities/Capabilities.h>
#include <request/Parameters.h>
#include <text/Vocabularies.h>

#include <fmt/format.h>

namespace qzcam {

const char* nameOf(qz::Feature feature) { return qz::kFeatureNames[static_cast<size_t>(feature)]; }

std::vector<const qz::Parameter*> rowsOf(const std::string& key) {
    std::vector<const qz::Parameter*> rows;
    for (const qz::Parameter& row : qz::kParameters) {
        if (keyIn(row, key) != nullptr) rows.push_back(&row);
    }
    return rows;
}

const qz::KeyRow* keyIn(const qz::Parameter& row, const std::string& key) {
    return findIf(row.keys, [&](const qz::KeyRow& each) { return key == each.name; });
}

// If a row has as many keys as entries, each key has its own entry. Otherwise each key affects all entries.
bool ownsEntry(const qz::Parameter& row, const qz::KeyRow& key, size_t index) {
    if (key.condition) return false;
    std::vector<const qz::KeyRow*> own;
    for (const qz::KeyRow& each : row.keys) {
        if (!each.condition) own.push_back(&each);
    }
    return own.size() != row.entries.count || own[index] == &key;
}

std::vector<const qz::Parameter*> rowsWriting(std::string_view tag) {
    std::vector<const qz::Parameter*> rows;
    for (const qz::Parameter& row : qz::kParameters) {
        if (std::any_of(row.entries.begin(), row.entries.end(),
                        [&](const qz::EntryRow& entry) { return tag == entry.tag; }))
            rows.push_back(&row);
    }
    return rows;
}

std::vector<std::string> keysWriting(std::string_view tag) {
    std::vector<std::string> keys;
    for (const qz::Parameter* row : rowsWriting(tag)) {
        for (size_t i = 0; i < row->entries.count; ++i) {
            if (tag != row->entries[i].tag) continue;
            for (const qz::KeyRow& key : row->keys) {
                const bool isNew = std::find(keys.begin(), keys.end(), key.name) == keys.end();
                if (isNew && ownsEntry(*row, key, i)) keys.emplace_back(key.name);
            }
        }
    }
    return keys;
}

const qz::CapabilityRow* findPublisher(std::string_view key) {
    return findIf(qz::kCapabilities, [&](const qz::CapabilityRow& row) {
        return anyOf(row.publishes, [&](const qz::Publication& each) { return key == each.key; });
    });
}

bool isUnconditional(std::string_view key) {
    const qz::CapabilityRow* row = findPublisher(key);
    return row != nullptr && row->entries.empty();
}

const char* wordFor(const qz::Vocabulary& vocabulary, int number) {
    const auto* found =
        findIf(vocabulary.published, [&](const qz::Word& word) { return word.number == number; });
    return found == nullptr ? nullptr : found->text;
}

const char* nameOf(const qz::Vocabulary& vocabulary) {
    const auto* found =
        findIf(qz::kVocabularies, [&](const auto& named) { return named.vocabulary == &vocabulary; });
    return found == nullptr ? nullptr : found->toNumber;
}

const std::vector<HostKey>& hostKeys() {
    static const std::vector<HostKey> keys{
        {"camera_sound_state", "setShutterMute", "0 silences the shutter sound"},
        {"qz-image-post-process", "modifySupportedPictureSize",
         "'off' empties super-resolution-picture-size-values, any other word fills it"},
        {"qz-otp-check", "modifyOTPtestResult", "set to the number of the last result's entry"},
    };
    return keys;
}

std::string noteOnHostKey(const std::string& key) {
    const HostKey* row = findIf(hostKeys(), [&](const HostKey& each) { return key == each.key; });
    return row ? fmt::format("no entry has it; used by {}: {}", row->function, row->effect) : std::string();
}

std::set<std::string> readKeys() {
    std::set<std::string> keys{"camera_sound_state"};
    for (const qz::Parameter& row : qz::kParameters) {
        for (const qz::KeyRow& key : row.keys) keys.insert(key.name);
    }
    return keys;
}

std::set<std::string> publishedKeys() {
    std::set<std::string> keys{"qz-otp-check"};
    for (const qz::CapabilityRow& row : qz::kCapabilities) {
        for (const qz::Publication& publication : row.publishes) keys.insert(publication.key);
    }
    return keys;
}

}  // namespace qzcam
