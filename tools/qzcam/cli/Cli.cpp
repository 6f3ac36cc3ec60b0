// SPDX-License-Identifier: Apache-2.0
#include "cli/Cli.h"

#include "base/OutputFile.h"
#include "base/Text.h"
#include "base/WriteAll.h"
#include "cli/CheckCommand.h"
#include "cli/Compare.h"
#include "cli/CompletionScripts.h"
#include "cli/Diff.h"
#include "cli/Explain.h"
#include "cli/Manual.h"
#include "cli/MatrixCommand.h"
#include "cli/Params.h"
#include "cli/Record.h"
#include "cli/Run.h"
#include "cli/Shell.h"
#include "cli/ShowCommand.h"
#include "cli/TraceCommand.h"
#include "facts/Hints.h"
#include "facts/Vocabulary.h"
#include "output/JUnit.h"
#include "session/SessionHelp.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

// One source defines the options of all commands: the header of the option library takes seconds to compile.
namespace qzcam {

namespace {

constexpr const char* kExitStatus =
    "\nExit status: 0 fine, 1 an expectation failed, 2 wrong usage, 3 a bad input file.";

// A command's options live as long as its action may be run.
template <typename Options>
std::shared_ptr<Options> onChosen(CLI::App& app, Action& action, ExitStatus (*command)(const Options&)) {
    auto options = std::make_shared<Options>();
    app.callback([&action, options, command] { action = [options, command] { return command(*options); }; });
    return options;
}

constexpr const char* kOrInput = ", '-' for standard input";

void addDevice(CLI::App& app, std::string& device, std::string& camera, const char* orInput = kOrInput,
               const char* whichCamera = "Camera of the dump; default: its first") {
    app.add_option(
           "--device", device,
           fmt::format(
               "Device: 'dumpsys media.camera', or a bugreport, as text, zip or gzip{}; default: the built-in one",
               orInput))
        ->type_name("DUMP");
    app.add_option("--camera", camera, whichCamera)->type_name("ID");
}

void addStrict(CLI::App& app, bool& strict, const std::string& more = {}) {
    app.add_flag("--strict", strict,
                 more + "Exit with 3 when an input is damaged; otherwise what can be read of it is used");
}

void addVerbose(CLI::App& app, bool& verbose) {
    app.add_flag("--verbose", verbose, "Name what of the dump is not used, each with its line");
}

void addProperties(CLI::App& app, std::string& properties) {
    app.add_option(
           "--getprop,--props", properties,
           "System properties: text of 'getprop', name=value lines, or a bugreport; default: those of the "
           "bugreport that is the device")
        ->type_name("GETPROP");
}

// For each command that plays.
void addPlayOptions(CLI::App& app, RunOptions& options, const char* orInput) {
    addDevice(app, options.device, options.camera, orInput);
    addProperties(app, options.properties);
    app.add_option("--params", options.parameters,
                   "Parameters set after each 'open': key=value;key=value, or a file that has them: a "
                   "dump, a log, a bugreport")
        ->type_name("TEXT|FILE");
    app.add_option(
           "--log", options.log,
           fmt::format(
               "Log lines to show: the lowest level ({}; default: {}, all with --json), or a filter by tag: "
               "'CameraQzParam:D *:S'. With a level alone or '*', two kinds of error lines count as debug: "
               "lines that only name a function (\"Enter ...\"), and lines about names that the device does "
               "not declare. A filter for one tag shows them at their own level",
               kLogLevels, LogFilter::kDefault))
        ->type_name("FILTER")
        ->check([](const std::string& word) {
            return LogFilter::parse(word) ? "" : fmt::format("expected {}, or TAG:LEVEL...", kLogLevels);
        });
}

constexpr const char* kStrict =
    "Fail for values that the device does not offer, for numbers that do not fit, and for anything in the inputs "
    "that cannot be used";

void addHtml(CLI::App& app, std::string& html) {
    app.add_option(
           "--html", html,
           "Write a page to this file too: everything in one HTML file, drawn in any browser, without "
           "a network")
        ->type_name("FILE");
}

void addRun(CLI::App& app, RunOptions& options) {
    app.add_option("SESSION", options.sessions,
                   "Sessions to play, '-' for standard input; default: the built-in one");
    addPlayOptions(app, options, kOrInput);
    addVerbose(app, options.verbose);
    CLI::Option* json =
        app.add_flag("--json", options.json, "Print JSON, one event on each line, for programs");
    app.add_flag("--monitor", options.monitor,
                 "Print only the entries that change, request and result in columns")
        ->excludes(json);
    addStrict(app, options.strict, kStrict);
    app.add_option(
           "--junit", options.junit,
           "Write the expectations to this file as JUnit XML; until the run ends the file says 'not finished'")
        ->type_name("FILE");
    app.add_option("--perfetto", options.perfetto,
                   "Write a timeline to this file, for the trace viewer at ui.perfetto.dev")
        ->type_name("FILE");
    addHtml(app, options.html);
    app.footer(sessionHelp() + kExitStatus);
}

void addShell(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, shell);
    addPlayOptions(app, *options, "");  // its input is the session
    addStrict(app, options->strict);
    app.footer(
        "Reads a line, plays it, and shows the result. At a terminal lines can be edited: Tab completes "
        "commands,\n"
        "keys, values and tags, and Ctrl-C drops the line. The history is kept in\n"
        "$XDG_STATE_HOME/qzcam/history (~/.local/state/qzcam/history). Without a terminal lines are read as\n"
        "they are. A wrong line gets a message and is skipped.\n\n" +
        sessionHelp() + "\n" + shellHelp() +
        "\nExit status: 0 fine; without a terminal also 1 an expectation failed, 3 a line was wrong. 2 wrong "
        "usage.");
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
    app.add_flag("--json", options->json, "Print JSON");
    addHtml(app, options->html);
    app.footer(
        "For two devices: vendor tags and their types, static entries, published parameters, and the requests\n"
        "of a session on each. For two sessions: the parameters at their ends, and the requests one by one.\n"
        "Expectations are ignored, and so are tags that the device does not declare. Only differences are\n"
        "shown; '-' means absent.\n"
        "\nExit status: 0 nothing differs, 1 something does, 2 wrong usage, 3 a bad input file.");
}

void addCheck(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, check);
    addDevice(app, options->device, options->camera, kOrInput,
              "Camera of the dump, or 'all' for a table of all; default: all if there are several");
    addStrict(app, options->strict);
    addVerbose(app, options->verbose);
    app.add_flag("--json", options->json, "Print JSON");
    addHtml(app, options->html);
    app.footer(
        "Checks for every vendor tag that the library looks up that the device declares it, that its element\n"
        "type is the one that the library writes or reads, and that the library can use its static entry.\n"
        "The findings are sorted by feature, the worst first.\n"
        "For several cameras: a table, features down and cameras across.\n"
        "\nExit status: 0 fine, or tags are only missing; 1 a tag is mistyped, an entry malformed,\nor the "
        "HAL declares its tags wrongly; 2 wrong usage; 3 the dump has no vendor tags and no camera.");
}

