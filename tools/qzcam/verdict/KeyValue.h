// SPDX-License-Identifier: Apache-2.0
// Reads the text of a parameter by the form that its row states. Its numbers have no limits of any type.
#pragma once

#include "host/Events.h"

#include <request/Parameter.h>

#include <optional>
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

// Returns the source of a limit: a static entry, or a parameter.
const char* textOf(qz::KeyRow::Limit limit);

// Returns the number that the library reads when it asks the platform for a parameter as an integer.
int asInteger(const std::string& value);

// Returns the numbers by the form of the key: two for a size, those of the last group of a tuple, the seconds
// of a time. Returns nothing for a text of another form, and for "auto".
std::vector<double> numbersOf(const qz::KeyRow& key, const std::string& value);

// Returns a number or a fraction that is the whole text.
std::optional<double> numberOf(const std::string& text);

// Returns the first number of the key that is not written unchanged. `entries`: the entries of the key.
std::optional<Overflow> overflowOf(const qz::Parameter& row, const qz::KeyRow& key, const std::string& value,
                                   const std::vector<VerdictEntry>& entries);

}  // namespace qzcam
