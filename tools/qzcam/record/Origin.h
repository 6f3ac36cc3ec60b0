// SPDX-License-Identifier: Apache-2.0
// Parameters that the entries of a request come from.
#pragma once

#include "device/Device.h"
#include "verdict/WordsBack.h"

#include <string>
#include <vector>

namespace qzcam {

// A setter of the library writes this tag.
bool isWritten(const std::string& tag);

// A result handler of the library reads this tag.
bool isRead(const std::string& tag);

// Lists the keys of one row that an entry may come from, each with its value. Several rows, or several
// words of one key, leave it open.
struct Origin {
    std::vector<Candidate> certain;
    std::vector<Candidate> choices;
};
Origin originOf(const std::string& tag, const EntryTexts& entries);

// Entries that every request has, whatever the application sets.
EntryTexts entriesWithoutParameters(const Device& device);

}  // namespace qzcam
