// SPDX-License-Identifier: Apache-2.0
// `qzcam shell`: the session language at a prompt.
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

struct RunOptions;

std::string shellHelp();

ExitStatus shell(const RunOptions& options);

}  // namespace qzcam
