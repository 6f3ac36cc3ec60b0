// SPDX-License-Identifier: Apache-2.0
// Removes the log prefix of a line, so that a dump or parameters in a log can be read.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qzcam {

struct Logged {
    std::string_view tag;
    std::string_view message;
};

// Reads a line in any layout of logcat except the raw one; in the long layout it is the head of a message.
// Returns nothing for other lines.
std::optional<Logged> withoutPrefix(std::string_view line);

// Returns a logged dump without its log prefixes, with empty lines in place of other tags' lines. Line N
// stays line N. Returns nothing if no message in the log is a heading of a camera dump.
std::optional<std::string> dumpInLog(std::string_view log);

}  // namespace qzcam
