// SPDX-License-Identifier: Apache-2.0
// Rows by the names that applications and reports use.
#pragma once

#include <capabilities/Publication.h>
#include <request/Parameter.h>
#include <text/Vocabulary.h>

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// Rows that read the key, in the order of the pass.
std::vector<const qz::Parameter*> rowsOf(const std::string& key);

// The key's column in the row; null if the row does not read it.
const qz::KeyRow* keyIn(const qz::Parameter& row, const std::string& key);

// True if the key's value goes into entry `index` of the row.
bool ownsEntry(const qz::Parameter& row, const qz::KeyRow& key, size_t index);

// Null for a key that no getter publishes.
const qz::CapabilityRow* findPublisher(std::string_view key);

// A key that is published on any device.
bool isUnconditional(std::string_view key);

// The published word of a number; null for an unknown one.
const char* wordFor(const qz::Vocabulary& vocabulary, int number);

// The name of the vocabulary's direction from texts to numbers.
const char* nameOf(const qz::Vocabulary& vocabulary);

// A key that the library reads outside the passes, in a function that the host calls.
struct HostKey {
    const char* key;
    const char* function;
    const char* effect;
};
const std::vector<HostKey>& hostKeys();

// Empty for a key that the host does not call for.
std::string noteOnHostKey(const std::string& key);

// All keys that the library reads or publishes.
std::set<std::string> readKeys();
std::set<std::string> publishedKeys();

}  // namespace qzcam
