// SPDX-License-Identifier: Apache-2.0
// Parts of rows as values of the reference.
#pragma once

#include "base/Lists.h"
#include "facts/Reference.h"

#include <request/Parameter.h>
#include <rows/Entry.h>
#include <text/Vocabulary.h>

namespace qzcam {

// "1", "2", "at least 1", "2 to 20", "2 or 4", "any"
std::string countText(const qz::EntryRow& entry);

Value entryValue(const qz::EntryRow& entry);
Value keyValue(const qz::KeyRow& key);
Value text(std::string text);
std::vector<Value> textIf(const char* name);  // nothing for null

// Words and numbers, from left to right.
std::vector<Value> wordsToNumbers(const qz::Vocabulary& vocabulary);
std::vector<Value> numbersToWords(const qz::Vocabulary& vocabulary);

// Returns the number that a byte or int32 entry gets.
std::string numberIn(uint8_t type, int number);

// Adds a tag under its full name and under the name without its section.
void addTagNames(std::vector<std::string>& names, const char* tag);

template <typename List>
std::vector<Value> texts(const List& list) {
    return mapped(list, [](const char* each) { return text(each); });
}

// Returns the texts of enumerators, by the table of all texts.
template <typename List, typename Texts>
std::vector<Value> textsOf(const List& list, const Texts& all) {
    return mapped(list, [&](auto each) { return text(all[static_cast<size_t>(each)]); });
}

}  // namespace qzcam
