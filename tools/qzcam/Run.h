// `qzcam run`.
#pragma once

#include "Cli.h"

#include <string>

namespace qzcam {

struct RunOptions {
    std::string session;  // empty: the built-in one; "-": standard input
    std::string device;   // likewise
    std::string camera;   // empty: the first one
    std::string properties;
    std::string logLevel = "info";
};

ExitStatus run(const RunOptions& options);

}  // namespace qzcam
