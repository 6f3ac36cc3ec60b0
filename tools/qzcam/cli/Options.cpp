// SPDX-License-Identifier: Apache-2.0
#include "cli/Options.h"

#include "base/WriteAll.h"
#include "cli/CompletionScripts.h"
#include "cli/Manual.h"
#include "cli/ShellCommands.h"
#include "facts/Vocabulary.h"
#include "host/LogFilter.h"
#include "session/SessionHelp.h"

#include <fmt/format.h>

#include <cstdio>
#include <functional>

namespace qzcam {

namespace {

constexpr const char* kExitStatus =
    "\nExit status: 0 fine, 1 an expectation failed, 2 wrong usage, 3 a bad input file.";

// Adds the options of each command that plays a session.
void addPlayOptions(CLI::App& app, RunOptions& options, const char* restOfDevice, const char* restOfLog) {
    addDevice(app, options.device, options.camera, restOfDevice);
    addProperties(app, options.properties);
    addParameters(app, options.parameters,
                  "Parameters set after each 'open': key=value;key=value, or a file with them: a "
                  "dump, a log, a bugreport");
    app.add_option(
           "--log", options.log,
           fmt::format(
               "Log lines to show: the lowest level ({}; default: {}{}), or a filter by tag: "
               "'CameraQzParam:D *:S'. With a level alone or '*', two kinds of error lines count as debug: "
               "lines that only name a function (\"Enter ...\"), and lines about names that the device does "
               "not declare. A filter for one tag shows them at their own level",
               kLogLevels, LogFilter::kDefault, restOfLog))
        ->type_name("FILTER")
        ->check([](const std::string& word) {
            return LogFilter::parse(word)
                       ? ""
                       : fmt::format("expected {}, or TAG:LEVEL..., not {}", kLogLevels, excerpt(word));
        });
}

constexpr const char* kStrict =
    "Fail with status 1 for values that the device does not offer and for numbers that do not fit. ";

void addRun(CLI::App& app, RunOptions& options) {
    app.add_option("SESSION", options.sessions,
                   "Sessions to play, '-' for standard input; default: the built-in one");
    addPlayOptions(app, options, kOrBuiltIn, ", all with --json");
    addVerbose(app, options.verbose);
    CLI::Option* json = addJson(app, options.json, kJsonEvents);
    app.add_flag("--monitor", options.monitor,
                 "Print only the entries that change, request and result in columns")
        ->excludes(json);
    addStrict(app, options.strict, kStrict);
    addOutputFile(
        app, "--junit", options.junit,
        "Write the expectations to this file as JUnit XML; until the run ends the file says 'not finished'");
    addPerfetto(app, options.perfetto);
    addHtml(app, options.html);
    app.footer(sessionHelp() + kExitStatus);
}

void addShell(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, shell);
    // Standard input has the session.
    addPlayOptions(app, *options, "; default: the built-in one", "");
    addStrict(app, options->strict);
    app.footer(
        "Reads a line, plays it, and shows the result. At a terminal lines can be edited: Tab completes "
        "commands,\n"
        "keys, values and tags, and Ctrl-C drops the line. The history is kept in\n"
        "$XDG_STATE_HOME/qzcam/history (~/.local/state/qzcam/history). Without a terminal there is no editing.\n"
        "For a wrong line the shell prints a message and continues with the next one.\n\n" +
        sessionHelp() + "\n" + shellHelp() +
        "\nExit status: 0 fine, 2 wrong usage, 3 a bad input file; without a terminal also 1 an expectation failed,\n"
        "3 a line was wrong.");
}

void addDiff(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, diff);
    app.add_option("A", options->a, "Dump or session, '-' for standard input")->required();
    app.add_option("B", options->b, "Another of the same kind; default: the built-in one");
    app.add_option("--as", options->as,
                   "Kind of A and B if their content does not show it: devices or sessions")
        ->type_name("KIND")
        ->check([](const std::string& word) {
            return word == kDevices || word == kSessions ? "" : "expected devices or sessions";
        });
    app.add_option("--session", options->session,
                   "Session whose requests are compared on two devices; default: the built-in one")
        ->type_name("FILE");
    app.add_option("--device", options->device,
                   "Device that two sessions are played on; default: the built-in one")
        ->type_name("DUMP");
    app.add_option("--camera", options->cameras,
                   "Camera of the dump, or of both dumps 'A,B'; default: the first of each")
        ->type_name("ID");
    addStrict(app, options->strict);
    addJson(app, options->json);
    addHtml(app, options->html);
    app.footer(
        "For two devices: vendor tags and their types, static entries, published parameters, and the requests\n"
        "of a session on each. For two sessions: the parameters at the end of each, and the requests one by one.\n"
        "For two bugreports only the devices are compared: 'qzcam compare' compares what a phone\n"
        "sent with the library. To compare what two phones sent, write a session of each with 'qzcam record', and\n"
        "compare the sessions.\n"
        "Expectations are ignored, and so are tags that the device does not declare. Only differences are\n"
        "shown; '-' means absent.\n"
        "\nExit status: 0 no difference, 1 a difference, 2 wrong usage, 3 a bad input file.");
}

