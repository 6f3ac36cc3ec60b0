// SPDX-License-Identifier: Apache-2.0
#include "text/Text.h"

#include <charconv>

namespace qz {

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): bytes after the terminator are never read
Decimal::Decimal(int32_t number) {
    char* const end = std::to_chars(mText, mText + sizeof(mText) - 1, number).ptr;
    *end = '\0';
    mLength = static_cast<size_t>(end - mText);
}

Text& Text::appendLong(const char* piece, size_t length) {
    if (mLong.empty()) mLong.assign(mShort, size());
    mLong.append(piece, length);
    mRoom = 0;
    return *this;
}

}  // namespace qz
