// SPDX-License-Identifier: Apache-2.0
// The options of the commands that read files of a phone: dumps, bugreports, logs.
#pragma once

#include "cli/Cli.h"

namespace qzcam {

void addCheck(CLI::App& app, Action& action);
void addCompare(CLI::App& app, Action& action);
void addMatrix(CLI::App& app, Action& action);
void addRecord(CLI::App& app, Action& action);
void addShow(CLI::App& app, Action& action);
void addTrace(CLI::App& app, Action& action);

}  // namespace qzcam