void addMatrix(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, matrix);
    app.add_option("INPUT", options->inputs,
                   "Dumps and bugreports, or folders of them; '-' for standard input")
        ->required();
    app.add_flag("--tags", options->tags, "A row for each tag instead of each feature");
    app.add_option("--baseline", options->baseline,
                   "An earlier matrix in JSON: show what got better and what got worse")
        ->type_name("FILE");
    CLI::Option* json = app.add_flag("--json", options->json, "Print JSON: features and tags");
    app.add_flag("--csv", options->csv, "Print CSV: the matrix, or with a baseline the changes")
        ->excludes(json);
    addHtml(app, options->html);
    app.footer(
        "Checks every camera of every input against the library, on all cores: a column for each camera, and\n"
        "for an input that cannot be used a column that says why. A cell shows the worst verdict of its row,\n"
        "and of how many tags. Columns of a baseline are found by the name of their input and the number of\n"
        "their camera.\n"
        "\nExit status: 0 fine, 1 a tag is mistyped or an entry malformed; with a baseline instead: 1 a tag got\n"
        "worse, or a camera is gone; 2 wrong usage; 3 no input can be used.");
}

void addShow(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, show);
    app.add_option("INPUT", options->input,
                   "Dump, bugreport, log, properties or parameters, '-' for standard input; default: the "
                   "built-in device")
        ->type_name("FILE");
    app.add_option("--camera", options->camera, "Only what is of this camera")->type_name("ID");
    CLI::Option* array =
        app.add_option("--array", options->array,
                       "Print the entries of a metadata array: 'static', 'last request sent', or the "
                       "beginning of its name")
            ->type_name("NAME");
    app.add_option("--find", options->find, "Print all lines that have this text, and where they belong")
        ->type_name("TEXT")
        ->excludes(array);
    app.add_flag("--verbose", options->verbose, "Also name what is only counted otherwise");
    app.add_flag("--json", options->json, "Print JSON");
    app.footer(
        "Prints what an input holds, with line numbers: cameras, providers and vendor tags, metadata arrays\n"
        "with their numbers of entries, tag monitors, parameters, properties, log lines by tag, events of the\n"
        "service; faults of the HAL, where the text is cut, and what of it cannot be used.\n"
        "\nExit status: 0 fine, 1 the HAL has faults, 2 wrong usage, or there is no such array; 3 a bad input.");
}

