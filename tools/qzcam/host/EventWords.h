// SPDX-License-Identifier: Apache-2.0
// The words for events in the session language and in JSON.
#pragma once

#include "host/Events.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

const char* verdictWord(Verdict verdict);                        // "gate-closed"
std::vector<std::pair<const char*, const char*>> verdictHelp();  // all words with their meanings
std::optional<Verdict> findVerdict(std::string_view word);
std::string verdictWords();
const char* verdictMeaning(Verdict verdict);  // for people

// Returns true if the parameter was written, but the device does not offer the value or the number does not
// fit.
bool isUnfit(Verdict verdict);

const char* ownerWord(KeyOwner owner);
const char* meaningOf(KeyOwner owner);

const char* changeWord(Change change);
std::optional<Change> findChange(std::string_view word);

}  // namespace qzcam
