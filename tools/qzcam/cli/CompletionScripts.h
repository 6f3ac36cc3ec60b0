// SPDX-License-Identifier: Apache-2.0
// Completion of the command line in bash and zsh, from the definition of the command line itself.
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

std::string bashCompletion(const CLI::App& app);
std::string zshCompletion(const CLI::App& app);

// A command for the build: prints the script for one of the shells.
void addCompletion(CLI::App& app, Action& action);

}  // namespace qzcam
