// Which log lines are shown: as the platform's own tools have it, by tag and level.
#pragma once

#include "host/Events.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace qzcam {

class LogFilter {
  public:
    // Lines of this level and above, of any tag.
    LogFilter(int lowest) : mLowest(lowest) {}  // NOLINT(google-explicit-constructor): a level is a filter

    // A level, or "TAG:LEVEL TAG:LEVEL *:LEVEL". Tags that are not named keep the level of `*`, or the
    // default. Nothing when it is neither.
    static std::optional<LogFilter> parse(std::string_view text);

    bool shows(const LogEvent& line) const;

    static constexpr const char* kDefault = "warning";

  private:
    bool add(std::string_view rule);

    int mLowest;
    std::map<std::string, int, std::less<>> mByTag;
};

}  // namespace qzcam
