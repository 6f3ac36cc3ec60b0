// SPDX-License-Identifier: Apache-2.0
// `qzcam record`: writes a session from a phone's dump or log.
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

struct RecordOptions {
    std::string input;
    std::string output;  // "-": standard output
    std::string camera;
};

ExitStatus record(const RecordOptions& options);

}  // namespace qzcam
