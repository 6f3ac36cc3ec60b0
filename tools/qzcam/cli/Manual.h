// SPDX-License-Identifier: Apache-2.0
// The manual pages, made of the texts that `--help` shows: roff with the man macros.
#pragma once

#include "cli/CommandLine.h"

#include <string>

namespace qzcam {

std::string manualPage(const CommandLine& line);

// The session language as a page of its own.
std::string sessionPage();

}  // namespace qzcam
