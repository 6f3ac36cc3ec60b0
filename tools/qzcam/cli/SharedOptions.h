// SPDX-License-Identifier: Apache-2.0
// Options that several commands have.
#pragma once

#include "cli/Cli.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace qzcam {

// A command's options live as long as its action may be run.
template <typename Options>
std::shared_ptr<Options> onChosen(CLI::App& app, Action& action, ExitStatus (*command)(const Options&)) {
    auto options = std::make_shared<Options>();
    app.callback([&action, options, command] { action = [options, command] { return command(*options); }; });
    return options;
}

constexpr const char* kOrInput = ", '-' for standard input";

void addDevice(CLI::App& app, std::string& device, std::string& camera, const char* orInput = kOrInput,
               const char* whichCamera = "Camera of the dump; default: its first");
// Adds the dump as an argument too.
void addDumpArgument(CLI::App& app, std::string& device);
void addStrict(CLI::App& app, bool& strict, const std::string& more = {});
void addVerbose(CLI::App& app, bool& verbose);
void addProperties(CLI::App& app, std::string& properties);
// A file that is written in addition to the output of the command.
void addOutputFile(CLI::App& app, const char* name, std::string& file, const std::string& description);
void addHtml(CLI::App& app, std::string& html);
void addPerfetto(CLI::App& app, std::string& perfetto);

}  // namespace qzcam
