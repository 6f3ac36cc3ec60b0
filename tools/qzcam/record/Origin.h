// SPDX-License-Identifier: Apache-2.0
// Finds the parameters that the entries of a request come from.
#pragma once

#include "device/Device.h"
#include "verdict/ParameterCandidates.h"

#include <string>
#include <vector>

namespace qzcam {

// Returns the keys of the row that an entry comes from, each with its value. Returns nothing if several rows,
// or several words of one key, give the entry.
std::vector<Candidate> originOf(const std::string& tag, const EntryTexts& entries);

// Returns the entries that every request has, even without parameters.
EntryTexts entriesWithoutParameters(const Device& device);

}  // namespace qzcam