void addParams(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, params);
    app.add_option("NAME", options->name,
                   "A key, setter, getter, handler, message, command number, property, vocabulary or tag; "
                   "default: all");
    const auto json = app.add_flag("--json", options->json, "Print JSON");
    app.add_flag("--markdown", options->markdown, "Print Markdown: docs/reference.md")->excludes(json);
    addDevice(app, options->device, options->camera);
    app.footer(
        "Shows the parameters that an application sets and reads, the entries of results, and every line of\n"
        "the log: the rows of the library, in the order of its passes. With a device, also the values that it offers.\n"
        "\nExit status: 0 fine, 2 wrong usage, or there is no such name; 3 a bad dump.");
}

void addExplain(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, explain);
    app.add_option("KEY", options->key, "The parameter")->required();
    addDevice(app, options->device, options->camera);
    addProperties(app, options->properties);
    app.add_option("--params", options->parameters,
                   "Parameters that are set, KEY and others: key=value;key=value, or a file of them")
        ->type_name("TEXT|FILE");
    addStrict(app, options->strict, kStrict);
    app.footer(
        "Shows the setter that reads the parameter, its values, its tag and the tag's declaration on the "
        "device,\nits conditions, and the values that the device publishes.\n"
        "\nExit status: 0 fine, 1 with --strict for a value that is not offered or does not fit, 2 wrong usage, or no setter reads KEY; 3 a bad input file.");
}

void addTrace(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, trace);
    app.add_option("INPUT", options->inputs,
                   "Bug reports, dumps, logs and output of 'watch', as they are; '-' for standard input")
        ->required();
    app.add_option("--camera", options->filter.camera,
                   "Only this camera, and what is not known to be of another")
        ->type_name("ID");
    app.add_option("--frames", options->filter.frames, "Only these frames: 1200..1300, 1200.. or 1203")
        ->type_name("A..B")
        ->check([](const std::string& word) {
            return parseFrames(word) ? "" : "expected frame numbers: A..B, A.., ..B or A";
        });
    app.add_option("--entry", options->filter.entry, "Only this entry, by its tag with or without section")
        ->type_name("TAG");
    app.add_option("--key", options->filter.key, "Only this parameter")->type_name("KEY");
    app.add_option("--pid", options->filter.pid, "Only lines of this process")->type_name("PID");
    app.add_flag("--json", options->json, "Print JSON, an event a line, for programs");
    addHtml(app, options->html);
    app.add_option("--perfetto", options->perfetto,
                   "Write a timeline to this file, for the trace viewer at ui.perfetto.dev")
        ->type_name("FILE");
    app.footer(
        "Tells what a phone did, from what it left: the library's own lines in a log (of any layout of logcat,\n"
        "also cut, folded or repeated), the platform's lines about mistyped and missing tags, events of the tag\n"
        "monitor. A timeline has requests, results, messages to the application and causes in columns; a table\n"
        "at its end says for each parameter how many lines tell that it was set, written, refused, undeclared or\n"
        "left out. 'unknown' is what no line tells.\n"
        "Standard input alone is told line by line as it comes, until its end or Ctrl-C:\n"
        "  adb logcat | qzcam trace -\n"
        "\nExit status: 0 fine, 2 wrong usage, 3 a bad input file, or nothing in it tells of a session.");
}

