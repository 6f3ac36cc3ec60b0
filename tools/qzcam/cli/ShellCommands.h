// SPDX-License-Identifier: Apache-2.0
// Commands at the shell's prompt in addition to the session language: other commands of the tool, and help.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct ShellCommand {
    const char* name;
    const char* arguments;
    const char* help;
    bool isOfTool;  // a command of the tool, which runs on the shell's device
};

const std::vector<ShellCommand>& shellCommands();
std::string shellHelp();  // a table of them

// Splits a line into words like the command line of a shell. Returns nothing if a closing quote is missing.
std::vector<std::string> wordsOf(std::string_view line);

// Returns null for a line that is not a command of the tool. `params` alone belongs to the session language.
const ShellCommand* toolCommand(const std::vector<std::string>& words);

// Returns help on a command, a question, a verdict or any name of the reference; without a word, all help.
std::string helpOn(const std::string& word);

}  // namespace qzcam
