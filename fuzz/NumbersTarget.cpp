// SPDX-License-Identifier: Apache-2.0
// Compares parsers, bounded memory and vocabularies with simpler versions in wide arithmetic.
#include "Target.h"

#include "text/BoundedMemory.h"
#include "text/Numbers.h"
#include "text/Parsers.h"
#include "text/Vocabularies.h"

#include <utils/Errors.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace qz::fuzz {

namespace {

constexpr int64_t kMin = INT32_MIN;
constexpr int64_t kMax = INT32_MAX;

// Copies the rest of the input, up to a terminator, to the end of a block of memory.
using Text = std::unique_ptr<char[]>;
Text textFrom(Input& input) {
    std::string_view rest = input.rest();
    rest = rest.substr(0, rest.find('\0'));
    Text text(new char[rest.size() + 1]);
    text[rest.copy(text.get(), rest.size())] = '\0';
    return text;
}

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
int64_t saturated(int64_t number) { return std::clamp(number, kMin, kMax); }
int32_t wrapped(int64_t number) { return static_cast<int32_t>(number & 0xFFFFFFFF); }

struct Number {
    int64_t value = 0;  // within 2^40 of 0: saturates far outside 32 bits
    const char* end = nullptr;
};

int digitOf(char c) {
    if (isDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : INT_MAX;
}

// Base 0 means the base that the text's prefix states.
Number read(const char* text, int base) {
    constexpr int64_t farOut = int64_t{1} << 40;
    const char* at = text;
    while (isSpace(*at)) ++at;
    const bool negative = *at == '-';
    if (*at == '-' || *at == '+') ++at;
    if (base == 0) {
        const bool hex = at[0] == '0' && (at[1] == 'x' || at[1] == 'X') && digitOf(at[2]) < 16;
        base = hex ? 16 : *at == '0' ? 8 : 10;
        if (hex) at += 2;
    }
    Number number{0, text};
    for (; digitOf(*at) < base; ++at) {
        number.value = std::min(number.value * base + digitOf(*at), farOut);
        number.end = at + 1;
    }
    if (negative) number.value = -number.value;
    return number;
}

void integers(const char* text) {
    const Number expected = read(text, 10);
    const char* end = nullptr;
    errno = EINVAL;
    const int32_t number = parseInt32(text, &end);
    require(number == saturated(expected.value) && end == expected.end, "an integer saturates");
    require((errno == ERANGE) == (number != expected.value) && (errno == 0 || errno == ERANGE),
            "errno reports the overflow");
    require(parseInt32(text) == number, "both forms agree");

    const int64_t wide = read(text, 0).value;
    const bool fits = wide >= -int64_t{UINT32_MAX} && wide <= UINT32_MAX;
    require(parseUint32(text) == (fits ? static_cast<uint32_t>(wrapped(wide)) : UINT32_MAX),
            "an unsigned wraps");
}

void arithmetic(Input& input) {
    const auto a = input.number<int32_t>();
    const auto b = input.number<int32_t>();
    require(wrapMultiply(a, b) == wrapped(int64_t{a} * b) && wrapAdd(a, b) == wrapped(int64_t{a} + b),
            "wraps");
    if (b != 0) require(wrapDivide(a, b) == wrapped(int64_t{a} / b), "a quotient wraps");
    const auto real = input.number<double>();
    const int32_t whole = truncateToInt32(real);
    if (std::isnan(real)) return require(whole == 0, "no number is 0");
    if (real <= static_cast<double>(kMin)) return require(whole == kMin, "saturates below");
    if (real >= static_cast<double>(kMax)) return require(whole == kMax, "saturates above");
    require(static_cast<double>(whole) == std::trunc(real), "truncates toward zero");
}

void coordinate(const char* text) {
    constexpr int32_t untouched = 77;
    std::array<int32_t, 2> out{untouched, untouched};
    const Number x = read(text, 10);
    const bool parses = *x.end == ',';
    require(parseCoodinate(text, out.data()) == (parses ? 0 : -1), "a comma makes a coordinate");
    const int64_t y = parses ? saturated(read(x.end + 1, 10).value) : untouched;
    require(out[0] == (parses ? saturated(x.value) : untouched) && out[1] == y, "its two numbers");
}

void tuples(Input& input) {
    const size_t count = input.below(8);
    const Text text = textFrom(input);
    std::vector<int32_t> out(count, 77);
    std::vector<int32_t> expected = out;
    int status = android::OK;
    for (const char* at = text.get(); *at != '\0' && status == android::OK; ++at) {
        if (*at != '(') continue;
        const char* next = at + 1;
        for (size_t i = 0; i < count && status == android::OK; ++i) {
            const Number number = read(next, 10);
            const bool fits = number.end != next && saturated(number.value) == number.value;
            if (fits) expected[i] = static_cast<int32_t>(number.value);
            status = fits ? android::OK : android::BAD_VALUE;
            next = number.end + (*number.end == '\0' ? 0 : 1);
        }
    }
    require(parseIntTuples(text.get(), out.data(), count) == status && out == expected, "tuples of integers");

    std::vector<float> reals(count, 77);
    const int realStatus = parseFloatTuples(text.get(), reals.data(), count);
    const bool none = strchr(text.get(), '(') == nullptr;
    require(realStatus == android::OK || (realStatus == android::BAD_VALUE && !none), "tuples of floats");
    // A text that parses as integers without a point also parses as floats, with the same numbers.
    if (status != android::OK || strpbrk(text.get(), ".xXeEpPiInN") != nullptr) return;
    require(realStatus == android::OK, "a tuple of integers is also a tuple of floats");
    const auto same = [](float real, int32_t number) { return real == static_cast<float>(number); };
    require(std::equal(reals.begin(), reals.end(), expected.begin(), same),
            "integers parsed as floats have the same values");
}

// The result must be the nearest number, to the bit.
void reals(const char* text) {
    const char* end = nullptr;
    char* expectedEnd = nullptr;
    const auto same = [&](auto number, auto expected) {
        require(memcmp(&number, &expected, sizeof(number)) == 0 && end == expectedEnd, "reads real numbers");
    };
    const float shorter = parseFloat(text, &end);
    same(shorter, std::strtof(text, &expectedEnd));
    const double longer = parseDouble(text, &end);
    same(longer, std::strtod(text, &expectedEnd));
}

void exposure(const char* text) {
    reals(text);
    const int32_t time = exposureTimeToMicroSecond(text);
    camera_metadata_rational fraction{77, 77};
    parseExposureRational(text, &fraction);
    const char* const slash = strchr(text, '/');
    const bool decimal = slash == nullptr && strchr(text, '.') != nullptr;
    if (decimal) {
        const int32_t scale = fraction.denominator;
        return require(scale == 10 || scale == 100 || scale == 77, "tenths, hundredths or left alone");
    }
    const int64_t numerator = saturated(read(text, 10).value);
    const int64_t denominator = slash == nullptr ? 1 : saturated(read(slash + 1, 10).value);
    require(fraction.numerator == numerator && fraction.denominator == denominator, "a fraction as written");
    const int64_t micros = denominator == 0 ? 0 : wrapped(numerator * 1000000) / denominator;
    require(time == wrapped(micros), "an exposure in microseconds");
}

void seconds(Input& input) {
    const auto time = input.number<int32_t>();
    const size_t size = 1 + input.below(16);
    const std::unique_ptr<char[]> buffer(new char[size]);
    microSecondToSecond(time, buffer.get(), size);
    const bool fraction = time != 0 && time < 1000000;
    std::array<char, 24> expected{};
    std::snprintf(expected.data(), expected.size(), fraction ? "1/%d" : "%d",
                  fraction ? 1000000 / time : time / 1000000);
    const bool fits = strlen(expected.data()) < size;
    require(strcmp(buffer.get(), fits ? expected.data() : "") == 0, "seconds as a text, or none");
}

void memory(Input& input) {
    const size_t room = input.below(40);
    const size_t count = input.below(48);
    const std::string from = input.bytes(48);
    const std::unique_ptr<char[]> to(new char[room]);
    if (count <= from.size() || count > room) {
        const bool copied = memcpy_s(to.get(), room, from.data(), count) == 0;
        require(copied == (count <= room), "memcpy_s succeeds exactly if the bytes fit");
        require(!copied || memcmp(to.get(), from.data(), count) == 0, "memcpy_s copies all bytes");
    }
    require((memset_s(to.get(), room, 0x5A, count) == 0) == (count <= room),
            "memset_s succeeds exactly if the bytes fit");
    if (room == 0 || count > room) return;
    const std::string text = from.substr(0, from.find('\0'));
    const int length = snprintf_s(to.get(), room, count, "%s", text.c_str());
    const bool fits = text.size() < room && text.size() <= count;
    require(length == (fits ? static_cast<int>(text.size()) : -1),
            "snprintf_s returns the length, or -1 if the text does not fit");
    const bool cut = count < room;
    require(fits ? text == to.get() : (cut ? text.substr(0, count) : "") == to.get(),
            "snprintf_s leaves the text, its beginning or an empty text");
}

// Looks up any text; no byte outside it may be read. The tests check the number of each word.
void vocabularies(const char* text) {
    for (const auto& [name, each] : kVocabularies) {
        const std::string same = text;
        require(numberOf(*each, text) == numberOf(*each, same.c_str()),
                "a text is looked up by its bytes alone");
    }
}

}  // namespace

void execute(Input& input) {
    switch (input.below(8)) {
        case 0:
            return arithmetic(input);
        case 1:
            return tuples(input);
        case 2:
            return memory(input);
        case 3:
            return seconds(input);
        case 4:
            return vocabularies(textFrom(input).get());
        case 5:
            return exposure(textFrom(input).get());
        case 6:
            return coordinate(textFrom(input).get());
        default:
            integers(textFrom(input).get());
    }
}

}  // namespace qz::fuzz
