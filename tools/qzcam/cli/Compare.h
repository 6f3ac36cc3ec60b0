// SPDX-License-Identifier: Apache-2.0
// `qzcam compare`: compares a phone's request or result with the library's.
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

struct CompareOptions {
    std::string input;
    std::string session;  // empty: the parameters of the input
    std::string array;    // empty: the first one
    std::string camera;
    std::string properties;
    std::string parameters;
    bool json = false;
    std::string html;
};

ExitStatus compare(const CompareOptions& options);

}  // namespace qzcam
