// The text of a parameter, held against the form that its row states.
#pragma once

#include <request/Parameter.h>

#include <string>
#include <vector>

namespace qzcam {

// Returns the reason why the library does not take the text for what it says; empty for a text that it
// understands. Such a text may be written all the same, as the number that stands for unknown texts.
std::string misunderstanding(const qz::Parameter& row, const qz::KeyRow& key, const std::string& value);

// The words of the key's vocabulary; empty for a key of another form.
std::vector<std::string> wordsOf(const qz::Parameter& row, const qz::KeyRow& key);

// Values that show what becomes of a key of any form.
std::vector<std::string> examplesOf(const qz::Parameter& row, const qz::KeyRow& key);

// Returns the number of a word as the library finds it.
int numberOf(const qz::Vocabulary& vocabulary, const std::string& word);

// Returns the condition of a gate in words.
const char* textOf(qz::Gate gate);

// Returns the number that the library reads when it asks the platform for a parameter as an integer.
int asInteger(const std::string& value);

}  // namespace qzcam
