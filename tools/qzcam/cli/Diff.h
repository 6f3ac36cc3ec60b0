// SPDX-License-Identifier: Apache-2.0
// `qzcam diff`: compares two devices, or two sessions.
#pragma once

#include "cli/Cli.h"

#include <string>

namespace qzcam {

// Words for the kinds of A and B.
constexpr const char* kDevices = "devices";
constexpr const char* kSessions = "sessions";

struct DiffOptions {
    std::string a;        // "-": standard input
    std::string b;        // likewise; empty: the built-in one
    std::string as;       // empty: determined by their content
    std::string session;  // session for two devices; empty: the built-in one
    std::string device;   // device for two sessions; empty: the built-in one
    std::string cameras;  // "ID" or "ID,ID"
    std::string html;     // the file of a page; empty: none
    bool json = false;
    bool strict = false;
};

ExitStatus diff(const DiffOptions& options);

}  // namespace qzcam
