// SPDX-License-Identifier: Apache-2.0
// The manual page, made of the texts that `--help` shows.
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

// The session language as a page of its own.
std::string sessionPage();

void addManual(CLI::App& app, Action& action);

// In roff, with the man macros.
std::string manualPage(const CLI::App& app);

}  // namespace qzcam
