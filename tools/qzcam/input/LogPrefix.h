// SPDX-License-Identifier: Apache-2.0
// Takes the prefix off a line that has gone through a log, so that a dump or parameters that were logged can
// be read.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qzcam {

struct Logged {
    std::string_view tag;
    std::string_view message;
};

// A line in any layout of logcat but the raw one; of the long one it is the head of a message. Nothing for
// other lines.
std::optional<Logged> withoutPrefix(std::string_view line);

// A dump that was logged, with its log prefixes taken off and lines of other tags made empty. Line N stays
// line N. Nothing if no line of the log has a heading of a camera dump as its message.
std::optional<std::string> dumpInLog(std::string_view log);

}  // namespace qzcam
