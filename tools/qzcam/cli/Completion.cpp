// SPDX-License-Identifier: Apache-2.0
#include "cli/Completion.h"

#include "base/Text.h"
#include "cli/Queries.h"
#include "facts/Lookup.h"
#include "facts/Vocabulary.h"
#include "host/EventWords.h"
#include "host/Messages.h"
#include "session/Session.h"

#include <command/Commands.h>
#include <fmt/format.h>
#include <host/StandardTags.h>
#include <request/Parameters.h>
#include <text/Properties.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace qzcam {

namespace {

using Names = std::set<std::string>;

constexpr int32_t kHighestNamedValue = 255;

Suggestions startingWith(const Names& names, size_t begin, std::string_view typed, const char* after) {
    Suggestions suggestions{begin, {}, after};
    for (auto name = names.lower_bound(std::string(typed)); name != names.end(); ++name) {
        if (!startsWith(*name, typed)) break;
        if (visible(*name) != *name) continue;  // a terminal cannot show it
        suggestions.texts.push_back(*name);
    }
    return suggestions;
}

// Returns the words of "a, b or c", a list as in messages.
Names wordsIn(std::string_view list) {
    Names words;
    while (!trimmed(list).empty()) {
        std::string_view word = takeWord(list);
        if (endsWith(word, ",")) word.remove_suffix(1);
        if (word != "or") words.emplace(word);
    }
    return words;
}

Names queryNames() {
    Names names;
    for (const QuerySpec& syntax : querySpecs()) names.emplace(syntax.name);
    return names;
}

// Returns the words of a command's form, one for each argument. The last ones may repeat.
class Slots {
  public:
    explicit Slots(std::string_view arguments) {
        size_t group = 0;
        while (!trimmed(arguments).empty()) {
            std::string_view slot = takeWord(arguments);
            if (startsWith(slot, "[")) {
                group = mSlots.size();
                slot.remove_prefix(1);
            }
            if (endsWith(slot, "...")) mRepeated = endsWith(slot, "]...") ? group : mSlots.size();
            while (endsWith(slot, ".") || endsWith(slot, "]")) slot.remove_suffix(1);
            mSlots.emplace_back(slot);
        }
    }

    std::string at(size_t index) const {
        if (index < mSlots.size()) return mSlots[index];
        if (mRepeated >= mSlots.size()) return {};
        return mSlots[mRepeated + (index - mRepeated) % (mSlots.size() - mRepeated)];
    }

  private:
    std::vector<std::string> mSlots;
    size_t mRepeated = SIZE_MAX;
};

}  // namespace

struct Completion::Place {
    std::vector<std::string> before;  // the words before, the command first
    std::string slot;                 // argument in the command's form
    size_t begin;                     // start of the word
    std::string_view typed;           // typed part of the word

    const std::string& command() const { return before.front(); }
};

Completion::Completion(const Device& device, const std::vector<CommandForm>& more)
    : mTagNames(device.vendorTags) {
    for (const CommandSpec& syntax : commandSpecs()) mForms.emplace(syntax.name, syntax.arguments);
    for (const CommandForm& form : more) mForms.emplace(form.name, form.arguments);
    for (const auto& [name, arguments] : mForms) mCommands.insert(name);
    for (std::string& name : mTagNames.fullNames()) mFullTags.insert(std::move(name));
    for (const Tag& tag : device.vendorTags) {
        if (std::holds_alternative<const Tag*>(mTagNames.resolve(tag.name))) mShortTags.insert(tag.name);
    }
}

// Adds a key that the application sets.
void Completion::addKey(const std::string& key) {
    mValues[key];
    mKeyNames.insert(key);
}

void Completion::addValue(const std::string& key, const std::string& value) {
    addKey(key);
    Ordered& values = mValues[key];
    const bool isNew = std::find(values.begin(), values.end(), value) == values.end();
    if (!value.empty() && isNew) values.push_back(value);
}

// Values that no vocabulary contains, such as numbers, keep the order of the device.
void Completion::learnOffers(const Offers& offers) {
    for (auto& [key, values] : mValues) {
        const Ordered listed = listedValues(offers, key);
        const auto isOffered = [&listed = listed](const std::string& value) {
            return std::find(listed.begin(), listed.end(), value) != listed.end();
        };
        const auto others = std::stable_partition(values.begin(), values.end(), isOffered);
        Ordered more;
        std::copy_if(listed.begin(), listed.end(), std::back_inserter(more),
                     [&, &values = values](const auto& value) {
                         return std::find(values.begin(), others, value) == others;
                     });
        values.insert(others, more.begin(), more.end());
    }
}

void Completion::learnRows() {
    for (const std::string& key : readKeys()) addKey(key);
    for (const qz::Parameter& row : qz::kParameters) {
        const qz::Vocabulary* words = row.conversion.vocabulary;
        if (words == nullptr) continue;
        for (const qz::KeyRow& key : row.keys) {
            if (key.form != qz::KeyRow::Form::word) continue;
            for (const qz::Word& word : words->words) addValue(key.name, word.text);
        }
    }
    for (const std::string& key : publishedKeys()) mKeyNames.insert(key);
    for (const qz::CommandRow& command : qz::kCommands) mCommandNumbers.insert(std::to_string(command.code));
    for (const qz::PropertyRow& row : qz::kProperties) mProperties.insert(row.property.name);
}

