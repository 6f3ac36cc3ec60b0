// SPDX-License-Identifier: Apache-2.0
// Numbers and lists as text, without a format to interpret and usually without an allocation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace qz {

// A number as text.
class Decimal {
  public:
    explicit Decimal(int32_t number);

    const char* c_str() const { return mText; }
    size_t length() const { return mLength; }

  private:
    char mText[sizeof("-2147483648")];
    size_t mLength;
};

// A text under construction. A short text, as nearly all are, is kept inside the object.
class Text {
  public:
    Text() {  // NOLINT(cppcoreguidelines-pro-type-member-init): the rest is never read
        mShort[0] = '\0';
    }

    Text& append(const char* piece, size_t length) {
        if (length > mRoom) return appendLong(piece, length);
        char* const end = mShort + kMostShort - mRoom;
        memcpy(end, piece, length);
        end[length] = '\0';
        mRoom -= length;
        return *this;
    }

    Text& operator<<(const char* piece) { return append(piece, strlen(piece)); }

    Text& operator<<(char c) {
        if (mRoom == 0) return appendLong(&c, 1);
        char* const end = mShort + kMostShort - mRoom;
        end[0] = c;
        end[1] = '\0';
        --mRoom;
        return *this;
    }

    Text& operator<<(int32_t number) {
        const Decimal digits(number);
        return append(digits.c_str(), digits.length());
    }

    size_t size() const { return mLong.empty() ? kMostShort - mRoom : mLong.size(); }
    const char* c_str() const { return mLong.empty() ? mShort : mLong.c_str(); }

  private:
    static constexpr size_t kMostShort = 255;

    Text& appendLong(const char* piece, size_t length);

    char mShort[kMostShort + 1];  // NOLINT(cppcoreguidelines-pro-type-member-init): only the first is read
    size_t mRoom = kMostShort;    // unused bytes of the short buffer
    std::string mLong;
};

}  // namespace qz
