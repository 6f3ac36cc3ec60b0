// SPDX-License-Identifier: Apache-2.0
// A page to look at: the JSON of a command in one HTML file, with the viewer that draws it. It loads nothing.
#pragma once

#include "cli/Cli.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// JSON, or JSON lines.
struct PageData {
    const char* name;  // for the viewer: "events", "check", ...
    std::string json;
};

// The library's rows that say more about a tag: setters, getters and handlers.
PageData rowData();

std::string htmlPage(std::string_view title, const std::vector<PageData>& data);

// Puts a page that says "not finished" into the file of --html, if there is one. The status to end with, and
// a message, when it is one of the inputs or cannot be written.
std::optional<ExitStatus> beginPage(const std::string& path, const std::vector<std::string>& inputs);

// True also without a file. False, and a message, when it cannot be written.
bool finishPage(const std::string& path, std::string_view title, const std::vector<PageData>& data);

}  // namespace qzcam
