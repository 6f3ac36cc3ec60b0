// SPDX-License-Identifier: Apache-2.0
// The command line.
#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace qzcam {

enum ExitStatus : int {
    kFine = 0,
    kFailed = 1,
    kUsage = 2,
    kBadInput = 3,
};

// The action that the command line selects.
using Action = std::function<ExitStatus()>;

int runTool(int argc, const char* const* argv);

}  // namespace qzcam
