// SPDX-License-Identifier: Apache-2.0
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

constexpr std::array<VerdictName, 11> kVerdicts{
    {{Verdict::Written, "written", "written", "its entries have its value"},
     {Verdict::NotOffered, "not-offered", "not offered",
      "its entries have its value, but the device offers other values"},
     {Verdict::Overflows, "overflows", "overflows", "the number does not fit; its entries have another one"},
     {Verdict::Fallback, "fallback", "fallback written", "not recognised; the fallback value is written"},
     {Verdict::Skipped, "skipped", "skipped", "not recognised; nothing is written"},
     {Verdict::Overridden, "overridden", "overridden", "another parameter decides the value of its entry"},
     {Verdict::Undeclared, "undeclared", "tag not declared", "the device has no such tag"},
     {Verdict::WrongType, "wrong-type", "wrong type", "the device refused the update"},
     {Verdict::GateClosed, "gate-closed", "gate closed",
      "a condition is not met, so the library does not use it"},
     {Verdict::NoEntry, "no-entry", "no entry", "the library reads it, but writes no entry for this value"},
     {Verdict::Unread, "unread", "read by no setter", "no setter reads it"}}};

constexpr const char* kChanges[] = {"none", "new", "changed", "gone"};

const VerdictName& nameOf(Verdict verdict) {
    return *std::find_if(kVerdicts.begin(), kVerdicts.end(),
                         [&](const VerdictName& name) { return name.verdict == verdict; });
}

}  // namespace

const char* verdictWord(Verdict verdict) { return nameOf(verdict).word; }

const char* verdictMeaning(Verdict verdict) { return nameOf(verdict).meaning; }

bool isUnfit(Verdict verdict) { return verdict == Verdict::NotOffered || verdict == Verdict::Overflows; }

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

const char* ownerWord(KeyOwner owner) {
    constexpr const char* words[] = {"none", "platform", "published"};
    return words[static_cast<size_t>(owner)];
}

const char* meaningOf(KeyOwner owner) {
    constexpr const char* meanings[] = {"", "it is a standard key, which the platform handles",
                                        "the library publishes it and does not read it"};
    return meanings[static_cast<size_t>(owner)];
}

const char* changeWord(Change change) { return kChanges[static_cast<size_t>(change)]; }

std::optional<Change> findChange(std::string_view word) {
    const auto* found = std::find(std::begin(kChanges), std::end(kChanges), word);
    if (found == std::end(kChanges)) return std::nullopt;
    return static_cast<Change>(found - std::begin(kChanges));
}

}  // namespace qzcam
