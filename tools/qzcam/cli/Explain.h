// SPDX-License-Identifier: Apache-2.0
// `qzcam explain`.
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

struct ExplainOptions {
    std::string key;
    std::string device;
    std::string camera;
    std::string properties;
    std::string parameters;
    bool strict = false;
};

ExitStatus explain(const ExplainOptions& options);

}  // namespace qzcam
