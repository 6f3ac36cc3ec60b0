// The words for what events tell, as the session language and JSON have them.
#pragma once

#include "host/Events.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

const char* verdictWord(Verdict verdict);                        // "gate-closed"
std::vector<std::pair<const char*, const char*>> verdictHelp();  // all words, and what they say
std::optional<Verdict> findVerdict(std::string_view word);
std::string verdictWords();
const char* verdictMeaning(Verdict verdict);  // for people

const char* changeWord(Change change);
std::optional<Change> findChange(std::string_view word);

}  // namespace qzcam
