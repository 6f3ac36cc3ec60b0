// SPDX-License-Identifier: Apache-2.0
// `qzcam params`: prints the reference, or the facts of one name.
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

struct ParamsOptions {
    std::string name;
    std::string device;  // empty, and `camera` empty: no device
    std::string camera;
    bool json = false;
    bool markdown = false;
};

ExitStatus params(const ParamsOptions& options);

}  // namespace qzcam
