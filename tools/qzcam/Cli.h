// The command line.
#pragma once

namespace qzcam {

enum ExitStatus : int {
    kFine = 0,
    kExpectationFailed = 1,
    kUsage = 2,
    kBadInput = 3,
};

int runTool(int argc, const char* const* argv);

}  // namespace qzcam
