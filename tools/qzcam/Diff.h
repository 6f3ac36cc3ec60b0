// `qzcam diff`: two devices, or two sessions, side by side.
#pragma once

#include "Cli.h"

namespace qzcam {

void addDiff(CLI::App& app, Action& action);

}  // namespace qzcam
