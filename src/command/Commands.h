// SPDX-License-Identifier: Apache-2.0
// The commands as a table: kCommands.
#pragma once

#include "CameraQzSendCmd.h"
#include "tags/TagNames.h"

namespace qz {

struct CommandRow {
    int32_t code;
    const char* constant;
    const char* entry;  // result entry
    const char* answer;
};

inline constexpr CommandRow kCommands[] = {
#define COMMAND(code, entry, answer) {code, #code, entry, answer},
#include "command/commands.inc"
#undef COMMAND
};

}  // namespace qz
