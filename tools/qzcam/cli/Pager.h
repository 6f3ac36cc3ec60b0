// SPDX-License-Identifier: Apache-2.0
// Answers at the shell's prompt: a long one goes through $PAGER.
#pragma once

#include <functional>
#include <string>

namespace qzcam {

// Returns true if standard input and output are a terminal and $PAGER is set.
bool hasPager();

// Returns the standard output of the action.
std::string outputOf(const std::function<void()>& action);

// Prints the text, through $PAGER if it is set and the text has more lines than the terminal.
void show(const std::string& text);

}  // namespace qzcam
