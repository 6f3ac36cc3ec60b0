// SPDX-License-Identifier: Apache-2.0
// Finds the parameters that an application may have set from the entries of a request, by the words and forms
// of the rows.
#pragma once

#include "base/Values.h"
#include "host/Events.h"

#include <request/Parameter.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

using EntryTexts = std::map<std::string, Values>;  // entries by their tags

struct Candidate {
    std::string key;
    std::string value;
    bool operator==(const Candidate& other) const { return key == other.key && value == other.value; }
};

// Returns the parameters for which the row writes the given entries. If there are several for one key, each
// of them gives these entries. Returns nothing for values that no text gives.
std::vector<Candidate> candidatesOf(const qz::Parameter& row, const EntryTexts& entries);

// Does the same for one entry, over all rows that write it.
std::vector<Candidate> candidatesFor(const std::string& tag, const EntryTexts& entries);

// "iso=1600", "qz-dual-primary-mode=primary or qz-dual-primary-mode=default"
std::string toText(const std::vector<Candidate>& candidates);

// Returns the key of the parameter that was set to none of its words, so that the row wrote the number for an
// unknown text. Returns nothing if the value has another reason, or if several parameters may be the reason.
std::optional<std::string> fallbackKey(const std::string& tag, const Values& values);

// Returns the parameters that give the entry, as text; only their keys if its value does not show the words.
// Returns an empty text if no parameter writes it.
std::string causeOf(const std::string& tag, const EntryTexts& entries);

}  // namespace qzcam