void addCompare(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, compare);
    app.add_option("INPUT", options->input, "Dump or bugreport of the phone, '-' for standard input")
        ->required();
    app.add_option(
        "SESSION", options->session,
        "Session whose last request is compared; default: the application's parameters that INPUT holds");
    app.add_option("--array", options->array,
                   "Array of the dump: 'last request sent', 'preview request' ...; default: the first one");
    app.add_option("--camera", options->camera, "Camera of the dump; default: its first")->type_name("ID");
    addProperties(app, options->properties);
    app.add_option("--params", options->parameters,
                   "Parameters that are set: key=value;key=value, or a file of them")
        ->type_name("TEXT|FILE");
    app.add_flag("--json", options->json, "Print JSON");
    app.footer(
        "Compares a request or result in the dump with what the library would send: the last request of a\n"
        "session, or of the parameters that the dump, or the log beside it, holds. Entries are the same,\n"
        "different, only there, or only here, each with its parameter and the reason.\n"
        "\nExit status: 0 nothing differs, 1 an entry of the library does, 2 wrong usage, 3 a bad input file.");
}

void addRecord(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, record);
    app.add_option("INPUT", options->input, "Dump or bugreport of the phone, '-' for standard input")
        ->required();
    app.add_option("-o,--output", options->output, "The session, '-' for standard output")
        ->type_name("FILE")
        ->required();
    app.add_option("--camera", options->camera, "Camera of the dump; default: its first")->type_name("ID");
    app.footer(
        "Writes what the phone did as a session: camera, properties, client, parameters, requests, results, and\n"
        "the expectations that the evidence supports, each with the line that it comes from. Parameters are\n"
        "those of the log, or those that the entries of a request come from; where several do, a comment names\n"
        "them. 'qzcam run SESSION --device INPUT' meets the expectations.\n"
        "\nExit status: 0 fine, 2 wrong usage, 3 a bad input file.");
}

void addCommands(CLI::App& app, Action& action) {
    const auto options = std::make_shared<RunOptions>();
    action = [options] { return run(*options); };  // also without a command
    addRun(*app.add_subcommand("run", "Play a session"), *options);
    addShell(*app.add_subcommand("shell", "Type a session and see the result of each line"), action);
    addDiff(*app.add_subcommand("diff", "Show how two devices or two sessions differ"), action);
    addCheck(*app.add_subcommand("check", "Check a device's tags against the library"), action);
    addMatrix(*app.add_subcommand("matrix", "Check many devices at once"), action);
    addShow(*app.add_subcommand("show", "List what a dump, a bugreport or a log holds"), action);
    addParams(*app.add_subcommand("params", "Explain the application's parameters"), action);
    addExplain(*app.add_subcommand("explain", "Show how a device handles one parameter"), action);
    addCompare(*app.add_subcommand("compare", "Compare what a phone sent with what the library would send"),
               action);
    addRecord(*app.add_subcommand("record", "Write what a phone did as a session"), action);
    addCompletion(*app.add_subcommand("completion", "Print the completion of a shell"), action);
    addTrace(*app.add_subcommand("trace", "Tell what a phone did, from its logs and dumps"), action);
    addManual(*app.add_subcommand("manual", "Print the manual page"), action);
}

// An unset variable of a script must not select the built-in file.
void refuseEmpty(CLI::App& app) {
    for (CLI::Option* option : app.get_options([](const CLI::Option*) { return true; })) {
        option->check([](const std::string& word) { return word.empty() ? "must not be empty" : ""; });
    }
}

std::string noCommand(const CLI::App& app, const std::string& word) {
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
    if (!isOneOf(path, inputs)) JUnitFile(path).begin();
}

// The texts of --help and --version are written like any other output.
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
    CLI::App app{"Runs the camera library on a desk: plays sessions, and checks and compares devices.",
                 "qzcam"};
    app.set_version_flag("--version", "qzcam " QZCAM_VERSION);
    app.require_subcommand(0, 1);
    app.footer(
        "Without a command: run, with the built-in session on the built-in device.\n\n"
        "Exit status: 0 fine, 1 an expectation or a check failed, 2 wrong usage, 3 a bad input file.\n"
        "Inputs are known by their content: text in UTF-8, UTF-16 or Latin-1, gzip, zip. They end within 1024 MiB,\n"
        "unpacked too; what is packed unpacks to at most 64 MiB or 500 times its size, and is packed at most 4\n"
        "times over. A pipe may be silent for 60 seconds.\n"
        "Environment: NO_COLOR switches colours off, XDG_STATE_HOME is where the shell keeps its history.");
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
