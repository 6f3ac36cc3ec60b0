// `qzcam params`: prints the reference, or the part of one name.
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

struct ParamsOptions {
    std::string name;
    bool json = false;
    bool markdown = false;
};

ExitStatus params(const ParamsOptions& options);

}  // namespace qzcam
