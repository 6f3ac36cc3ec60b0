// SPDX-License-Identifier: Apache-2.0
// `qzcam run`.
#pragma once

#include "cli/Cli.h"
#include "host/LogFilter.h"

#include <string>
#include <vector>

namespace qzcam {

struct RunOptions {
    std::vector<std::string> sessions;  // none: the built-in one; "-": standard input
    std::string device;                 // likewise
    std::string camera;                 // empty: the first one
    std::string properties;
    std::string parameters;  // set after each `open`: themselves, or a file of them
    std::string log;         // a LogFilter's; empty: warnings in a text, every line in JSON
    std::string junit;       // the file; empty: none
    std::string perfetto;    // the file; empty: none
    std::string html;        // likewise
    bool json = false;
    bool verbose = false;  // name what of the dump is not used
    bool strict = false;   // values must be offered, and inputs whole
    bool monitor = false;
};

ExitStatus run(const RunOptions& options);

}  // namespace qzcam
