// SPDX-License-Identifier: Apache-2.0
#include "input/Encoding.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace qzcam {

namespace {

constexpr size_t kSample = 4096;
constexpr std::string_view kUtf8Mark = "\xef\xbb\xbf";
constexpr uint32_t kReplacement = 0xfffd;

unsigned byteAt(std::string_view text, size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
}

size_t countNuls(std::string_view text, size_t first) {
    size_t count = 0;
    for (size_t i = first; i < text.size(); i += 2)
        if (text[i] == '\0') ++count;
    return count;
}

// In UTF-16 every other byte of plain English is zero.
bool isHalfEmpty(size_t nuls, size_t others, size_t size) {
    return nuls * 10 > size * 4 && others * 20 < size;
}

// Returns the position of the first byte from `i` on that is not ASCII.
size_t skipAscii(std::string_view text, size_t i) {
    constexpr uint64_t kHigh = 0x8080808080808080U;
    for (uint64_t word = 0; i + sizeof(word) <= text.size(); i += sizeof(word)) {
        std::memcpy(&word, text.data() + i, sizeof(word));
        if ((word & kHigh) != 0) break;
    }
    while (i < text.size() && byteAt(text, i) < 0x80) ++i;
    return i;
}

// Returns the number of bytes of the character at this place; 0 if it is not valid.
size_t characterSize(std::string_view text, size_t i) {
    const unsigned first = byteAt(text, i);
    const size_t size = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4) return 0;
    for (size_t k = 1; k < size; ++k) {
        if ((byteAt(text, i + k) & 0xc0U) != 0x80) return 0;
    }
    return size;
}

// A Latin-1 text with letters beyond ASCII is hardly ever valid UTF-8.
bool isLatin1(std::string_view text) {
    bool broken = false;
    for (size_t i = skipAscii(text, 0); i < text.size(); i = skipAscii(text, i)) {
        const size_t size = characterSize(text, i);
        if (size > 0) return false;
        broken = true;
        ++i;
    }
    return broken;
}

void appendUtf8(Memory& text, uint32_t code) {
    char* const at = text.room(4);
    const auto tail = [code](unsigned shift) { return static_cast<char>(0x80U | (code >> shift & 0x3fU)); };
    if (code < 0x80) {
        at[0] = static_cast<char>(code);
        return text.filled(1);
    }
    const size_t size = code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    constexpr std::array<unsigned, 5> kFirst{0, 0, 0xc0, 0xe0, 0xf0};
    at[0] = static_cast<char>(kFirst[size] | code >> (6 * (size - 1)));
    for (size_t i = 1; i < size; ++i) at[i] = tail(static_cast<unsigned>(6 * (size - 1 - i)));
    text.filled(size);
}

// Returns the code units of UTF-16. If the number of bytes is odd, the last unit has only one byte.
class Units {
  public:
    Units(std::string_view bytes, bool big) : mBytes(bytes), mBig(big) {}

    size_t offset() const { return mOffset; }
    bool atEnd() const { return mOffset >= mBytes.size(); }
    uint32_t peek() const {
        const unsigned first = byteAt(mBytes, mOffset);
        const unsigned second = byteAt(mBytes, mOffset + 1);
        if (mOffset + 1 >= mBytes.size()) return kReplacement;
        return mBig ? first << 8U | second : second << 8U | first;
    }
    uint32_t next() {
        const uint32_t unit = peek();
        mOffset += 2;
        return unit;
    }

  private:
    std::string_view mBytes;
    bool mBig;
    size_t mOffset = 0;
};

uint32_t nextCode(Units& units) {
    const uint32_t unit = units.next();
    if (unit < 0xd800 || unit > 0xdfff) return unit;
    const bool isPair = unit < 0xdc00 && !units.atEnd() && units.peek() >= 0xdc00 && units.peek() <= 0xdfff;
    return isPair ? 0x10000 + ((unit - 0xd800) << 10U) + (units.next() - 0xdc00) : kReplacement;
}

Memory fromUtf16(Memory bytes, bool big) {
    Memory text(bytes.size());
    Units units(bytes.view(), big);
    if (units.peek() == 0xfeff) units.next();
    while (!units.atEnd()) {
        appendUtf8(text, nextCode(units));
        bytes.release(units.offset());
    }
    return text;
}

Memory fromLatin1(Memory bytes) {
    Memory text(bytes.size());
    for (size_t i = 0; i < bytes.size(); bytes.release(i)) {
        const std::string_view next = bytes.view().substr(i, kSample);
        const size_t ascii = skipAscii(next, 0);
        text.append(next.substr(0, ascii));
        i += ascii;
        if (ascii < next.size()) appendUtf8(text, byteAt(bytes.view(), i++));
    }
    return text;
}

// Editors of other systems write a mark at the start of a text.
Memory withoutMark(Memory text) {
    if (!startsWith(text.view(), kUtf8Mark)) return text;
    std::memmove(text.data(), text.data() + kUtf8Mark.size(), text.size() - kUtf8Mark.size());
    text.shrink(text.size() - kUtf8Mark.size());
    return text;
}

}  // namespace

Encoding encodingOf(std::string_view bytes) {
    if (startsWith(bytes, "\xff\xfe")) return Encoding::Utf16Little;
    if (startsWith(bytes, "\xfe\xff")) return Encoding::Utf16Big;
    const std::string_view sample = bytes.substr(0, kSample);
    const size_t even = countNuls(sample, 0);
    const size_t odd = countNuls(sample, 1);
    if (isHalfEmpty(odd, even, sample.size() / 2)) return Encoding::Utf16Little;
    if (isHalfEmpty(even, odd, sample.size() / 2)) return Encoding::Utf16Big;
    return isLatin1(bytes) ? Encoding::Latin1 : Encoding::Utf8;
}

const char* nameOf(Encoding encoding) {
    switch (encoding) {
        case Encoding::Utf16Little:
            return "UTF-16, little endian";
        case Encoding::Utf16Big:
            return "UTF-16, big endian";
        case Encoding::Latin1:
            return "Latin-1";
        case Encoding::Utf8:
            break;
    }
    return "UTF-8";
}

Memory decoded(Memory bytes, Encoding encoding) {
    switch (encoding) {
        case Encoding::Utf16Little:
            return fromUtf16(std::move(bytes), false);
        case Encoding::Utf16Big:
            return fromUtf16(std::move(bytes), true);
        case Encoding::Latin1:
            return fromLatin1(std::move(bytes));
        case Encoding::Utf8:
            break;
    }
    return withoutMark(std::move(bytes));
}

bool isBinary(std::string_view text) {
    const std::string_view sample = text.substr(0, kSample);
    const auto isControl = [](unsigned char c) { return c < ' ' && (c < '\a' || c > '\r') && c != 0x1b; };
    const auto controls = static_cast<size_t>(std::count_if(sample.begin(), sample.end(), isControl));
    return sample.size() >= 64 && controls * 10 > sample.size();
}

}  // namespace qzcam
