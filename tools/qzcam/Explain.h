// `qzcam explain`.
#pragma once

#include "Cli.h"

namespace qzcam {

void addExplain(CLI::App& app, Action& action);

}  // namespace qzcam
