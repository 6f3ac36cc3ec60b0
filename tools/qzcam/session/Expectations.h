// SPDX-License-Identifier: Apache-2.0
// Compares the expectations of a session with the results of its commands.
#pragma once

#include "device/Device.h"
#include "host/Camera.h"
#include "host/Events.h"
#include "session/Session.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// Results of the last command that was not an expectation.
struct Step {
    std::optional<int32_t> status;
    std::optional<bool> skipped;
    std::vector<Message> messages;  // messages that no expectation has matched yet
    std::vector<LogEvent> log;
};

struct PlayState {
    const TagNames& names;
    Camera* camera = nullptr;
    std::vector<EntryRow> entries = {};     // entries of the last request
    std::vector<VerdictRow> verdicts = {};  // likewise
    PublishEvent published = {};            // by the last 'publish'
    Step step = {};
};

struct Finding {
    bool met;
    std::string expected;
    std::string actual;
};

// Returns the original words from `first` on, joined by `separator`.
std::string rawFrom(const Command& command, size_t first, const char* separator);
std::string textFrom(const Command& command, size_t first,
                     const char* separator);  // the words without their quotes

// Checks an expectation. A message that it matches is removed, so that 'expect-no-callback' can follow.
Finding examine(const Command& expectation, PlayState& state);

}  // namespace qzcam
