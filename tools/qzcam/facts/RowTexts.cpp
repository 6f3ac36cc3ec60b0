// SPDX-License-Identifier: Apache-2.0
#include "facts/RowTexts.h"

#include "facts/Lookup.h"

#include <fmt/format.h>

#include <cstring>
#include <utility>

namespace qzcam {

namespace {

// Returns the form of a key's text, unless its note states it.
std::string formText(const qz::KeyRow& key) {
    using Form = qz::KeyRow::Form;
    if (key.note != nullptr) return key.note;
    if (key.condition) return "a condition";
    return key.form == Form::word ? "a word" : "a number";
}

const char* readAs(const qz::KeyRow& key) {
    constexpr const char* names[] = {"text", "integer", "text and integer"};
    return names[static_cast<size_t>(key.as)];
}

}  // namespace

std::string countText(const qz::EntryRow& entry) {
    if (entry.onlyEnds) return fmt::format("{} or {}", entry.least, entry.most);
    if (entry.least == entry.most) return fmt::to_string(entry.least);
    if (entry.most != 0) return fmt::format("{} to {}", entry.least, entry.most);
    return entry.least == 0 ? "any" : fmt::format("at least {}", entry.least);
}

Value entryValue(const qz::EntryRow& entry) {
    return {
        {"tag", entry.tag}, {"type", camera_metadata_type_names[entry.type]}, {"count", countText(entry)}};
}

Value keyValue(const qz::KeyRow& key) {
    return {{"key", key.name}, {"readAs", readAs(key)}, {"form", formText(key)}};
}

Value text(std::string text) { return {{"text", std::move(text)}}; }

std::vector<Value> textIf(const char* name) {
    return name != nullptr ? std::vector<Value>{text(name)} : std::vector<Value>();
}

std::vector<Value> wordsToNumbers(const qz::Vocabulary& vocabulary) {
    return mapped(vocabulary.words, [](const qz::Word& word) {
        return Value{{"from", word.text}, {"to", fmt::to_string(word.number)}};
    });
}

// A number converts to its first word.
std::vector<Value> numbersToWords(const qz::Vocabulary& vocabulary) {
    std::vector<Value> values;
    for (const qz::Word& word : vocabulary.published) {
        const bool isFirst = wordFor(vocabulary, word.number) == word.text;
        if (isFirst) values.push_back({{"from", fmt::to_string(word.number)}, {"to", word.text}});
    }
    return values;
}

std::string numberIn(uint8_t type, int number) {
    return fmt::to_string(type == TYPE_BYTE ? static_cast<uint8_t>(number) : number);
}

void addTagNames(std::vector<std::string>& names, const char* tag) {
    names.emplace_back(tag);
    const char* dot = std::strrchr(tag, '.');
    if (dot != nullptr) names.emplace_back(dot + 1);
}

}  // namespace qzcam
