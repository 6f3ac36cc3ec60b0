#include "EventWords.h"

#include <algorithm>
#include <array>

namespace qzcam {

namespace {

struct VerdictName {
    Verdict verdict;
    const char* word;
    const char* meaning;
};

constexpr std::array<VerdictName, 9> kVerdicts{{{Verdict::Written, "written", "written"},
                                                {Verdict::Fallback, "fallback", "fallback written"},
                                                {Verdict::Skipped, "skipped", "skipped"},
                                                {Verdict::Overridden, "overridden", "overridden"},
                                                {Verdict::Undeclared, "undeclared", "tag not declared"},
                                                {Verdict::WrongType, "wrong-type", "wrong type"},
                                                {Verdict::GateClosed, "gate-closed", "gate closed"},
                                                {Verdict::NoEntry, "no-entry", "no entry"},
                                                {Verdict::Unread, "unread", "read by no setter"}}};

struct ChangeName {
    Change change;
    const char* word;
};

constexpr std::array<ChangeName, 4> kChanges{
    {{Change::None, "none"}, {Change::New, "new"}, {Change::Changed, "changed"}, {Change::Gone, "gone"}}};

const VerdictName& nameOf(Verdict verdict) {
    return *std::find_if(kVerdicts.begin(), kVerdicts.end(),
                         [&](const VerdictName& name) { return name.verdict == verdict; });
}

}  // namespace

const char* verdictWord(Verdict verdict) { return nameOf(verdict).word; }

const char* verdictMeaning(Verdict verdict) { return nameOf(verdict).meaning; }

std::optional<Verdict> findVerdict(std::string_view word) {
    for (const VerdictName& name : kVerdicts) {
        if (word == name.word) return name.verdict;
    }
    return std::nullopt;
}

std::string verdictWords() {
    std::string words;
    for (const VerdictName& name : kVerdicts) words.append(words.empty() ? "" : ", ").append(name.word);
    return words;
}

const char* changeWord(Change change) {
    return std::find_if(kChanges.begin(), kChanges.end(),
                        [&](const ChangeName& name) { return name.change == change; })
        ->word;
}

std::optional<Change> findChange(std::string_view word) {
    for (const ChangeName& name : kChanges) {
        if (word == name.word) return name.change;
    }
    return std::nullopt;
}

}  // namespace qzcam
