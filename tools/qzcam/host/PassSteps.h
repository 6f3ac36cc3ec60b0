// SPDX-License-Identifier: Apache-2.0
// The steps of a request pass: reads, entries written or refused, names that the device does not declare. A
// verdict about a parameter relies only on these steps.
#pragma once

#include "base/Values.h"
#include "host/Events.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace qzcam {

struct PassStep {
    enum class Kind {
        Read,     // a parameter is read
        Static,   // a static entry is read
        Missing,  // a tag name that the device does not declare
        Update,   // the request is updated
        Failure,  // an error that the library logged
    };
    Kind kind;
    std::string name;        // key, full name of a tag, text of the log line
    bool asInteger = false;  // for a read
    bool present = false;    // for a read or a static entry
    Values values = {};      // for an update
    int32_t status = 0;      // likewise
};

using PassSteps = std::vector<PassStep>;

// Adds the step of a log line, if the line reports one.
void addLogLine(PassSteps& steps, const LogEvent& line);

// Returns the name that QzName2Tag, or the platform, reports as not found. Returns an empty text for any
// other line.
std::string missingName(const LogEvent& line);

}  // namespace qzcam
