// SPDX-License-Identifier: Apache-2.0
// Fields of log lines, and what modifiers of logcat do to the text.
#pragma once

#include "log/Logcat.h"

#include <optional>
#include <string>
#include <string_view>

namespace qzcam {

// A text that is taken off from the left.
class Scan {
  public:
    explicit Scan(std::string_view text) : mRest(text) {}

    std::string_view rest() const { return mRest; }
    char front() const { return mRest.empty() ? '\0' : mRest.front(); }

    bool take(char c) {
        if (mRest.empty() || mRest.front() != c) return false;
        mRest.remove_prefix(1);
        return true;
    }

    template <typename Wanted>
    std::string_view takeWhile(Wanted wanted) {
        size_t length = 0;
        while (length < mRest.size() && wanted(mRest[length])) ++length;
        const std::string_view taken = mRest.substr(0, length);
        mRest.remove_prefix(length);
        return taken;
    }

    void skipBlanks() {
        takeWhile([](char c) { return c == ' '; });
    }
    std::string_view takeDigits() {
        return takeWhile([](char c) { return c >= '0' && c <= '9'; });
    }

  private:
    std::string_view mRest;
};

std::optional<int> parseId(std::string_view text);

// Takes a time with all its modifiers off the scan; nothing, and the scan as it was, if there is none.
std::optional<LogTime> takeTime(Scan& scan);

std::string withoutColors(std::string_view text);

// Undoes the escapes of the modifier "printable". A text in which a backslash stands for itself stays as it
// is.
std::string withoutEscapes(std::string_view text);

}  // namespace qzcam
