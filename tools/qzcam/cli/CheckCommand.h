// SPDX-License-Identifier: Apache-2.0
// `qzcam check`
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

struct CheckOptions {
    std::string device;
    std::string camera;
    std::string html;  // the file of a page; empty: none
    bool json = false;
    bool verbose = false;
    bool strict = false;
};

ExitStatus check(const CheckOptions& options);

}  // namespace qzcam
