#include "Cli.h"

#include "Diff.h"
#include "Manual.h"
#include "Run.h"
#include "SessionHelp.h"
#include "Shell.h"
#include "Vocabulary.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace qzcam {

namespace {

constexpr const char* kExitStatus =
    "\nExit status: 0 fine, 1 an expectation failed, 2 wrong usage, 3 a bad input file.";

void addRun(CLI::App& app, RunOptions& options) {
    app.add_option("SESSION", options.session,
                   "Session to play, '-' for standard input; default: the built-in one");
    addPlayOptions(app, options);
    app.footer(sessionHelp() + kExitStatus);
}

}  // namespace

void addPlayOptions(CLI::App& app, RunOptions& options) {
    app.add_option("--device", options.device,
                   "Device: text of 'dumpsys media.camera'; default: the built-in one")
        ->type_name("DUMP");
    app.add_option("--camera", options.camera, "Camera of the dump; default: its first")->type_name("ID");
    app.add_option("--props", options.properties, "System properties: text of 'getprop', or name=value lines")
        ->type_name("GETPROP");
    app.add_option("--log", options.logLevel,
                   std::string("Lowest level of the log lines shown: ") + kLogLevels)
        ->type_name("LEVEL")
        ->capture_default_str()
        ->check([](const std::string& word) {
            return logLevel(word) ? "" : std::string("expected ") + kLogLevels;
        });
}

void addCommands(CLI::App& app, Action& action) {
    const auto options = std::make_shared<RunOptions>();
    action = [options] { return run(*options); };  // also without a command
    addRun(*app.add_subcommand("run", "Play a session"), *options);
    addShell(*app.add_subcommand("shell", "Type a session and see what comes of each line"), action);
    addDiff(*app.add_subcommand("diff", "Show how two devices or two sessions differ"), action);
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
