// SPDX-License-Identifier: Apache-2.0
// A static entry compared with the row of the getter that reads it.
#pragma once

#include "facts/Tags.h"
#include "verdict/Check.h"

namespace qzcam {

struct EntryFinding {
    TagVerdict verdict = TagVerdict::Fine;
    std::string problem;
};

// Says that the keys of an entry which the library ignores are not published: ": KEY is not published".
std::string unpublished(const TagFact& fact);

EntryFinding checkEntry(const TagFact& fact, const StaticEntry& entry);

}  // namespace qzcam
