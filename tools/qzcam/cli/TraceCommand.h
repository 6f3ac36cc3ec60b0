// SPDX-License-Identifier: Apache-2.0
// `qzcam trace`: shows what a phone did.
#pragma once

#include "cli/Cli.h"
#include "trace/Filter.h"

#include <string>
#include <vector>

namespace qzcam {

struct TraceOptions {
    std::vector<std::string> inputs;
    TraceFilter filter;
    std::string device;    // a dump whose device values are compared with; empty: those among the inputs
    std::string html;      // the file of a page; empty: none
    std::string perfetto;  // likewise
    bool json = false;
};

ExitStatus trace(const TraceOptions& options);

}  // namespace qzcam
