// SPDX-License-Identifier: Apache-2.0
// The session language as text: for `--help`, for `help` at the shell's prompt and for the manual page.
#pragma once

#include "session/Session.h"

#include <string>

namespace qzcam {

// Return the whole text, and parts of it.
std::string sessionHelp();
const char* sessionRules();
std::string commandTable();
const char* questionRules();
std::string questionTable();
std::string codeTable();  // codes of `sendcommand`
const char* verdictRules();
std::string verdictTable();
const char* valueHelp();

// Returns the form and the help of one command as a line.
std::string commandHelp(const CommandSpec& syntax);

}  // namespace qzcam
