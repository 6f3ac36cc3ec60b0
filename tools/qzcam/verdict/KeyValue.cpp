// SPDX-License-Identifier: Apache-2.0
#include "verdict/KeyValue.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "facts/Hints.h"

#include <camera/CameraParameters2.h>
#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace qzcam {

namespace {

using Form = qz::KeyRow::Form;

constexpr double kMicroseconds = 1000000;

// Reads a whole number of any size. A number of more than 64 bits is approximate.
std::optional<double> wholeAt(const char*& at, int base) {
    char* end = nullptr;
    errno = 0;
    const long long number = std::strtoll(at, &end, base);
    if (end == at) return std::nullopt;
    const double value = errno == ERANGE ? std::strtod(at, nullptr) : static_cast<double>(number);
    at = end;
    return value;
}

std::vector<double> wholesAt(const char* at, size_t count) {
    std::vector<double> numbers;
    while (numbers.size() < count) {
        const auto number = wholeAt(at, 10);
        if (!number) break;
        numbers.push_back(*number);
        if (*at != '\0') ++at;
    }
    return numbers;
}

std::vector<double> one(std::optional<double> number) {
    return number ? std::vector<double>{*number} : std::vector<double>();
}

std::vector<double> lastTuple(const qz::KeyRow& key, const std::string& value) {
    const size_t open = value.rfind('(');
    if (open == std::string::npos) return {};
    return wholesAt(value.c_str() + open + 1, key.numbers);
}

std::optional<double> whole(const char* at, int base) {
    const auto number = wholeAt(at, base);
    return *at == '\0' ? number : std::nullopt;
}

bool isDecimal(const char* text) {
    char* end = nullptr;
    (void)std::strtod(text, &end);
    return end != text && *end == '\0';
}

bool isFraction(const char* at) {
    return wholeAt(at, 10) && *at == '/' && whole(at + 1, 10).value_or(0) != 0;
}

// The library reads one or two decimals, and no exponent.
bool isTime(const char* at) {
    const bool hasWhole = wholeAt(at, 10).has_value();
    if (*at != '.') return hasWhole && *at == '\0';
    const size_t decimals = std::strspn(at + 1, "0123456789");
    return (decimals == 1 || decimals == 2) && at[1 + decimals] == '\0';
}

// Returns true if the library's parser for the form reads the text correctly.
bool hasForm(Form form, const std::string& value) {
    const char* text = value.c_str();
    switch (form) {
        case Form::number:
            return value == "auto" || whole(text, 10);
        case Form::decimal:
            return isDecimal(text);
        case Form::pair:
            return wholesAt(text, 2).size() == 2;
        case Form::point:
            return contains(value, ",");
        case Form::tuple:
            return contains(value, "(");
        case Form::seconds:
            return value == "auto" || isFraction(text) || isTime(text);
        default:
            return true;
    }
}

std::string tupleOf(size_t numbers) {
    const std::array<const char*, 5> all{"7", "9", "6", "11", "13"};
    return fmt::format("({})", fmt::join(all.begin(), all.begin() + numbers, ","));
}

// One element of a byte or int32 entry.
struct Element {
    double value;
    uint8_t type;
};

void addElements(std::vector<Element>& elements, const Values& values) {
    for (size_t i = 0; i < values.count; ++i) {
        if (const auto number = integerAt(values, i)) elements.push_back({double(*number), values.type});
    }
}

// Returns the elements of the key: keys that share an entry have one element each.
std::vector<Element> elementsOf(const qz::Parameter& row, const qz::KeyRow& key,
                                const std::vector<VerdictEntry>& entries) {
    std::vector<Element> all;
    for (const VerdictEntry& entry : entries) addElements(all, entry.values);
    const bool isShared = row.entries.count == 1 && row.keys.count > 1 && all.size() == row.keys.count;
    if (!isShared) return all;
    return {all[static_cast<size_t>(&key - row.keys.begin())]};
}

bool fitsInt32(double number) { return number >= INT32_MIN && number <= INT32_MAX; }

std::string shown(double number) { return fmt::format("{:.0f}", number); }

// A number that is the whole text and is not multiplied is shown as the application wrote it.
Overflow overflow(const qz::KeyRow& key, const std::string& value, double number, const Element& element) {
    const bool asWritten = key.form == Form::number && key.times == 1;
    return {asWritten ? value : shown(number), shown(element.value),
            camera_metadata_type_names[element.type]};
}

// Checks the conversion to int32, which comes first for an integer key.
std::optional<Overflow> whenRead(const qz::KeyRow& key, const std::vector<double>& numbers,
                                 const std::string& value) {
    if (key.as == qz::KeyRow::As::text || numbers.empty() || fitsInt32(numbers[0])) return std::nullopt;
    return overflow(key, value, numbers[0], {double(asInteger(value)), TYPE_INT32});
}

// Checks a float entry: a number that is too large becomes infinite.
std::optional<Overflow> asFloat(const std::vector<double>& numbers,
                                const std::vector<VerdictEntry>& entries) {
    if (numbers.size() != 1 || entries.size() != 1 || entries[0].values.type != TYPE_FLOAT)
        return std::nullopt;
    if (std::abs(numbers[0]) <= double(FLT_MAX)) return std::nullopt;
    return Overflow{fmt::format("{:g}", numbers[0]), toText(entries[0].values, entries[0].tag), "float"};
}

}  // namespace

