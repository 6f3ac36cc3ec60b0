// SPDX-License-Identifier: Apache-2.0
// `qzcam compare`: what a phone sent beside what the library would send.
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
