// SPDX-License-Identifier: Apache-2.0
// `qzcam show`
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

struct ShowOptions {
    std::string input;
    std::string camera;
    std::string array;
    std::string find;
    bool verbose = false;
    bool json = false;
    std::string html;
};

ExitStatus show(const ShowOptions& options);

}  // namespace qzcam
