// The manual page, made of the texts that `--help` shows.
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

void addManual(CLI::App& app, Action& action);

// In roff, with the man macros.
std::string manualPage(const CLI::App& app);

}  // namespace qzcam
