// SPDX-License-Identifier: Apache-2.0
// Lines of the plain platform that speak of vendor tags or of parameters.
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
        Mistyped,       // an update was refused since its tag has another element type
        UnknownTag,     // an update of a number that no tag has
        NoTag,          // a section has no tag of the name
        NoSection,      // no section has the name
        NoType,         // the driver names no type that the platform knows
        NotMonitored,   // the tag monitor was asked for a name that it does not know
        SetParameters,  // an application's parameters, flattened
        GetParameters,
        DefaultParameters,  // those that the platform makes of a camera
        ParameterCount,     // begins a list of parameters
        Parameter,          // one of a list
    };
    Kind kind{};
    std::string tag;  // name, without section where the line has none
    std::optional<uint32_t> id;
    std::string declared;  // element types
    std::string given;
    bool cut = false;  // the text has the longest length that a log line can have
    std::vector<std::pair<std::string, std::string>> parameters;
    std::string camera;
};

std::optional<PlatformLine> recognisePlatformLine(const LogLine& line);

// Bytes of a message that any program may log.
constexpr size_t kPayloadLimit = 4068;

}  // namespace qzcam
