#include "host/EventWords.h"

#include <algorithm>
#include <array>

namespace qzcam {

namespace {

struct VerdictName {
    Verdict verdict;
    const char* word;
    const char* meaning;
    const char* help;
};

constexpr std::array<VerdictName, 9> kVerdicts{
    {{Verdict::Written, "written", "written", "its entries have its value"},
     {Verdict::Fallback, "fallback", "fallback written",
      "its text is not understood, and written as any such"},
     {Verdict::Skipped, "skipped", "skipped", "its text is not understood, and nothing written"},
     {Verdict::Overridden, "overridden", "overridden", "another parameter decides the value of its entry"},
     {Verdict::Undeclared, "undeclared", "tag not declared", "the device has no such tag"},
     {Verdict::WrongType, "wrong-type", "wrong type", "the device refused the update"},
     {Verdict::GateClosed, "gate-closed", "gate closed", "something else keeps it from being looked at"},
     {Verdict::NoEntry, "no-entry", "no entry", "it is read, but this value goes into no entry"},
     {Verdict::Unread, "unread", "read by no setter", "the library does not know it"}}};

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

std::vector<std::pair<const char*, const char*>> verdictHelp() {
    std::vector<std::pair<const char*, const char*>> rows;
    rows.reserve(kVerdicts.size());
    for (const VerdictName& name : kVerdicts) rows.emplace_back(name.word, name.help);
    return rows;
}

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
