#include "verdict/Understanding.h"

#include "base/Text.h"
#include "facts/ProbeTexts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <vector>

namespace qzcam {

namespace {

using Kind = TraceStep::Kind;

template <typename T>
void addNumbers(const Values& values, std::vector<double>& numbers) {
    for (size_t offset = 0; offset + sizeof(T) <= values.bytes.size(); offset += sizeof(T)) {
        T number{};
        std::memcpy(&number, values.bytes.data() + offset, sizeof(number));
        numbers.push_back(static_cast<double>(number));
    }
}

// A rational counts as its two numbers.
std::vector<double> numbersOf(const Values& values) {
    std::vector<double> numbers;
    if (values.type == TYPE_BYTE) addNumbers<uint8_t>(values, numbers);
    if (values.type == TYPE_INT32 || values.type == TYPE_RATIONAL) addNumbers<int32_t>(values, numbers);
    if (values.type == TYPE_FLOAT) addNumbers<float>(values, numbers);
    if (values.type == TYPE_INT64) addNumbers<int64_t>(values, numbers);
    if (values.type == TYPE_DOUBLE) addNumbers<double>(values, numbers);
    return numbers;
}

std::vector<double> numbersIn(const std::string& text) {
    std::vector<double> numbers;
    for (const char* at = text.c_str(); *at != '\0';) {
        char* end = nullptr;
        const double number = std::strtod(at, &end);
        if (end == at) {
            ++at;
        } else {
            numbers.push_back(number);
            at = end;
        }
    }
    return numbers;
}

// The entry that stands for the key's value: its first one.
const TraceStep* firstOwnUpdate(Influence& influence, const std::string& key) {
    for (const size_t step : influence.own(key)) {
        if (influence.steps()[step].kind == Kind::Update) return &influence.steps()[step];
    }
    return nullptr;
}

bool isReadAsInteger(const Influence& influence, const std::string& key) {
    return std::any_of(influence.steps().begin(), influence.steps().end(), [&](const TraceStep& step) {
        return step.kind == Kind::Read && step.name == key && step.asInteger;
    });
}

const WordNumber* findWord(const WordTable& table, const std::string& word) {
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const WordNumber& row) { return row.word == word; });
    return found == table.end() ? nullptr : &*found;
}

// A byte keeps the low bits of a number.
bool holds(const TraceStep& update, int number) {
    const auto numbers = numbersOf(update.values);
    const double expected = update.values.type == TYPE_BYTE ? static_cast<uint8_t>(number) : number;
    return !numbers.empty() && numbers.front() == expected;
}

// Whether each word of the table becomes its number in the key's entry.
bool isVocabulary(Influence& influence, const std::string& key, const WordTable& table,
                  const std::string& tag) {
    return std::all_of(table.begin(), table.end(), [&](const WordNumber& row) {
        const Trace other = influence.with(key, row.word);
        const auto updates = updatesOf(other, tag);
        return std::any_of(updates.begin(), updates.end(),
                           [&](const TraceStep* update) { return holds(*update, row.number); });
    });
}

// Of a key without a vocabulary a word is understood when it stands for the same number wherever it is known:
// the "auto" of numbers.
bool isKnownWord(Influence& influence, const std::string& key, const TraceStep& update) {
    const std::string& value = influence.parameters().at(key);
    bool elsewhere = false;
    bool hasVocabulary = false;
    for (const WordTable& table : wordTables()) {
        const WordNumber* word = findWord(table, value);
        if (hasVocabulary && word == nullptr) continue;
        if (isVocabulary(influence, key, table, update.name)) {
            if (word != nullptr) return true;
            hasVocabulary = true;
        } else {
            elsewhere = elsewhere || (word != nullptr && holds(update, word->number));
        }
    }
    return elsewhere && !hasVocabulary;
}

bool isWritten(const Trace& trace, Influence& influence) {
    const auto added = stepsNotIn(trace, influence.steps());
    return std::any_of(added.begin(), added.end(),
                       [&](size_t step) { return trace[step].kind == Kind::Update; });
}

}  // namespace

std::string misunderstanding(Influence& influence, const std::string& key) {
    const std::string& value = influence.parameters().at(key);
    if (isReadAsInteger(influence, key)) {
        char* end = nullptr;
        (void)std::strtol(value.c_str(), &end, 0);
        const bool whole = end != value.c_str() && *end == '\0';
        return whole ? "" : fmt::format("{} is no number; read as {}", excerpt(value), asInteger(value));
    }
    const TraceStep* update = firstOwnUpdate(influence, key);
    if (update == nullptr || influence.with(key, kMeaningless) != influence.steps()) return {};
    const auto numbers = numbersIn(value);
    const auto written = numbersOf(update->values);
    const bool same = !numbers.empty() && numbers.size() <= written.size() &&
                      std::equal(numbers.begin(), numbers.end(), written.begin());
    if (same || isKnownWord(influence, key, *update)) return {};
    return fmt::format("{} is read as any unknown text", excerpt(value));
}

// The library tells an absent integer by the number that the platform gives for it.
std::string whySkipped(const Influence& influence, const std::string& key) {
    const std::string& value = influence.parameters().at(key);
    const bool absent = isReadAsInteger(influence, key) && asInteger(value) == -1;
    return absent ? "-1 counts as not set" : fmt::format("{} is not understood", excerpt(value));
}

Alternative findAlternative(Influence& influence, const std::string& key) {
    const std::string& value = influence.parameters().at(key);
    Alternative found;
    const auto writes = [&](const std::string& word) {
        return word != value && isWritten(influence.with(key, word), influence);
    };
    for (const WordTable& table : wordTables()) {
        const bool same = findWord(table, value) != nullptr;
        if (!same && !found.value.empty()) continue;
        const auto word =
            std::find_if(table.begin(), table.end(), [&](const WordNumber& row) { return writes(row.word); });
        if (word != table.end()) found = {word->word, same};
        if (found.sameVocabulary) return found;
    }
    if (!found.value.empty()) return found;
    for (const std::string& text : sampleTexts()) {
        if (writes(text)) return {text, false};
    }
    return found;
}

}  // namespace qzcam
