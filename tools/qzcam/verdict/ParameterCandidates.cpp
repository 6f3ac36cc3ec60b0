// SPDX-License-Identifier: Apache-2.0
#include "verdict/ParameterCandidates.h"

#include "facts/Lookup.h"

#include <fmt/format.h>
#include <request/Parameters.h>

#include <algorithm>
#include <cstring>

namespace qzcam {

namespace {

using Form = qz::KeyRow::Form;
using As = qz::KeyRow::As;

// One key of a row, and the values of its entries.
class KeyCandidates {
  public:
    KeyCandidates(const qz::Parameter& row, const qz::KeyRow& key, const EntryTexts& entries);

    std::vector<Candidate> candidates() const;

  private:
    std::vector<Candidate> one(const std::string& value) const { return {{mKey.name, value}}; }
    std::vector<Candidate> words() const;
    std::vector<Candidate> number() const;
    std::vector<Candidate> seconds() const;
    std::vector<Candidate> name() const;
    std::vector<Candidate> several(const char* format) const;

    const qz::Parameter& mRow;
    const qz::KeyRow& mKey;
    std::vector<std::string> mElements;
    const Values* mFirst = nullptr;
    bool mWhole = true;  // all entries of the key are there
};

KeyCandidates::KeyCandidates(const qz::Parameter& row, const qz::KeyRow& key, const EntryTexts& entries)
    : mRow(row), mKey(key) {
    for (size_t i = 0; i < row.entries.count; ++i) {
        if (!ownsEntry(row, key, i)) continue;
        const auto found = entries.find(row.entries[i].tag);
        mWhole = mWhole && found != entries.end() && found->second.type == row.entries[i].type;
        if (!mWhole) return;
        if (mFirst == nullptr) mFirst = &found->second;
        for (size_t j = 0; j < found->second.count; ++j) mElements.push_back(elementText(found->second, j));
    }
    const bool isShared = row.entries.count == 1 && row.keys.count > 1 && mElements.size() == row.keys.count;
    if (isShared) mElements = {mElements[static_cast<size_t>(&key - row.keys.begin())]};
}

std::vector<Candidate> KeyCandidates::candidates() const {
    if (!mWhole || mFirst == nullptr) return {};
    switch (mKey.form) {
        case Form::word:
            return words();
        case Form::number:
            return number();
        case Form::decimal:
            return mElements.size() == 1 ? one(mElements[0]) : std::vector<Candidate>();
        case Form::pair:
            return mElements.size() == 2 ? several("{0}x{1}") : std::vector<Candidate>();
        case Form::point:
            return mElements.size() == 2 ? several("{0},{1}") : std::vector<Candidate>();
        case Form::tuple:
            return one(fmt::format("({})", fmt::join(mElements, ",")));
        case Form::seconds:
            return seconds();
        case Form::name:
            break;
    }
    return name();
}

// Sizes are written with an "x" between them, points and ranges with a comma.
std::vector<Candidate> KeyCandidates::several(const char* format) const {
    const bool isRange = mRow.entries.count == 1;
    if (isRange) return one(fmt::format("{},{}", mElements[0], mElements[1]));
    return one(fmt::format(fmt::runtime(format), mElements[0], mElements[1]));
}

std::vector<Candidate> KeyCandidates::words() const {
    std::vector<Candidate> found;
    if (mRow.conversion.vocabulary == nullptr || mElements.size() != 1) return found;
    for (const qz::Word& word : mRow.conversion.vocabulary->words) {
        const int number = mFirst->type == TYPE_BYTE ? static_cast<uint8_t>(word.number) : word.number;
        if (fmt::to_string(number) == mElements[0]) found.push_back({mKey.name, word.text});
    }
    return found;
}

// A key that is read as an integer cannot be set to -1. Many pairs of numbers give the same ratio of zoom
// steps.
std::vector<Candidate> KeyCandidates::number() const {
    if (mElements.size() != 1 || mFirst->type == TYPE_FLOAT) return {};
    std::string text = mElements[0];
    if (mFirst->type == TYPE_RATIONAL) {
        const size_t slash = text.find('/');
        if (text.substr(slash) != "/1000000") return {};
        text.resize(slash);
    }
    if (mKey.times != 1) {
        const auto product = std::stoll(text);
        if (product % mKey.times != 0) return {};
        text = fmt::to_string(product / mKey.times);
    }
    if (mKey.as != As::text && text == "-1") return {};
    return one(text);
}

// The fraction shows the original text: n/10 and n/100 come from decimals.
std::vector<Candidate> KeyCandidates::seconds() const {
    const auto fraction = std::find_if(mElements.begin(), mElements.end(), [](const std::string& element) {
        return element.find('/') != std::string::npos;
    });
    if (fraction == mElements.end()) return {};
    const auto numerator = std::stoll(*fraction);
    const auto denominator = std::stoll(fraction->substr(fraction->find('/') + 1));
    if (numerator == 0) return one("auto");
    if (denominator == 1) return one(fmt::to_string(numerator));
    if (denominator == 10) return one(fmt::format("{}.{}", numerator / 10, numerator % 10));
    if (denominator == 100) return one(fmt::format("{}.{:02}", numerator / 100, numerator % 100));
    return one(*fraction);
}

// UTF-16 with plain characters only.
std::vector<Candidate> KeyCandidates::name() const {
    std::string text;
    for (size_t i = 0; i + 1 < mFirst->count; i += 2) {
        const uint8_t low = mFirst->bytes[i];
        const bool isPlain =
            mFirst->bytes[i + 1] == 0 && low >= 0x20 && low < 0x7f && low != ';' && low != '=';
        if (!isPlain) return {};
        text += static_cast<char>(low);
    }
    return text.empty() ? std::vector<Candidate>() : one(text);
}

// Returns false for a row that writes its entry for a reason other than the value of its key.
bool isWrittenForKey(const qz::Parameter& row) {
    return !row.gated(qz::Gate::chatClient) && !row.gated(qz::Gate::otherClient) &&
           !row.gated(qz::Gate::secondary);
}

}  // namespace

std::vector<Candidate> candidatesOf(const qz::Parameter& row, const EntryTexts& entries) {
    std::vector<Candidate> found;
    if (!isWrittenForKey(row)) return found;
    for (const qz::KeyRow& key : row.keys) {
        if (key.condition) continue;
        for (Candidate& each : KeyCandidates(row, key, entries).candidates())
            found.push_back(std::move(each));
    }
    return found;
}

std::vector<Candidate> candidatesFor(const std::string& tag, const EntryTexts& entries) {
    std::vector<Candidate> found;
    for (const qz::Parameter& row : qz::kParameters) {
        for (size_t i = 0; i < row.entries.count; ++i) {
            if (tag != row.entries[i].tag) continue;
            for (Candidate& each : candidatesOf(row, entries)) {
                const bool isNew = std::find(found.begin(), found.end(), each) == found.end();
                if (isNew && ownsEntry(row, *keyIn(row, each.key), i)) found.push_back(std::move(each));
            }
        }
    }
    return found;
}

std::string toText(const std::vector<Candidate>& candidates) {
    std::string text;
    for (const Candidate& each : candidates)
        text += fmt::format("{}{}={}", text.empty() ? "" : " or ", each.key, each.value);
    return text;
}

std::optional<std::string> fallbackKey(const std::string& tag, const Values& values) {
    const auto keys = keysWriting(tag);
    const auto rows = rowsWriting(tag);
    if (keys.size() != 1 || rows.size() != 1 || values.count != 1 || !isWrittenForKey(*rows.front()))
        return std::nullopt;
    const qz::Conversion& conversion = rows.front()->conversion;
    if (conversion.kind != qz::Conversion::Kind::words || values.type != rows.front()->entries[0].type)
        return std::nullopt;
    const int unknown = conversion.vocabulary->whenUnknown;
    const bool isUnknown = values.type == TYPE_BYTE
                               ? values.bytes[0] == static_cast<uint8_t>(unknown)
                               : values.type == TYPE_INT32 && elementAt<int32_t>(values, 0) == unknown;
    const bool isWord = !candidatesFor(tag, {{tag, values}}).empty();
    return isUnknown && !isWord ? std::optional(keys.front()) : std::nullopt;
}

std::string causeOf(const std::string& tag, const EntryTexts& entries) {
    const auto candidates = candidatesFor(tag, entries);
    if (!candidates.empty()) return toText(candidates);
    const auto entry = entries.find(tag);
    if (entry != entries.end()) {
        if (const auto key = fallbackKey(tag, entry->second))
            return *key + " with a text that is not one of its words";
    }
    return fmt::format("{}", fmt::join(keysWriting(tag), " or "));
}

}  // namespace qzcam
