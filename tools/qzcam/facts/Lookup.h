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

const char* nameOf(qz::Feature feature);

// Returns the rows that read the key, in the order of the pass.
std::vector<const qz::Parameter*> rowsOf(const std::string& key);

// Returns the key's column in the row, or null if the row does not read it.
const qz::KeyRow* keyIn(const qz::Parameter& row, const std::string& key);

// Returns true if the key's value goes into entry `index` of the row.
bool ownsEntry(const qz::Parameter& row, const qz::KeyRow& key, size_t index);

// Return the rows that write the tag, and the keys whose values go into its entry.
std::vector<const qz::Parameter*> rowsWriting(std::string_view tag);
std::vector<std::string> keysWriting(std::string_view tag);

// Returns null for a key that no getter publishes.
const qz::CapabilityRow* findPublisher(std::string_view key);

// Returns true for a key that is published on any device.
bool isUnconditional(std::string_view key);

// Returns the published word of a number, or null for an unknown number.
const char* wordFor(const qz::Vocabulary& vocabulary, int number);

// Returns the name of the vocabulary's text-to-number direction.
const char* nameOf(const qz::Vocabulary& vocabulary);

// A key that the library reads outside the passes, in a function that the host calls.
struct HostKey {
    const char* key;
    const char* function;
    const char* effect;
};
const std::vector<HostKey>& hostKeys();

// Returns a note about a key of hostKeys(), or an empty text for another key.
std::string noteOnHostKey(const std::string& key);

// Return all keys that the library reads or publishes.
std::set<std::string> readKeys();
std::set<std::string> publishedKeys();

}  // namespace qzcam
