// SPDX-License-Identifier: Apache-2.0
#include "cli/Cli.h"

#include "base/OutputFile.h"
#include "base/Text.h"
#include "base/WriteAll.h"
#include "cli/Options.h"
#include "facts/Hints.h"
#include "output/JUnit.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

namespace {

// An unset variable of a script must not select the built-in file.
void refuseEmpty(CLI::App& app) {
    for (CLI::Option* option : app.get_options([](const CLI::Option*) { return true; })) {
        option->check([](const std::string& word) { return word.empty() ? "must not be empty" : ""; });
    }
}

std::string noCommand(const CLI::App& app, const std::string& word) {
    if (word == "help")
        return "no command 'help': 'qzcam --help' lists the commands, 'qzcam COMMAND --help' explains one";
    std::vector<std::string> commands;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        commands.push_back(command->get_name());
    const std::string meant = nearestOne(word, commands);
    const std::string text = fmt::format("no command {}", excerpt(word));
    return meant.empty() ? text : text + fmt::format("; perhaps '{}'", meant);
}

std::string usageMessage(const CLI::App* app, const CLI::Error& error) {
    const auto rest = app->remaining();
    const bool isCommand = app->get_subcommands().empty() && !rest.empty() && !startsWith(rest.front(), "-");
    const std::string wrong = isCommand ? noCommand(*app, rest.front()) : error.what();
    return fmt::format("qzcam: {}\nRun with --help for more information.\n", visible(wrong));
}

// An old report must not look like the report of a run with wrong usage. The options are not known then, so a
// file that appears elsewhere on the command line may be an input.
void leaveNoOldReport(const std::vector<std::string>& words) {
    constexpr std::string_view kOption = "--junit";
    std::vector<std::string> inputs;
    std::string path;
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        const size_t equals = word.find('=');
        const std::string value = equals == std::string::npos ? "" : word.substr(equals + 1);
        if (word == kOption && i + 1 < words.size()) {
            path = words[++i];
        } else if (word.substr(0, equals) == kOption) {
            path = value;
        } else {
            inputs.insert(inputs.end(), {word, value});
        }
    }
    if (path != "-" && !isOneOf(path, inputs)) JUnitFile(path).begin();
}

// Writes the texts of --help and --version like any other output.
ExitStatus answer(const CLI::App& app, const CLI::ParseError& error, const std::vector<std::string>& words) {
    std::ostringstream out;
    std::ostringstream err;
    const bool isAnswer = app.exit(error, out, err) == 0;
    fmt::print(stderr, "{}", err.str());
    if (!isAnswer) leaveNoOldReport(words);
    if (!writeAll(stdout, out.str())) return kBadInput;
    return isAnswer ? kFine : kUsage;
}

}  // namespace

int runTool(int argc, const char* const* argv) {
    CLI::App app{"Runs the camera library on a Linux machine: plays sessions, checks and compares devices.",
                 "qzcam"};
    app.set_version_flag("--version", "qzcam " QZCAM_VERSION);
    app.require_subcommand(0, 1);
    app.footer(
        "Without a command: run, with the built-in session on the built-in device.\n\n"
        "Exit status: 0 fine, 1 an expectation or a check failed, 2 wrong usage, 3 a bad input file.\n"
        "Inputs are recognised by their content: text in UTF-8, UTF-16 or Latin-1, gzip, zip. An input has at most\n"
        "1024 MiB, also after unpacking. A packed input may unpack to 64 MiB or to 500 times its size,\n"
        "whichever is more, and has at most 4 layers of packing. A pipe may send no data for at most 60 seconds.\n"
        "Environment: NO_COLOR switches colours off, XDG_STATE_HOME is the folder for the shell's history.");
    Action action;
    addCommands(app, action);
    for (CLI::App* command : app.get_subcommands([](CLI::App*) { return true; })) refuseEmpty(*command);
    app.failure_message(usageMessage);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return answer(app, error, {argv + 1, argv + argc});
    }
    return action();
}

}  // namespace qzcam
