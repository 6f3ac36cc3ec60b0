// SPDX-License-Identifier: Apache-2.0
// Hints for unknown names.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// Returns the smallest number of typing errors between two texts: an additional, missing or different letter,
// or two exchanged adjacent letters (optimal string alignment).
size_t typingDistance(std::string_view one, std::string_view other);

// Returns those of `names` that differ from `name` by a few typing errors, the nearest first. Case and
// separators do not count.
std::vector<std::string> nearest(std::string_view name, const std::vector<std::string>& names);

// Returns the first of them; empty if there is none.
std::string nearestOne(std::string_view name, const std::vector<std::string>& names);

// Returns possible keys for an unknown one, the most likely first: keys with similar spelling or similar
// words, keys of the feature that it names, keys that accept it as a word. Empty if no key is similar.
std::vector<std::string> likelyKeys(const std::string& name);

// Returns "; perhaps iso or zoom", for the end of a message. Returns an empty text without names.
std::string perhaps(const std::vector<std::string>& names);

}  // namespace qzcam
