// The command line.
#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace qzcam {

struct RunOptions;

enum ExitStatus : int {
    kFine = 0,
    kExpectationFailed = 1,
    kUsage = 2,
    kBadInput = 3,
};

// What the command line asks for. Each command's addXxx() declares its options and, when the command is
// chosen, sets the action.
using Action = std::function<ExitStatus()>;

void addCommands(CLI::App& app, Action& action);

// Device, properties and log, for each command that plays.
void addPlayOptions(CLI::App& app, RunOptions& options);

int runTool(int argc, const char* const* argv);

}  // namespace qzcam
