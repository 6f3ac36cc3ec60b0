// SPDX-License-Identifier: Apache-2.0
// Parts of rows as values of the reference.
#pragma once

#include "facts/Reference.h"

#include <request/Parameter.h>
#include <rows/Entry.h>
#include <text/Vocabulary.h>

namespace qzcam {

// "1", "2", "at least 1", "2 to 20", "2 or 4", "any"
std::string countText(const qz::EntryRow& entry);

Value entryValue(const qz::EntryRow& entry);
Value keyValue(const qz::KeyRow& key);
Value text(const char* name);
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
    std::vector<Value> values;
    for (const char* each : list) values.push_back(text(each));
    return values;
}

template <typename Entries>
std::vector<Value> entryValues(const Entries& entries) {
    std::vector<Value> values;
    for (const qz::EntryRow& entry : entries) values.push_back(entryValue(entry));
    return values;
}

}  // namespace qzcam
