// SPDX-License-Identifier: Apache-2.0
// Compares the text of a parameter with the form that its row states.
#pragma once

#include <request/Parameter.h>

#include <string>
#include <vector>

namespace qzcam {

// Returns the reason why the library does not read the text correctly; empty for a valid text. An invalid
// text may still be written, as the number for unknown texts.
std::string misunderstanding(const qz::Parameter& row, const qz::KeyRow& key, const std::string& value);

// Returns the words of the key's vocabulary; none for a key of another form.
std::vector<std::string> wordsOf(const qz::Parameter& row, const qz::KeyRow& key);

// Returns sample values for a key of any form.
std::vector<std::string> examplesOf(const qz::Parameter& row, const qz::KeyRow& key);

// Returns the number that the library has for a word.
int numberOf(const qz::Vocabulary& vocabulary, const std::string& word);

// Returns the condition of a gate in words.
const char* textOf(qz::Gate gate);

// Returns the number that the library reads when it asks the platform for a parameter as an integer.
int asInteger(const std::string& value);

}  // namespace qzcam
