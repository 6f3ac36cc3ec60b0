// SPDX-License-Identifier: Apache-2.0
// Reads fields of log lines, and undoes the text changes of logcat's modifiers.
#pragma once

#include "base/Text.h"
#include "log/Logcat.h"

#include <optional>
#include <string>
#include <string_view>

namespace qzcam {

// A text that is read from the left; read characters are removed.
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
    std::string_view takeDigits() { return takeWhile(isDigit); }

  private:
    std::string_view mRest;
};

std::optional<int> parseId(std::string_view text);

// Removes a time with all its modifiers from the scan. If there is none, returns nothing and leaves the scan
// unchanged.
std::optional<LogTime> takeTime(Scan& scan);

std::string withoutColors(std::string_view text);

// Undoes the escapes of the modifier "printable". Other backslashes stay.
std::string withoutEscapes(std::string_view text);

}  // namespace qzcam
