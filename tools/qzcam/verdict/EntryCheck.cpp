// SPDX-License-Identifier: Apache-2.0
#include "verdict/EntryCheck.h"

#include "base/Text.h"
#include "facts/Lookup.h"
#include "facts/RowTexts.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <set>

namespace qzcam {

namespace {

using Finding = std::optional<TagFinding>;

constexpr size_t kMostUnknown = 8;  // largest number of unknown values in a message

std::string values(size_t count) { return counted(count, "value"); }

int32_t numberAt(const Values& entry, size_t index) {
    return static_cast<int32_t>(integerAt(entry, index).value_or(0));
}

TagFinding malformed(std::string problem) { return {TagVerdict::Malformed, std::move(problem)}; }
TagFinding doubtful(std::string problem) { return {TagVerdict::Doubtful, std::move(problem)}; }

// "exactly 2 are", "at least 1 is"
std::string expectedCount(const qz::EntryRow& entry) {
    const bool isExact = entry.least == entry.most;
    return fmt::format("{}{} {}", isExact ? "exactly " : "", countText(entry),
                       isExact && entry.least == 1 ? "is" : "are");
}

Finding wrongCount(const TagFact& fact, const Values& entry) {
    if (fact.entry.allows(entry.count)) return std::nullopt;
    return malformed(fmt::format("{}, where {} expected: the library ignores it{}", values(entry.count),
                                 expectedCount(fact.entry), unpublished(fact)));
}

Finding unknownWords(const qz::Vocabulary& vocabulary, const Values& entry) {
    std::vector<std::string> unknown;
    std::set<int32_t> seen;
    for (size_t i = 0; i < entry.count && unknown.size() <= kMostUnknown; ++i) {
        const int32_t number = numberAt(entry, i);
        if (!seen.insert(number).second || wordFor(vocabulary, number) != nullptr) continue;
        unknown.push_back(fmt::format("{} (published as '{}')", number, vocabulary.fallback));
    }
    if (unknown.empty()) return std::nullopt;
    if (unknown.size() > kMostUnknown) unknown.back() = "and more";
    return malformed(
        fmt::format("unknown number{} {}", unknown.size() == 1 ? "" : "s", fmt::join(unknown, ", ")));
}

Finding openText(const StaticEntry& entry) {
    const auto& bytes = entry.values.bytes;
    if (entry.cut || std::find(bytes.begin(), bytes.end(), 0) != bytes.end()) return std::nullopt;
    return malformed("a text without terminator");
}

Finding reversedRange(const Values& entry) {
    if (numberAt(entry, 0) <= numberAt(entry, 1)) return std::nullopt;
    return malformed(fmt::format("a range from {} down to {}", numberAt(entry, 0), numberAt(entry, 1)));
}

Finding unpairedSize(const Values& entry) {
    if (entry.count % 2 == 0) return std::nullopt;
    return malformed(entry.count == 1
                         ? "1 value: published as an empty text"
                         : fmt::format("{}: the last one is unpaired and not read", values(entry.count)));
}

Finding unreadValues(const Values& entry) {
    if (entry.count == 1) return std::nullopt;
    return doubtful(fmt::format("{}: only the first is read", values(entry.count)));
}

Finding oddFlag(const Values& entry) {
    if (auto unread = unreadValues(entry)) return unread;
    if (numberAt(entry, 0) <= 1) return std::nullopt;
    return doubtful(
        fmt::format("a flag of {}: published as true, but a reader may expect 1", numberAt(entry, 0)));
}

Finding wrongValues(const qz::Publication& publication, const StaticEntry& entry) {
    using Form = qz::Publication::Form;
    switch (publication.form) {
        case Form::words:
            return unknownWords(*publication.vocabulary, entry.values);
        case Form::text:
            return openText(entry);
        case Form::range:
            return reversedRange(entry.values);
        case Form::sizes:
            return unpairedSize(entry.values);
        case Form::flag:
            return oddFlag(entry.values);
        case Form::number:
        case Form::first:
            return unreadValues(entry.values);
        default:
            return std::nullopt;
    }
}

}  // namespace

std::string unpublished(const TagFact& fact) {
    if (fact.capability == nullptr || fact.names.empty()) return {};
    return fmt::format(": {} {} not published", fmt::join(fact.names, ", "),
                       fact.names.size() == 1 ? "is" : "are");
}

TagFinding checkEntry(const TagFact& fact, const StaticEntry& entry) {
    if (const Finding found = wrongCount(fact, entry.values)) return *found;
    if (fact.publication == nullptr) return {};
    return wrongValues(*fact.publication, entry).value_or(TagFinding{});
}

}  // namespace qzcam
