// SPDX-License-Identifier: Apache-2.0
// `qzcam matrix`
#pragma once

#include "cli/Cli.h"

#include <string>
#include <vector>

namespace qzcam {

struct MatrixOptions {
    std::vector<std::string> inputs;
    std::string baseline;
    std::string html;  // the file of a page; empty: none
    bool tags = false;
    bool json = false;
    bool csv = false;
};

ExitStatus matrix(const MatrixOptions& options);

}  // namespace qzcam
