// SPDX-License-Identifier: Apache-2.0
#include "text/Vocabulary.h"

#include "text/Log.h"

#include <cstring>

namespace qz {

int numberOf(const Vocabulary& vocabulary, const char* text) {
    if (text == nullptr) return vocabulary.whenNull;
    for (const Word& word : vocabulary.words) {
        if (strcmp(word.text, text) == 0) return word.number;
    }
    return vocabulary.whenUnknown;
}

const char* findWord(const Vocabulary& vocabulary, uint8_t number) {
    // Most tables count from 0. This saves 1 percent of the instructions of a capability pass.
    const Words& words = vocabulary.published;
    if (number < words.count && words.first[number].number == number) return words.first[number].text;
    for (const Word& word : words) {
        if (word.number == number) return word.text;
    }
    return nullptr;
}

const char* wordOf(const Vocabulary& vocabulary, uint8_t number) {
    if (const char* text = findWord(vocabulary, number)) return text;
    logText(ANDROID_LOG_ERROR, kTranslatorLog, vocabulary.unknownText, vocabulary.toText, number);
    return vocabulary.fallback;
}

}  // namespace qz
