// SPDX-License-Identifier: Apache-2.0
// A page: the JSON of a command in one HTML file, with the viewer that draws it. It loads nothing.
#pragma once

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

// Replaces an older page by one that says "not finished", so that it is never mistaken for the page of this
// command, even if the command fails. Creates no file. Prints a message and returns false if the file cannot
// be written.
bool beginPage(const std::string& path);

}  // namespace qzcam
