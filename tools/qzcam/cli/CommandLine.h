// SPDX-License-Identifier: Apache-2.0
// The command line as data, for its manual page and for its completion in a shell.
#pragma once

#include <string>
#include <vector>

namespace qzcam {

struct OptionText {
    std::string name;                // as --help prints it: "DUMP", "-h,--help"
    std::vector<std::string> words;  // "--help", "-h"; none for a positional argument
    std::string value;  // name of its value: "FILE"; that of a positional argument is its own name
    std::string description;
    bool isRequired = false;
    bool isList = false;
    bool isFlag = false;

    bool isPositional() const { return words.empty(); }
};

struct CommandText {
    std::string name;
    std::string description;
    std::string footer;
    std::vector<OptionText> options;
};

// The program itself, and the commands that --help lists.
struct CommandLine : CommandText {
    std::vector<CommandText> commands;
};

}  // namespace qzcam
