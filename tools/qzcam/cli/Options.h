// SPDX-License-Identifier: Apache-2.0
// The options of all commands.
#pragma once

#include "cli/Cli.h"

namespace qzcam {

// Adds the commands with their options. Parsing sets the action to the chosen command, or leaves `run`.
void addCommands(CLI::App& app, Action& action);

}  // namespace qzcam