void Completion::learn(const Event& event) {
    if (const auto* published = std::get_if<PublishEvent>(&event)) learnLists(published->rows);
    if (const auto* parameters = std::get_if<ParamsEvent>(&event)) learnLists(parameters->rows);
}

// A list of the library is not named after its parameter: "iso-mode-values" is for "iso". learnOffers() reads
// it.
void Completion::learnLists(const std::vector<ParamRow>& rows) {
    constexpr std::string_view kList = "-values";
    const std::set<std::string> lists = publishedKeys();
    for (const ParamRow& row : rows) {
        mKeyNames.insert(row.key);
        if (!endsWith(row.key, kList) || lists.count(row.key) != 0) continue;
        const std::string key = row.key.substr(0, row.key.size() - kList.size());
        for (const std::string_view value : split(row.value, ',')) addValue(key, std::string(value));
    }
}

Suggestions Completion::at(std::string_view line) const {
    Place place{{}, {}, 0, {}};
    const size_t wordBegin = line.find_last_of(" \t") + 1;  // 0 when there is none
    std::string_view before = trimmed(line.substr(0, wordBegin));
    while (!before.empty()) place.before.emplace_back(takeWord(before));
    place.begin = wordBegin;
    place.typed = line.substr(wordBegin);
    if (place.before.empty()) return startingWith(mCommands, place.begin, place.typed, " ");
    const auto form = mForms.find(place.command());
    if (form == mForms.end()) return {};
    place.slot = Slots(form->second).at(place.before.size() - 1);
    return suggestionsAt(place);
}

Suggestions Completion::suggestionsAt(const Place& place) const {
    if (place.slot == "KEY=VALUE;KEY=VALUE") return parameterPairs(place);
    if (place.slot == "NAME=VALUES") return tagAssignment(place);
    if (place.slot == "VALUES") return tagValues(place.before.back(), place.begin, place.typed);
    const bool isScene = place.slot == "ARGUMENT" && place.before.back() == "ext-scene";
    if (isScene) return valuesOf("scene-mode", place.begin, place.typed, " ");
    if (place.slot == "VALUE") return valuesOf(place.before.back(), place.begin, place.typed, " ");
    return startingWith(namesFor(place), place.begin, place.typed, " ");
}

Completion::Names Completion::namesFor(const Place& place) const {
    const std::string& slot = place.slot;
    const bool isWord = !slot.empty() && slot.front() >= 'a' && slot.front() <= 'z';
    if (isWord) {
        Names words;
        for (const std::string_view word : split(slot, '|')) words.emplace(word);
        return words;
    }
    if (slot == "COMMAND") return mCommands;
    if (slot == "KEY") return mKeyNames;
    if (slot == "NAME") return place.command() == "setprop" ? mProperties : tags(place.typed);
    if (slot == "WHAT") return queryNames();
    if (slot == "FORMAT") return wordsIn(pixelFormatNames());
    if (slot == "LEVEL" && place.command() != "inspect") return wordsIn(kLogLevels);
    if (slot == "VERDICT") return wordsIn(verdictWords());
    if (slot == "CODE") {
        return place.command() == "expect-callback" ? wordsIn(messageNames()) : mCommandNumbers;
    }
    return {};
}

Suggestions Completion::valuesOf(const std::string& key, size_t begin, std::string_view typed,
                                 const char* after) const {
    Suggestions suggestions{begin, {}, after};
    const auto found = mValues.find(key);
    if (found == mValues.end()) return suggestions;
    for (const std::string& value : found->second) {
        if (startsWith(value, typed) && visible(value) == value) suggestions.texts.push_back(value);
    }
    return suggestions;
}

Suggestions Completion::parameterPairs(const Place& place) const {
    const size_t pair = place.typed.rfind(';') + 1;  // 0 when there is none
    const std::string_view typed = place.typed.substr(pair);
    const size_t equals = typed.find('=');
    if (equals != std::string_view::npos) {
        const std::string key(typed.substr(0, equals));
        return valuesOf(key, place.begin + pair + equals + 1, typed.substr(equals + 1), "");
    }
    Names keys;
    for (const auto& [key, values] : mValues) keys.insert(key);
    return startingWith(keys, place.begin + pair, typed, "=");
}

Suggestions Completion::tagAssignment(const Place& place) const {
    const size_t equals = place.typed.find('=');
    if (equals == std::string_view::npos)
        return startingWith(tags(place.typed), place.begin, place.typed, "=");
    return tagValues(std::string(place.typed.substr(0, equals)), place.begin + equals + 1,
                     place.typed.substr(equals + 1));
}

// Completes only the last element of a list.
Suggestions Completion::tagValues(const std::string& tag, size_t begin, std::string_view typed) const {
    const auto found = mTagNames.resolve(tag);
    if (std::holds_alternative<std::string>(found)) return {};
    Names names;
    for (int32_t value = 0; value <= kHighestNamedValue; ++value) {
        const char* name = qz::host::nameOfValue(std::get<const Tag*>(found)->id, value);
        if (name) names.emplace(name);
    }
    const size_t last = typed.rfind(',') + 1;  // 0 when there is none
    return startingWith(names, begin + last, typed.substr(last), "");
}

// Tags are completed without their section, or with it if the user has begun to type a section.
Completion::Names Completion::tags(std::string_view typed) const {
    Names names = mShortTags;
    if (!typed.empty()) names.insert(mFullTags.begin(), mFullTags.end());
    return names;
}

}  // namespace qzcam
