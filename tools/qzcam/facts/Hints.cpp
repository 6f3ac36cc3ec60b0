// SPDX-License-Identifier: Apache-2.0
#include "facts/Hints.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "facts/Lookup.h"
#include "facts/StandardKeys.h"

#include <request/Parameters.h>

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <set>
#include <utility>

namespace qzcam {

namespace {

using Names = std::vector<std::string>;
using Words = std::set<std::string>;

constexpr size_t kMost = 4;  // in one hint
constexpr double kAlike = 0.5;
constexpr size_t kLongest = 64;  // letters of a compared name; a longer one is not a typing error

struct Synonym {
    const char* word;
    const char* ours;
};
constexpr Synonym kSynonyms[] = {
#include "facts/synonyms.inc"
};

bool isUpper(char c) { return std::isupper(static_cast<unsigned char>(c)) != 0; }
bool isAlnum(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

// Returns the name in lower case and without separators.
std::string lettersOf(std::string_view name) {
    std::string letters;
    for (const char c : name) {
        if (isAlnum(c) || c == '+') letters += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return letters;
}

// Prefixes without information about a key.
std::string_view withoutPrefix(std::string_view letters) {
    for (const std::string_view prefix : {"keyqz", "qz", "key"}) {
        if (startsWith(letters, prefix) && letters.size() > prefix.size() + 2)
            return letters.substr(prefix.size());
    }
    return letters;
}

// "ISO", "iso"; "big-aperture", "bigAperture".
Words wordsOf(std::string_view name) {
    Words words;
    std::string word;
    const auto end = [&] {
        if (!word.empty()) words.insert(std::exchange(word, {}));
    };
    for (size_t i = 0; i < name.size(); ++i) {
        const bool begins = isUpper(name[i]) && i > 0 && !isUpper(name[i - 1]);
        if (begins || !isAlnum(name[i])) end();
        word += lettersOf(name.substr(i, 1));
    }
    end();
    return words;
}

// Words with little information about a key.
bool isCommonWord(const std::string& word) {
    static const Words common{"qz",    "key",   "mode", "value", "values", "set",    "supported",
                              "range", "modes", "list", "max",   "min",    "size",   "sizes",
                              "is",    "start", "end",  "step",  "level",  "default"};
    return common.count(word) != 0;
}

Words significantWords(std::string_view name) {
    Words words;
    for (const std::string& word : wordsOf(name)) {
        if (!isCommonWord(word)) words.insert(word);
    }
    return words;
}

// Returns the number of typing errors that a text of this length may have.
size_t allowedErrors(size_t letters) {
    constexpr size_t kLettersPerError = 4;
    constexpr size_t kMostErrors = 3;
    return letters < 3 ? 0 : std::clamp(letters / kLettersPerError, size_t{1}, kMostErrors);
}

bool isNear(std::string_view one, std::string_view other) {
    const size_t shorter = std::min(one.size(), other.size());
    const size_t longer = std::max(one.size(), other.size());
    const size_t most = allowedErrors(shorter);
    return longer - shorter <= most && longer <= kLongest && typingDistance(one, other) <= most;
}

// Accepts typing errors only in words of 8 letters or more: "light" is not "night".
bool isLongAndNear(const std::string& one, const std::string& other) {
    constexpr size_t kLong = 8;
    return one == other || (one.size() >= kLong && isNear(one, other));
}

double likeness(const Words& a, const Words& b,
                const std::function<bool(const std::string&, const std::string&)>& same) {
    if (a.empty() || b.empty()) return 0;
    const auto shared = std::count_if(a.begin(), a.end(), [&](const std::string& word) {
        return anyOf(b, [&](const std::string& other) { return same(word, other); });
    });
    return static_cast<double>(2 * shared) / static_cast<double>(a.size() + b.size());
}

Names knownKeys() {
    Words keys = readKeys();
    const Words published = publishedKeys();
    keys.insert(published.begin(), published.end());
    for (const StandardKey& key : standardKeys()) keys.insert(key.key);
    return {keys.begin(), keys.end()};
}

// Returns the keys of applications by their likeness, the greatest first; those with 0 are left out.
template <typename Likeness>
Names keysByLikeness(Likeness likenessOf) {
    std::vector<std::pair<double, std::string>> found;
    for (const std::string& key : readKeys()) {
        if (const double alike = likenessOf(significantWords(key)); alike > 0)
            found.emplace_back(-alike, key);
    }
    std::sort(found.begin(), found.end());
    return mapped(found, [](const auto& each) { return each.second; });
}

// Returns the keys that contain all words of the name unchanged.
Names withAllWords(const std::string& name) {
    const Words words = significantWords(name);
    return keysByLikeness([&](const Words& others) {
        const bool hasAll = std::includes(others.begin(), others.end(), words.begin(), words.end());
        return hasAll ? likeness(words, others, std::equal_to<>()) : 0;
    });
}

// Returns the words of the name, with terms of the field replaced by the library's terms.
Words withSynonyms(const std::string& name) {
    Words words;
    for (const std::string& word : significantWords(name)) {
        const Synonym* found = findIf(kSynonyms, [&](const Synonym& each) { return word == each.word; });
        words.insert(found == nullptr ? word : found->ours);
    }
    return words;
}

Names withSimilarWords(const Words& words) {
    return keysByLikeness([&](const Words& others) {
        const double alike = likeness(words, others, isNear);
        return alike >= kAlike ? alike : 0;
    });
}

bool namesFeature(const Words& words, qz::Feature feature) {
    Words own = wordsOf(nameOf(feature));
    own.erase("and");
    own.insert(lettersOf(nameOf(feature)));
    return likeness(words, own, isLongAndNear) > 0;
}

void addOfFeature(Names& keys, Words words, const std::string& name) {
    words.insert(lettersOf(name));
    for (const qz::Parameter& row : qz::kParameters) {
        if (!namesFeature(words, row.feature)) continue;
        for (const qz::KeyRow& key : row.keys) {
            if (!key.condition) keys.emplace_back(key.name);
        }
    }
}

// Short words such as "on" and "50" belong to too many keys.
void addKeysWithWord(Names& keys, const std::string& name) {
    constexpr size_t kShortest = 4;
    const std::string letters = lettersOf(name);
    if (letters.size() < kShortest) return;
    const auto isMeant = [&](std::string_view word) { return isLongAndNear(letters, lettersOf(word)); };
    for (const qz::Parameter& row : qz::kParameters) {
        if (row.conversion.vocabulary == nullptr) continue;
        const auto& words = row.conversion.vocabulary->words;
        if (anyOf(words, [&](const qz::Word& word) { return isMeant(word.text); }))
            keys.emplace_back(row.keys[0].name);
    }
    for (const StandardKey& key : standardKeys()) {
        if (anyOf(split(key.words, ' '), isMeant)) keys.emplace_back(key.key);
    }
}

// Returns the first names, without repetitions.
Names firstOf(const Names& names) {
    Names first;
    for (const std::string& name : names) {
        if (first.size() < kMost && !hasElement(first, name)) first.push_back(name);
    }
    return first;
}

Names findLikelyKeys(const std::string& name) {
    static const Names known = knownKeys();
    Names near = nearest(name, known);
    const bool same = !near.empty() && withoutPrefix(lettersOf(name)) == withoutPrefix(lettersOf(near[0]));
    if (same) return near;
    Names keys = withAllWords(name);
    if (!keys.empty()) return firstOf(keys);
    if (!near.empty()) return near;
    const Words words = withSynonyms(name);
    keys = withSimilarWords(words);
    addKeysWithWord(keys, name);
    addOfFeature(keys, words, name);
    return firstOf(keys);
}

}  // namespace

size_t typingDistance(std::string_view one, std::string_view other) {
    std::vector<std::vector<size_t>> distance(one.size() + 1, std::vector<size_t>(other.size() + 1));
    for (size_t i = 0; i <= one.size(); ++i) distance[i][0] = i;
    for (size_t j = 0; j <= other.size(); ++j) distance[0][j] = j;
    for (size_t i = 1; i <= one.size(); ++i) {
        for (size_t j = 1; j <= other.size(); ++j) {
            const size_t replaced = distance[i - 1][j - 1] + (one[i - 1] == other[j - 1] ? 0 : 1);
            distance[i][j] = std::min({replaced, distance[i - 1][j] + 1, distance[i][j - 1] + 1});
            const bool exchanged = i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1];
            if (exchanged) distance[i][j] = std::min(distance[i][j], distance[i - 2][j - 2] + 1);
        }
    }
    return distance[one.size()][other.size()];
}

Names nearest(std::string_view name, const Names& names) {
    const std::string letters = lettersOf(name);
    const std::string_view core = withoutPrefix(letters);
    std::vector<std::pair<size_t, std::string>> found;
    for (const std::string& other : names) {
        const std::string theirs = lettersOf(other);
        const std::string_view theirCore = withoutPrefix(theirs);
        if (isNear(core, theirCore)) found.emplace_back(typingDistance(core, theirCore), other);
    }
    std::sort(found.begin(), found.end());
    Names near;
    for (auto& [distance, other] : found) {
        // A name that differs only in case and separators needs no other hint.
        if (found.front().first == 0 && distance > 0) break;
        near.push_back(std::move(other));
    }
    return firstOf(near);
}

std::string nearestOne(std::string_view name, const Names& names) {
    const Names near = nearest(name, names);
    return near.empty() ? std::string() : near.front();
}

Names likelyKeys(const std::string& name) {
    // Cached, because every request of a session needs the hints for the same keys.
    constexpr size_t kMostKept = 1000;
    thread_local std::map<std::string, Names> cache;
    if (const Names* known = findValue(cache, name)) return *known;
    if (cache.size() >= kMostKept) cache.clear();
    return cache[name] = findLikelyKeys(name);
}

std::string perhaps(const Names& names) {
    return names.empty() ? "" : fmt::format("; perhaps {}", fmt::join(names, " or "));
}

}  // namespace qzcam
