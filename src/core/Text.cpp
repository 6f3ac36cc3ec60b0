#include "core/Text.h"

namespace qz {

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): what stands before the digits is never read
Decimal::Decimal(int32_t number) {
    // Unsigned, or the smallest number had no opposite.
    const bool negative = number < 0;
    auto rest = negative ? 0U - static_cast<uint32_t>(number) : static_cast<uint32_t>(number);
    char* const end = mText + sizeof(mText) - 1;
    char* at = end;
    *at = '\0';
    do {
        *--at = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (negative) *--at = '-';
    mLength = static_cast<size_t>(end - at);
}

Text& Text::appendLong(const char* piece, size_t length) {
    if (mLong.empty()) mLong.assign(mShort, size());
    mLong.append(piece, length);
    mRoom = 0;
    return *this;
}

}  // namespace qz
