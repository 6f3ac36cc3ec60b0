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
    std::string parameters;  // set after each `open`: the parameters themselves, or a file with them
    std::string log;         // a LogFilter; empty: warnings as text, every line as JSON
    std::string junit;       // the file; empty: none
    std::string perfetto;    // the file; empty: none
    std::string html;        // likewise
    bool json = false;
    bool verbose = false;  // list the unused parts of the dump
    bool strict = false;   // fail for values that are not offered and for damaged inputs
    bool monitor = false;
};

ExitStatus run(const RunOptions& options);

}  // namespace qzcam
