#include "Cli.h"

#include "Check.h"
#include "Diff.h"
#include "Explain.h"
#include "Manual.h"
#include "Reference.h"
#include "Run.h"
#include "SessionHelp.h"
#include "Shell.h"
#include "Vocabulary.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace qzcam {

namespace {

constexpr const char* kExitStatus =
    "\nExit status: 0 fine, 1 an expectation failed, 2 wrong usage, 3 a bad input file.";

void addRun(CLI::App& app, RunOptions& options) {
    app.add_option("SESSION", options.sessions,
                   "Sessions to play, '-' for standard input; default: the built-in one");
    addPlayOptions(app, options);
    CLI::Option* json = app.add_flag("--json", options.json, "Print JSON, an event a line, for programs");
    app.add_flag("--monitor", options.monitor,
                 "Print only the entries that change, request and result in columns")
        ->excludes(json);
    app.add_option("--junit", options.junit, "Write the expectations to this file as JUnit XML")
        ->type_name("FILE");
    app.footer(sessionHelp() + kExitStatus);
}

}  // namespace

void addPlayOptions(CLI::App& app, RunOptions& options) {
    app.add_option("--device", options.device,
                   "Device: text of 'dumpsys media.camera'; default: the built-in one")
        ->type_name("DUMP");
    app.add_option("--camera", options.camera, "Camera of the dump; default: its first")->type_name("ID");
    app.add_option("--getprop,--props", options.properties,
                   "System properties: text of 'getprop', or name=value lines")
        ->type_name("GETPROP");
    app.add_option("--params", options.parameters,
                   "Parameters set after each 'open': key=value;key=value, or a file of them, also as a dump "
                   "has them")
        ->type_name("TEXT|FILE");
    app.add_option(
           "--log", options.log,
           fmt::format("Log lines shown: the lowest level ({}; {} unless said, all in JSON), or by tag: "
                       "'CameraQzParam:D *:S'",
                       kLogLevels, LogFilter::kDefault))
        ->type_name("FILTER")
        ->check([](const std::string& word) {
            return LogFilter::parse(word) ? "" : fmt::format("expected {}, or TAG:LEVEL...", kLogLevels);
        });
}

void addCommands(CLI::App& app, Action& action) {
    const auto options = std::make_shared<RunOptions>();
    action = [options] { return run(*options); };  // also without a command
    addRun(*app.add_subcommand("run", "Play a session"), *options);
    addShell(*app.add_subcommand("shell", "Type a session and see what comes of each line"), action);
    addDiff(*app.add_subcommand("diff", "Show how two devices or two sessions differ"), action);
    addCheck(*app.add_subcommand("check", "Hold a device against the library"), action);
    addParams(*app.add_subcommand("params", "Explain the application's parameters"), action);
    addExplain(*app.add_subcommand("explain", "Show the whole road of one parameter on a device"), action);
    addManual(*app.add_subcommand("manual", "Print the manual page"), action);
}

int runTool(int argc, const char* const* argv) {
    CLI::App app{"Plays a camera session against a device and shows what the camera library makes of it.",
                 "qzcam"};
    app.set_version_flag("--version", "qzcam " QZCAM_VERSION);
    app.require_subcommand(0, 1);
    app.footer("Without a command: run, with the built-in session on the built-in device.");
    Action action;
    addCommands(app, action);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kFine : kUsage;
    }
    return action();
}

}  // namespace qzcam
