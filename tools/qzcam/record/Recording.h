// SPDX-License-Identifier: Apache-2.0
// Writes a session from a phone's dump or bugreport, which can be played again.
#pragma once

#include "device/Device.h"
#include "device/Report.h"
#include "input/Parts.h"
#include "trace/Timeline.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qzcam {

// The evidence that is recorded. It must outlive the call.
struct RecordingInput {
    const InputText& text;
    const std::vector<Part>& parts;
    const Report& report;
    const Device& device;
};

struct Recording {
    std::string session;
    size_t requests = 0;
    size_t results = 0;
    size_t expectations = 0;
    size_t unknown = 0;  // values that the input leaves unknown
};

// Returns a session with its sources as comments. The device meets all of its expectations. An expectation
// that it does not meet, because the evidence is incomplete, becomes a comment.
Recording record(const RecordingInput& input);

}  // namespace qzcam
