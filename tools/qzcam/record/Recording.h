// SPDX-License-Identifier: Apache-2.0
// Writes what a phone did as a session that can be played again.
#pragma once

#include "device/Device.h"
#include "device/Report.h"
#include "input/Parts.h"
#include "trace/Timeline.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qzcam {

// The evidence that is recorded. All of it must outlive the call.
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
    size_t open = 0;  // comments on what the evidence leaves open
};

// The session states its sources as comments. Its expectations are met on the device: one that is not, since
// the evidence tells less than the phone knew, is a comment.
Recording record(const RecordingInput& input);

}  // namespace qzcam