int asInteger(const std::string& value) {
    android::CameraParameters2 parameters;
    parameters.set("n", value.c_str());
    return parameters.getInt("n");
}

int numberOf(const qz::Vocabulary& vocabulary, const std::string& word) {
    const auto* known = findIf(vocabulary.words, [&](const qz::Word& each) { return word == each.text; });
    return known == nullptr ? vocabulary.whenUnknown : known->number;
}

const char* textOf(qz::KeyRow::Limit limit) { return qz::kLimitTexts[static_cast<size_t>(limit)]; }

const char* textOf(qz::Gate gate) { return qz::kGateTexts[static_cast<size_t>(gate)]; }

std::vector<std::string> wordsOf(const qz::Parameter& row, const qz::KeyRow& key) {
    std::vector<std::string> words;
    if (key.form != Form::word || row.conversion.vocabulary == nullptr) return words;
    for (const qz::Word& word : row.conversion.vocabulary->words) words.emplace_back(word.text);
    return words;
}

std::string misunderstanding(const qz::Parameter& row, const qz::KeyRow& key, const std::string& value) {
    if (key.as == qz::KeyRow::As::integer) {
        if (whole(value.c_str(), 0)) return {};
        return fmt::format("{} is not a number; it is read as {}", excerpt(value), asInteger(value));
    }
    const auto words = wordsOf(row, key);
    const bool known = words.empty() ? hasForm(key.form, value) : hasElement(words, value);
    if (known) return {};
    return fmt::format("{} is not recognised{}", excerpt(value),
                       key.form == Form::seconds ? ": expected a fraction, or at most two decimals"
                                                 : perhaps(nearest(value, words)));
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
            break;
    }
    return {"name"};
}

std::optional<double> numberOf(const std::string& text) {
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (end == text.c_str()) return std::nullopt;
    if (*end == '\0') return number;
    if (*end != '/') return std::nullopt;
    const auto divisor = whole(end + 1, 10);
    return divisor && *divisor != 0 ? std::optional(number / *divisor) : std::nullopt;
}

std::vector<double> numbersOf(const qz::KeyRow& key, const std::string& value) {
    switch (key.form) {
        case Form::number:
            return one(whole(value.c_str(), key.as == qz::KeyRow::As::text ? 10 : 0));
        case Form::decimal:
        case Form::seconds:
            return one(numberOf(value));
        case Form::pair:
        case Form::point:
            return wholesAt(value.c_str(), 2);
        case Form::tuple:
            return lastTuple(key, value);
        default:
            return {};
    }
}

std::optional<Overflow> overflowOf(const qz::Parameter& row, const qz::KeyRow& key, const std::string& value,
                                   const std::vector<VerdictEntry>& entries) {
    const auto numbers = numbersOf(key, value);
    if (auto read = whenRead(key, numbers, value)) return read;
    if (key.form == Form::decimal) return asFloat(numbers, entries);
    auto elements = elementsOf(row, key, entries);
    const bool isTime = key.form == Form::seconds;
    if (isTime && !elements.empty()) elements.resize(1);
    if (elements.size() != numbers.size()) return std::nullopt;
    for (size_t i = 0; i < numbers.size(); ++i) {
        const double number = std::trunc(numbers[i] * (isTime ? kMicroseconds : key.times));
        if (number == elements[i].value || (isTime && fitsInt32(number))) continue;
        return overflow(key, value, number, elements[i]);
    }
    return std::nullopt;
}

}  // namespace qzcam
