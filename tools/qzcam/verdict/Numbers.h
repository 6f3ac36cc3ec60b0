// SPDX-License-Identifier: Apache-2.0
// The numbers in the text of a parameter, without the limits of any type.
#pragma once

#include "host/Events.h"

#include <request/Parameter.h>

#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// Returns the numbers by the form of the key: two for a size, those of the last group of a tuple, the seconds
// of a time. Returns nothing for a text of another form, and for "auto".
std::vector<double> numbersOf(const qz::KeyRow& key, const std::string& value);

// Returns a number or a fraction that is the whole text.
std::optional<double> numberOf(const std::string& text);

// Returns the first number of the key that is not written unchanged. `entries`: the entries of the key.
std::optional<Overflow> overflowOf(const qz::Parameter& row, const qz::KeyRow& key, const std::string& value,
                                   const std::vector<VerdictEntry>& entries);

}  // namespace qzcam
