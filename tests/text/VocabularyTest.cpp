// SPDX-License-Identifier: Apache-2.0
#include "text/Vocabularies.h"

#include "support/Log.h"

#include <gmock/gmock.h>

#include <cctype>
#include <string>
#include <vector>

namespace qz::test {
namespace {

std::string printed(const Vocabulary& vocabulary, int number) {
    std::string text = vocabulary.unknownText;
    text.replace(text.find("%s"), 2, vocabulary.toText);
    return text.replace(text.find("%u"), 2, std::to_string(number));
}

// Texts that are similar to the word: longer, shorter, or with capitals exchanged.
std::vector<std::string> nearMisses(const std::string& word) {
    std::string other = word;
    for (char& c : other) c = static_cast<char>(std::isupper(c) != 0 ? std::tolower(c) : std::toupper(c));
    return {word + " ", " " + word, word.substr(1), word + word, other == word ? "" : other};
}

bool isWord(const Vocabulary& vocabulary, const std::string& text) {
    for (const Word& word : vocabulary.words) {
        if (text == word.text) return true;
    }
    return false;
}

TEST(Vocabulary, TextToNumber) {
    for (const auto& [name, vocabulary] : kVocabularies) {
        SCOPED_TRACE(name);
        EXPECT_EQ(numberOf(*vocabulary, nullptr), vocabulary->whenNull);
        EXPECT_EQ(numberOf(*vocabulary, ""), vocabulary->whenUnknown);
        for (const Word& word : vocabulary->words) {
            EXPECT_EQ(numberOf(*vocabulary, word.text), word.number) << word.text;
            for (const std::string& miss : nearMisses(word.text)) {
                if (isWord(*vocabulary, miss)) continue;
                EXPECT_EQ(numberOf(*vocabulary, miss.c_str()), vocabulary->whenUnknown) << miss;
            }
        }
    }
}

TEST(Vocabulary, NumberToText) {
    for (const auto& [name, vocabulary] : kVocabularies) {
        if (vocabulary->toText == nullptr) continue;
        SCOPED_TRACE(name);
        for (int number = 0; number < 256; ++number) {
            const Word* first = nullptr;
            for (const Word& word : vocabulary->published) {
                if (first == nullptr && word.number == number) first = &word;
            }
            LogCapture log;
            const auto byte = static_cast<uint8_t>(number);
            EXPECT_STREQ(findWord(*vocabulary, byte), first == nullptr ? nullptr : first->text);
            if (vocabulary->unknownText == nullptr) continue;
            EXPECT_STREQ(wordOf(*vocabulary, byte), first == nullptr ? vocabulary->fallback : first->text);
            const std::vector<LogLine> lines = log.take();
            ASSERT_EQ(lines.size(), first == nullptr ? 1U : 0U);
            if (first == nullptr) {
                EXPECT_EQ(lines[0],
                          (LogLine{ANDROID_LOG_ERROR, "CameraQzParam", printed(*vocabulary, number)}));
            }
        }
    }
}

}  // namespace
}  // namespace qz::test
