// SPDX-License-Identifier: Apache-2.0
// Reads parameters in the forms in which people have them: flattened, or from a camera service's dump.
#pragma once

#include "base/Text.h"
#include "host/Camera.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// Number of bytes in a line of a dump, with its tab. A longer line is cut, and the next one continues it.
constexpr size_t kLongestDumpedLine = 254;

struct ParameterText {
    std::vector<Parameter> parameters;
    std::vector<size_t> lines;     // the line of each parameter
    std::vector<size_t> cutLines;  // lines that are left out, because their values are cut

    void add(std::string_view key, std::string_view value, size_t line);
};

// Returns true for a text with the characters of a key. A path or another notation has other characters.
bool isParameterKey(std::string_view text);

// Parses "key=value;key=value", or lines "<tab>key: value". Any other text is reported as a problem, and the
// rest is read.
ParameterText parseParameters(std::string_view text, Problems& problems, size_t firstLine = 1);

// Adds the parameters of one line "<tab>key: value". If a line was cut, several may stand on it.
void addDumpedParameters(std::string_view line, size_t number, ParameterText& text, Problems& problems);

// The log cuts a message at this number of bytes without a mark.
constexpr size_t kNativeLimit = 1023;

// A message in which the platform logs parameters.
struct LoggedParameters {
    enum class Kind { Set, Got, Defaults };
    Kind kind = Kind::Set;
    std::string_view of;  // number of the process, or of the camera for defaults
    ParameterText text;   // without the last parameter if the message is cut
    bool cut = false;
};

// Parses "setParameters (pid 812) (iso=100;zoom=0)", "getParameters (pid 812) (...)", or "initialize: Default
// parameters converted from camera 0:", with or without parameters after it. Returns nothing for other
// messages.
std::optional<LoggedParameters> parseLogged(std::string_view message, size_t line);

// Parses "key=value;key=value". If the text is cut, the last one is left out.
ParameterText parseFlattened(std::string_view text, size_t line, bool cut);

}  // namespace qzcam
