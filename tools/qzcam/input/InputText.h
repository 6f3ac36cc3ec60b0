// SPDX-License-Identifier: Apache-2.0
// A text that was read: UTF-8 with '\n' line ends. Line N of the text is line N of its file.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// Copies share the text, which may be hundreds of megabytes.
struct InputText {
    std::string name;                // for messages: "report.zip: bugreport-x.txt"
    std::string_view text;           // valid as long as a copy of this object lives
    std::vector<std::string> cuts;   // damage of the container: "the zip ends before its directory ..."
    std::vector<std::string> steps;  // encodings that were removed: "gzip", "UTF-16"
    std::shared_ptr<const void> storage;
};

// Returns a text of the program itself.
InputText textInput(std::string name, std::string text);

}  // namespace qzcam
