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
    for (const Word& word : vocabulary.published) {
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
