// SPDX-License-Identifier: Apache-2.0
// `qzcam params`: prints the reference, or the part of one name.
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

struct ParamsOptions {
    std::string name;
    std::string device;  // with `camera`: none of them, no device
    std::string camera;
    bool json = false;
    bool markdown = false;
};

ExitStatus params(const ParamsOptions& options);

}  // namespace qzcam