void addParams(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, params);
    app.add_option("NAME", options->name,
                   "A key, setter, getter, handler, message, command number, property, vocabulary or tag; "
                   "default: all");
    CLI::Option* json = addJson(app, options->json);
    app.add_flag("--markdown", options->markdown, "Print Markdown: docs/reference.md")->excludes(json);
    addDevice(app, options->device, options->camera, ", '-' for standard input; default: none");
    addDumpArgument(app, options->device);
    app.footer(
        "Shows the parameters that an application sets and reads, the entries of results, and every line of\n"
        "the log: the rows of the library, in the order of its passes. With a device, also the values that it offers.\n"
        "\nExit status: 0 fine, 2 wrong usage, or there is no such name; 3 a bad dump.");
}

void addExplain(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, explain);
    app.add_option("KEY", options->key, "The parameter")->required();
    addDevice(app, options->device, options->camera);
    addDumpArgument(app, options->device);
    addProperties(app, options->properties);
    addParameters(app, options->parameters,
                  "Parameters that are set, KEY and others: key=value;key=value, or a file with them");
    addStrict(app, options->strict, kStrict);
    app.footer(
        "Shows the setter that reads the parameter, its values, its tag and the tag's declaration on the "
        "device,\nits conditions, and the values that the device publishes.\n"
        "\nExit status: 0 fine, 1 with --strict for a value that is not offered or does not fit; 2 wrong usage, "
        "or no setter\nreads KEY; 3 a bad input file.");
}

OptionText described(const CLI::Option& option) {
    OptionText text{
        option.get_name(option.get_positional(), true), {}, option.get_type_name(), option.get_description()};
    for (const std::string& name : option.get_lnames()) text.words.push_back("--" + name);
    for (const std::string& name : option.get_snames()) text.words.push_back("-" + name);
    if (text.isPositional()) text.value = text.name;
    text.isRequired = option.get_required();
    text.isList = option.get_expected_max() > 1;
    text.isFlag = option.get_expected_max() == 0;
    return text;
}

CommandText describedAlone(const CLI::App& command) {
    CommandText text{command.get_name(), command.get_description(), command.get_footer(), {}};
    for (const CLI::Option* option : command.get_options()) text.options.push_back(described(*option));
    return text;
}

CommandLine described(const CLI::App& app) {
    CommandLine line{describedAlone(app), {}};
    for (const CLI::App* command :
         app.get_subcommands([](const CLI::App* each) { return !each->get_group().empty(); }))
        line.commands.push_back(describedAlone(*command));
    return line;
}

// Adds a command for the build, which --help does not list.
void addPrinter(CLI::App& app, Action& action, const std::function<std::string(const CommandLine&)>& text) {
    app.group("");
    app.callback([&app, &action, text] {
        action = [&app, text] {
            return writeAll(stdout, text(described(*app.get_parent()))) ? kFine : kBadInput;
        };
    });
}

void addCompletion(CLI::App& app, Action& action) {
    auto shell = std::make_shared<std::string>();
    app.add_option("SHELL", *shell, "bash or zsh")->required()->check(CLI::IsMember({"bash", "zsh"}));
    addPrinter(app, action, [shell](const CommandLine& line) {
        return *shell == "bash" ? bashCompletion(line) : zshCompletion(line);
    });
}

