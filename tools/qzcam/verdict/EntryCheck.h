// Whether the static entry of a capability makes sense to the getter that reads it. The getter is asked: it
// runs on the entry, and on copies of it with one element changed.
#pragma once

#include "facts/Survey.h"
#include "verdict/Check.h"

namespace qzcam {

struct EntryFinding {
    TagVerdict verdict = TagVerdict::Fine;
    std::string what;
};

// What becomes of the keys of a capability that the library does not take: ": KEY is not published".
std::string unpublished(const std::vector<std::string>& keys);

// `cut`: the dump may not show the whole list.
EntryFinding checkEntry(Probe& probe, const CapabilityFact& fact, const Values& values, bool cut);

}  // namespace qzcam
