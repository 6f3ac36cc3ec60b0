// SPDX-License-Identifier: Apache-2.0
// Finds the parameters that the entries of a request come from.
#pragma once

#include "device/Device.h"
#include "verdict/ParameterCandidates.h"

#include <string>
#include <vector>

namespace qzcam {

// The keys of one row that an entry may come from, each with its value. If several rows, or several words of
// one key, give the entry, they are `choices`.
struct Origin {
    std::vector<Candidate> certain;
    std::vector<Candidate> choices;
};
Origin originOf(const std::string& tag, const EntryTexts& entries);

// Returns the entries that every request has, even without parameters.
EntryTexts entriesWithoutParameters(const Device& device);

}  // namespace qzcam
