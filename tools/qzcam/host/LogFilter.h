// SPDX-License-Identifier: Apache-2.0
// Filter for log lines by tag and level, as in the platform's own tools.
#pragma once

#include "host/Events.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace qzcam {

// Returns true for a line of the library that only names the function that begins.
bool isFunctionStart(std::string_view text);

class LogFilter {
  public:
    // Shows lines of this level and above, of any tag.
    LogFilter(int lowest) : mLowest(lowest) {}  // NOLINT(google-explicit-constructor): a level is a filter

    // Parses a level, or "TAG:LEVEL TAG:LEVEL *:LEVEL". Other tags get the level of `*`, or the default.
    // Returns nothing for any other text.
    static std::optional<LogFilter> parse(std::string_view text);

    bool shows(const LogEvent& line) const;

    // Returns the level that `*` and a level alone use for this line.
    static int levelOf(const LogEvent& line);

    static constexpr const char* kDefault = "warning";

  private:
    bool add(std::string_view rule);

    int mLowest;
    std::map<std::string, int, std::less<>> mByTag;
};

}  // namespace qzcam
