// SPDX-License-Identifier: Apache-2.0
// A page: the JSON of a command in one HTML file, with the viewer that draws it. It loads nothing.
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

// The library's rows about a tag: setters, getters and handlers.
PageData rowData();

std::string htmlPage(std::string_view title, const std::vector<PageData>& data);

// Writes a page that says "not finished" into the file of --html, if there is one. If the file is one of the
// inputs or cannot be written, prints a message and returns the exit status.
std::optional<ExitStatus> beginPage(const std::string& path, const std::vector<std::string>& inputs);

// Returns true if the page was written or no file was given. Otherwise prints a message and returns false.
bool finishPage(const std::string& path, std::string_view title, const std::vector<PageData>& data);

}  // namespace qzcam
