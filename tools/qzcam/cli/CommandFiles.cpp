// SPDX-License-Identifier: Apache-2.0
#include "cli/CommandFiles.h"

#include "base/OutputFile.h"
#include "base/Text.h"
#include "base/WriteAll.h"
#include "input/Input.h"

#include <fmt/format.h>

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace qzcam {

bool isInput(const std::string& file, const char* option, const std::vector<std::string>& inputs) {
    if (!isOneOf(file, inputs)) return false;
    complain(fmt::format("qzcam: {} is an input: expected another file for {}", file, option));
    return true;
}

std::string whyFile(const std::string& name) {
    std::error_code ignored;
    const auto status = std::filesystem::status(name, ignored);
    const bool isFile = std::filesystem::exists(status) && !std::filesystem::is_directory(status);
    return isFile ? "; it is a file: expected the name first, then the dump" : "";
}

std::optional<ExitStatus> prepareFiles(const std::vector<std::string>& inputs, const std::string& html,
                                       const std::string& perfetto) {
    if (isInput(html, "--html", inputs) || isInput(perfetto, "--perfetto", inputs)) return kUsage;
    if (!areReadOnce(inputs)) return kUsage;
    if (!perfetto.empty() && !canWriteFile(perfetto)) return kBadInput;
    return beginPage(html) ? std::nullopt : std::optional(kBadInput);
}

bool writeResult(const std::string& text, const std::string& html, const std::string& title,
                 const std::function<std::vector<PageData>()>& data) {
    const bool drawn = html.empty() || writeFile(html, htmlPage("qzcam " + title, data()));
    return writeAll(stdout, text) && drawn;
}

}  // namespace qzcam
