// SPDX-License-Identifier: Apache-2.0
// Checks a static entry against the row of the getter that reads it.
#pragma once

#include "verdict/Check.h"

namespace qzcam {

// Returns ": KEY is not published" for the keys of an entry that the library ignores.
std::string unpublished(const TagFact& fact);

TagFinding checkEntry(const TagFact& fact, const StaticEntry& entry);

}  // namespace qzcam
