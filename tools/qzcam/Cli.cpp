#include "Cli.h"

#include "Queries.h"
#include "Run.h"
#include "Session.h"
#include "Vocabulary.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

namespace qzcam {

namespace {

std::string sessionHelp() {
    std::string help = "Session commands, one a line, '#' begins a comment, \"quotes\" keep blanks:\n";
    for (const CommandSpec& spec : commandSpecs()) {
        const std::string form = fmt::format("{} {}", spec.name, spec.arguments);
        // A form too long for its column has its help on the next line.
        const char* gap = form.size() > 37 ? "\n" : "";
        help +=
            fmt::format("  {}{}{:<{}} {}\n", form, gap, "", *gap != '\0' ? 39 : 37 - form.size(), spec.help);
    }
    help += "\nQuestions for 'query' and 'expect-query':\n";
    for (const QuerySpec& spec : querySpecs()) {
        help += fmt::format("  {:<37} {}\n",
                            fmt::format("{} {}", spec.name, spec.argument ? spec.argument : ""), spec.help);
    }
    help +=
        "\nNames of entries may leave out their section where that is clear. Values are separated by commas: "
        "numbers\n"
        "(also 0x...), n/d, names of a standard tag's values; of byte entries also \"text\" and u\"text\" "
        "(16 bits).\n"
        "\nExit status: 0 fine, 1 an expectation failed, 2 wrong usage, 3 a bad input file.";
    return help;
}

void addRun(CLI::App& app, RunOptions& options) {
    app.add_option("SESSION", options.session,
                   "Session to play, '-' for standard input; default: the built-in one");
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
    app.footer(sessionHelp());
}

}  // namespace

int runTool(int argc, const char* const* argv) {
    CLI::App app{"Plays a camera session against a device and shows what the camera library makes of it.",
                 "qzcam"};
    app.set_version_flag("--version", "qzcam " QZCAM_VERSION);
    app.require_subcommand(0, 1);
    app.footer("Without a command: run, with the built-in session on the built-in device.");
    RunOptions options;
    addRun(*app.add_subcommand("run", "Play a session"), options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kFine : kUsage;
    }
    return run(options);
}

}  // namespace qzcam
