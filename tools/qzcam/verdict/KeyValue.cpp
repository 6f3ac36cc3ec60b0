// SPDX-License-Identifier: Apache-2.0
#include "verdict/KeyValue.h"

#include "base/Text.h"
#include "facts/Hints.h"

#include <camera/CameraParameters2.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>

namespace qzcam {

namespace {

using Form = qz::KeyRow::Form;

// Skip one number, and one character. Return false if there is none.
bool skipNumber(const char*& at, int base = 10) {
    char* end = nullptr;
    (void)std::strtol(at, &end, base);
    const bool found = end != at;
    at = end;
    return found;
}

bool skip(const char*& at, char c) {
    if (*at != c) return false;
    ++at;
    return true;
}

bool isDecimal(const char* text) {
    char* end = nullptr;
    (void)std::strtod(text, &end);
    return end != text && *end == '\0';
}

bool isPair(const char* at) { return skipNumber(at) && *at != '\0' && skipNumber(++at); }

bool isFraction(const char* at) { return skipNumber(at) && skip(at, '/') && skipNumber(at) && *at == '\0'; }

bool isWhole(const char* at, int base) { return skipNumber(at, base) && *at == '\0'; }

// Returns true if the library's parser for the form reads the text correctly.
bool hasForm(Form form, const std::string& value) {
    const char* text = value.c_str();
    switch (form) {
        case Form::number:
            return value == "auto" || isWhole(text, 10);
        case Form::decimal:
            return isDecimal(text);
        case Form::pair:
            return isPair(text);
        case Form::point:
            return value.find(',') != std::string::npos;
        case Form::tuple:
            return value.find('(') != std::string::npos;
        case Form::seconds:
            return value == "auto" || isFraction(text) || isDecimal(text);
        default:
            return true;
    }
}

std::string tupleOf(int numbers) {
    std::string text = "(7";
    constexpr int others[] = {9, 6, 11, 13};
    for (int i = 1; i < numbers; ++i) text += fmt::format(",{}", others[i - 1]);
    return text + ")";
}

}  // namespace

int asInteger(const std::string& value) {
    android::CameraParameters2 parameters;
    parameters.set("n", value.c_str());
    return parameters.getInt("n");
}

int numberOf(const qz::Vocabulary& vocabulary, const std::string& word) {
    for (const qz::Word& each : vocabulary.words) {
        if (word == each.text) return each.number;
    }
    return vocabulary.whenUnknown;
}

const char* textOf(qz::Gate gate) { return qz::kGateTexts[static_cast<size_t>(gate)]; }

std::vector<std::string> wordsOf(const qz::Parameter& row, const qz::KeyRow& key) {
    std::vector<std::string> words;
    if (key.form != Form::word || row.conversion.vocabulary == nullptr) return words;
    for (const qz::Word& word : row.conversion.vocabulary->words) words.emplace_back(word.text);
    return words;
}

std::string misunderstanding(const qz::Parameter& row, const qz::KeyRow& key, const std::string& value) {
    if (key.as == qz::KeyRow::As::integer) {
        if (isWhole(value.c_str(), 0)) return {};
        return fmt::format("{} is not a number; it is read as {}", excerpt(value), asInteger(value));
    }
    const auto words = wordsOf(row, key);
    const bool isWord = std::find(words.begin(), words.end(), value) != words.end();
    const bool known = key.form == Form::word ? words.empty() || isWord : hasForm(key.form, value);
    if (known) return {};
    return fmt::format("{} is not recognised{}", excerpt(value), perhaps(nearest(value, words)));
}

std::vector<std::string> examplesOf(const qz::Parameter& row, const qz::KeyRow& key) {
    switch (key.form) {
        case Form::word:
            return wordsOf(row, key);
        case Form::number:
            return {"7", "0", "300", "-3"};
        case Form::decimal:
            return {"7", "-3", "2.5"};
        case Form::pair:
            return {"7x9", "7,9"};
        case Form::point:
            return {"7,9"};
        case Form::tuple:
            return {tupleOf(key.numbers)};
        case Form::seconds:
            return {"auto", "2", "1/4", "2.5"};
        case Form::name:
            return {"name"};
    }
    return {};
}

}  // namespace qzcam