void addManual(CLI::App& app, Action& action) {
    auto isSession = std::make_shared<bool>(false);
    app.add_flag("--session", *isSession, "Print the page of the session language");
    addPrinter(app, action, [isSession](const CommandLine& line) {
        return *isSession ? sessionPage() : manualPage(line);
    });
}

}  // namespace

void addCommands(CLI::App& app, Action& action) {
    const auto options = std::make_shared<RunOptions>();
    action = [options] { return run(*options); };  // this is also the action without a command
    addRun(*app.add_subcommand("run", "Play a session"), *options);
    addShell(*app.add_subcommand("shell", "Type a session and see the result of each line"), action);
    addDiff(*app.add_subcommand("diff", "Show how two devices or two sessions differ"), action);
    addCheck(*app.add_subcommand("check", "Check a device's tags against the library"), action);
    addMatrix(*app.add_subcommand("matrix", "Check many devices at once"), action);
    addShow(*app.add_subcommand("show", "List the contents of a dump, a bugreport or a log"), action);
    addParams(*app.add_subcommand("params", "Print the facts of a parameter, a message or another name"),
              action);
    addExplain(*app.add_subcommand("explain", "Show how a device handles one parameter"), action);
    addCompare(*app.add_subcommand("compare", "Compare a phone's request or result with the library's"),
               action);
    addRecord(*app.add_subcommand("record", "Write a session from a phone's dump or bugreport"), action);
    addCompletion(*app.add_subcommand("completion", "Print the completion of a shell"), action);
    addTrace(*app.add_subcommand("trace", "Show what a phone did, from its logs and dumps"), action);
    addManual(*app.add_subcommand("manual", "Print the manual page"), action);
}

void addDevice(CLI::App& app, std::string& device, std::string& camera, const char* rest,
               const char* whichCamera) {
    app.add_option(
           "--device", device,
           fmt::format("Device: 'dumpsys media.camera', or a bugreport, as text, zip or gzip{}", rest))
        ->type_name("DUMP");
    addCamera(app, camera, whichCamera);
}

void addCamera(CLI::App& app, std::string& camera, const char* description) {
    app.add_option("--camera", camera, description)->type_name("ID");
}

void addDumpArgument(CLI::App& app, std::string& device) {
    app.add_option("DUMP", device, "The same as --device")->excludes(app.get_option("--device"));
}

void addStrict(CLI::App& app, bool& strict, const std::string& more) {
    app.add_flag(
        "--strict", strict,
        more + "Exit with status 3 if an input is damaged. Without this option its readable part is used");
}

void addVerbose(CLI::App& app, bool& verbose) {
    app.add_flag("--verbose", verbose, "List the parts of the dump that are not used, with their lines");
}

void addProperties(CLI::App& app, std::string& properties) {
    app.add_option(
           "--getprop,--props", properties,
           "System properties: text of 'getprop', name=value lines, or a bugreport; default: those in the "
           "bugreport of --device")
        ->type_name("GETPROP");
}

void addParameters(CLI::App& app, std::string& parameters, const char* description) {
    app.add_option("--params", parameters, description)->type_name("TEXT|FILE");
}

CLI::Option* addJson(CLI::App& app, bool& json, const char* description) {
    return app.add_flag("--json", json, description);
}

void addOutputFile(CLI::App& app, const char* name, std::string& file, const std::string& description) {
    app.add_option(name, file, description)->type_name("FILE")->check([](const std::string& word) {
        return word == "-" ? "expected a file, not '-': standard output has the output of the command" : "";
    });
}

void addHtml(CLI::App& app, std::string& html) {
    addOutputFile(app, "--html", html,
                  "Also write a page to this file: one HTML file that any browser shows without a network");
}

void addPerfetto(CLI::App& app, std::string& perfetto) {
    addOutputFile(app, "--perfetto", perfetto,
                  "Write a timeline to this file, for the trace viewer at ui.perfetto.dev");
}

}  // namespace qzcam
