// SPDX-License-Identifier: Apache-2.0
// The options of all commands, as the command line has them.
#pragma once

#include "cli/Commands.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace qzcam {

// Adds the commands with their options. Parsing sets the action to the chosen command, or leaves `run`.
void addCommands(CLI::App& app, Action& action);

// The commands that read files of a phone: dumps, bugreports, logs.
void addCheck(CLI::App& app, Action& action);
void addCompare(CLI::App& app, Action& action);
void addMatrix(CLI::App& app, Action& action);
void addRecord(CLI::App& app, Action& action);
void addShow(CLI::App& app, Action& action);
void addTrace(CLI::App& app, Action& action);

// A command's options live as long as its action may be run.
template <typename Options>
std::shared_ptr<Options> onChosen(CLI::App& app, Action& action, ExitStatus (*command)(const Options&)) {
    auto options = std::make_shared<Options>();
    app.callback([&action, options, command] { action = [options, command] { return command(*options); }; });
    return options;
}

// Options that several commands have.
constexpr const char* kOrBuiltIn = ", '-' for standard input; default: the built-in one";
constexpr const char* kJsonEvents = "Print JSON, one event on each line, for programs";
constexpr const char* kFirstCamera = "Camera of the dump; default: its first";

void addDevice(CLI::App& app, std::string& device, std::string& camera, const char* rest = kOrBuiltIn,
               const char* whichCamera = kFirstCamera);
void addDumpArgument(CLI::App& app, std::string& device);  // the same as --device
void addCamera(CLI::App& app, std::string& camera, const char* description = kFirstCamera);
void addProperties(CLI::App& app, std::string& properties);
void addParameters(CLI::App& app, std::string& parameters, const char* description);
void addStrict(CLI::App& app, bool& strict, const std::string& more = {});
void addVerbose(CLI::App& app, bool& verbose);
CLI::Option* addJson(CLI::App& app, bool& json, const char* description = "Print JSON");

// A file that is written in addition to the output of the command.
void addOutputFile(CLI::App& app, const char* name, std::string& file, const std::string& description);
void addHtml(CLI::App& app, std::string& html);
void addPerfetto(CLI::App& app, std::string& perfetto);

}  // namespace qzcam
