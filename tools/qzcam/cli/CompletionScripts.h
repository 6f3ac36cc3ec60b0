// SPDX-License-Identifier: Apache-2.0
// Completion of the command line in bash and zsh, from the definition of the command line itself.
#pragma once

#include "cli/CommandLine.h"

#include <string>

namespace qzcam {

std::string bashCompletion(const CommandLine& line);
std::string zshCompletion(const CommandLine& line);

}  // namespace qzcam
