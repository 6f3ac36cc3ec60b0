// SPDX-License-Identifier: Apache-2.0
// The files that a command reads and writes.
#pragma once

#include "cli/Cli.h"
#include "viewer/Page.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// Prints a message and returns true if the file of an option is one of the inputs.
bool isInput(const std::string& file, const char* option, const std::vector<std::string>& inputs);

// Returns the end of a message about an unknown name that is a file; empty for another name.
std::string whyFile(const std::string& name);

// Checks the files before the command does anything. Prints a message and returns the exit status if they are
// wrong usage, or if an output cannot be written. Otherwise an older page says from now on that it is not
// finished. An empty path is an option that is not set.
std::optional<ExitStatus> prepareFiles(const std::vector<std::string>& inputs, const std::string& html,
                                       const std::string& perfetto = {});

// Prints the output of a command and writes its page, if it has one. Prints a message and returns false if
// one of them cannot be written.
bool writeResult(const std::string& text, const std::string& html, const std::string& title,
                 const std::function<std::vector<PageData>()>& data);

}  // namespace qzcam
