// What a request pass of the library does with its host, step by step. Steps are the only evidence of what
// became of a parameter: reads, entries written or refused, names that the device does not declare.
#pragma once

#include "base/Values.h"
#include "host/Events.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace qzcam {

struct TraceStep {
    enum class Kind {
        Read,     // of a parameter
        Static,   // of a static entry
        Missing,  // a tag name that the device does not declare
        Update,   // of the request
        Failure,  // an error that the library logged
    };
    Kind kind;
    std::string name;        // key, full name of a tag, text of the log line
    bool asInteger = false;  // of a read
    bool present = false;    // of a read or a static entry
    Values values = {};      // of an update
    int32_t status = 0;      // likewise

    bool operator==(const TraceStep& other) const {
        return kind == other.kind && name == other.name && asInteger == other.asInteger &&
               values == other.values && status == other.status;
    }
};

using Trace = std::vector<TraceStep>;

// Adds what a log line tells about a pass, if it tells anything.
void addLogLine(Trace& trace, const LogEvent& line);

// The name of a tag that the resolver, or the platform under it, says it could not find; empty otherwise.
std::string missingName(const LogEvent& line);

// Which steps of `trace` are not in `other`: the ones between the longest common subsequence of both.
std::vector<size_t> stepsNotIn(const Trace& trace, const Trace& other);

}  // namespace qzcam
