// SPDX-License-Identifier: Apache-2.0
// A vocabulary: the words of the application and the numbers of the pipeline. Vocabularies.h contains all of
// them.
//
// Words are compared exactly. A setter stores the number in the entry's element type, so that -1 for an
// unknown word becomes 255 in a byte. An absent text (null) is not an error: each vocabulary has a number for
// it.
#pragma once

#include "rows/Format.h"

#include <cstddef>
#include <cstdint>

namespace qz {

struct Word {
    const char* text;
    int number;
};

// A table of words, or none.
struct Words {
    const Word* first = nullptr;
    size_t count = 0;

    constexpr Words() = default;
    template <size_t N>
    constexpr Words(const Word (&words)[N]) : first(words), count(N) {}
    constexpr Words(const Word* words, size_t length) : first(words), count(length) {}

    constexpr const Word* begin() const { return first; }
    constexpr const Word* end() const { return first + count; }
};

struct Vocabulary {
    // Text-to-number direction, for requests.
    Words words;
    int whenNull = 0;
    int whenUnknown = 0;

    // Number-to-text direction, for published lists. A vocabulary without this direction has null names. A
    // number converts to its first word. An unknown number is logged with unknownText and the name toText,
    // and gives the fallback.
    const char* toText = nullptr;
    Words published = {};
    const char* unknownText = nullptr;
    const char* fallback = nullptr;
};

// No log line contains the name of the text-to-number direction, so the library does not store it.
struct NamedVocabulary {
    const char* toNumber;
    const Vocabulary* vocabulary;
};

int numberOf(const Vocabulary& vocabulary, const char* text);

// Returns null, without a log line, for a number that has no word.
const char* findWord(const Vocabulary& vocabulary, uint8_t number);

const char* wordOf(const Vocabulary& vocabulary, uint8_t number);

constexpr bool distinct(Words words) {
    for (const Word* a = words.begin(); a != words.end(); ++a) {
        for (const Word* b = a + 1; b != words.end(); ++b) {
            if (sameText(a->text, b->text)) return false;
        }
    }
    return true;
}

constexpr bool sound(const Vocabulary& v) {
    const bool isReverseSound =
        v.unknownText == nullptr || (v.toText != nullptr && converts(v.unknownText, "su"));
    return distinct(v.words) && distinct(v.published) && isReverseSound;
}

}  // namespace qz
