// SPDX-License-Identifier: Apache-2.0
// The numbers of a parameter's text as its author meant them, without the limits of any type.
#pragma once

#include "host/Events.h"

#include <request/Parameter.h>

#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// By the form of the key: the two of a size, those of the last group of a tuple, seconds of a time. Nothing
// for a text of another form, and for "auto".
std::vector<double> numbersOf(const qz::KeyRow& key, const std::string& value);

// A number, or a fraction, that is the whole text.
std::optional<double> numberOf(const std::string& text);

// The first number of the key that is not written as it is. `entries`: those that the key went into.
std::optional<Overflow> overflowOf(const qz::Parameter& row, const qz::KeyRow& key, const std::string& value,
                                   const std::vector<VerdictEntry>& entries);

}  // namespace qzcam
