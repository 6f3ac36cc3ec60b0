// SPDX-License-Identifier: Apache-2.0
// Recognises lines of the platform about vendor tags or parameters.
#pragma once

#include "log/Logcat.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

struct PlatformLine {
    enum class Kind {
        Mistyped,       // an update was refused because its tag has another element type
        UnknownTag,     // an update of a number without a tag
        NoTag,          // a section has no tag with the name
        NoSection,      // no section has the name
        NoType,         // the driver states a type that the platform does not know
        NotMonitored,   // the tag monitor was given an unknown name
        SetParameters,  // an application's parameters, flattened
        GetParameters,
        DefaultParameters,  // parameters that the platform makes from a camera
        ParameterCount,     // begins a list of parameters
        Parameter,          // one parameter of a list
    };
    Kind kind{};
    std::string tag;       // name, without section where the line has none
    std::string declared;  // element types
    std::string given;
    bool cut = false;  // the text has the greatest length of a log line
    std::vector<std::pair<std::string, std::string>> parameters;
    std::string camera;   // the camera of default parameters
    std::string process;  // the one that set or got the parameters
};

std::optional<PlatformLine> recognisePlatformLine(const LogLine& line);

// Number of bytes in a message of any program.
constexpr size_t kPayloadLimit = 4068;

}  // namespace qzcam
