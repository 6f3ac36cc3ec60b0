// `qzcam shell`: the session language at a prompt.
#pragma once

#include "Cli.h"

namespace qzcam {

void addShell(CLI::App& app, Action& action);

}  // namespace qzcam
