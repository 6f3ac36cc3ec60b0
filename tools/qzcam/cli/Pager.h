// SPDX-License-Identifier: Apache-2.0
// Shows long answers at the shell's prompt with $PAGER.
#pragma once

#include <functional>
#include <string>

namespace qzcam {

// Returns true if standard input and output are a terminal and $PAGER is set.
bool hasPager();

// Runs the action and returns its standard output, which must be flushed before.
std::string outputOf(const std::function<void()>& action);

// Prints the text, through $PAGER if it is set and the text has more lines than the terminal.
void show(const std::string& text);

}  // namespace qzcam
