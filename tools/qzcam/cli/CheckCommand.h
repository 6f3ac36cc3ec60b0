// `qzcam check`
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

struct CheckOptions {
    std::string device;
    std::string camera;
    bool json = false;
};

ExitStatus check(const CheckOptions& options);

}  // namespace qzcam
