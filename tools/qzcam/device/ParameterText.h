// SPDX-License-Identifier: Apache-2.0
// Parameters as people have them: flattened, or from a camera service's dump.
#pragma once

#include "base/Text.h"
#include "host/Camera.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct ParameterText {
    std::vector<Parameter> parameters;
    std::vector<size_t> lines;     // where each of them stands
    std::vector<size_t> cutLines;  // left out: their values are not all there

    void add(std::string_view key, std::string_view value, size_t line);
};

// Returns true for the characters of keys. A path or another notation has others.
bool isParameterKey(std::string_view text);

// "key=value;key=value", or lines "<tab>key: value". What is neither is a problem, and the rest is read.
ParameterText parseParameters(std::string_view text, Problems& problems, size_t firstLine = 1);

// Adds the parameters of one line "<tab>key: value", on which several have run together if one was cut.
void addDumpedParameters(std::string_view line, size_t number, ParameterText& text, Problems& problems);

// Bytes of a message at which the log cuts it without a mark.
constexpr size_t kNativeLimit = 1023;

// A message in which the platform logs parameters.
struct LoggedParameters {
    enum class Kind { Set, Got, Defaults };
    Kind kind = Kind::Set;
    std::string_view of;  // number of the process, or of the camera for defaults
    ParameterText text;   // without the last one if the message is cut
    bool cut = false;
};

// "setParameters (pid 812) (iso=100;zoom=0)", "getParameters (pid 812) (...)", or "initialize: Default
// parameters converted from camera 0:", behind which parameters stand or not. Nothing for other messages.
std::optional<LoggedParameters> parseLogged(std::string_view message, size_t line);

// "key=value;key=value", of which the last one is left out if the text is cut.
ParameterText parseFlattened(std::string_view text, size_t line, bool cut);

}  // namespace qzcam
