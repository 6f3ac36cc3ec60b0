#include "cli/Cli.h"

#include "base/Text.h"
#include "base/WriteAll.h"
#include "cli/CheckCommand.h"
#include "cli/Diff.h"
#include "cli/Explain.h"
#include "cli/Manual.h"
#include "cli/Params.h"
#include "cli/Run.h"
#include "cli/Shell.h"
#include "facts/Vocabulary.h"
#include "output/JUnit.h"
#include "session/SessionHelp.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Every command's options, in one source: the header of the library behind them takes seconds to compile.
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

void addDevice(CLI::App& app, std::string& device, std::string& camera, const char* orInput = kOrInput) {
    app.add_option(
           "--device", device,
           fmt::format("Device: text of 'dumpsys media.camera'{}; default: the built-in one", orInput))
        ->type_name("DUMP");
    app.add_option("--camera", camera, "Camera of the dump; default: its first")->type_name("ID");
}

void addProperties(CLI::App& app, std::string& properties) {
    app.add_option("--getprop,--props", properties,
                   "System properties: text of 'getprop', or name=value lines")
        ->type_name("GETPROP");
}

// For each command that plays.
void addPlayOptions(CLI::App& app, RunOptions& options, const char* orInput) {
    addDevice(app, options.device, options.camera, orInput);
    addProperties(app, options.properties);
    app.add_option("--params", options.parameters,
                   "Parameters set after each 'open': key=value;key=value, or a file of them, also as a dump "
                   "has them")
        ->type_name("TEXT|FILE");
    app.add_option(
           "--log", options.log,
           fmt::format(
               "Log lines shown: the lowest level ({}; {} unless said, all in JSON), or by tag: "
               "'CameraQzParam:D *:S'. For '*' and a level alone, lines that the library logs as errors but "
               "that only say where it is (\"Enter ...\"), and those of names that a device does not "
               "declare, count as debug; a tag of its own shows them as they are",
               kLogLevels, LogFilter::kDefault))
        ->type_name("FILTER")
        ->check([](const std::string& word) {
            return LogFilter::parse(word) ? "" : fmt::format("expected {}, or TAG:LEVEL...", kLogLevels);
        });
}

void addRun(CLI::App& app, RunOptions& options) {
    app.add_option("SESSION", options.sessions,
                   "Sessions to play, '-' for standard input; default: the built-in one");
    addPlayOptions(app, options, kOrInput);
    CLI::Option* json = app.add_flag("--json", options.json, "Print JSON, an event a line, for programs");
    app.add_flag("--monitor", options.monitor,
                 "Print only the entries that change, request and result in columns")
        ->excludes(json);
    app.add_option(
           "--junit", options.junit,
           "Write the expectations to this file as JUnit XML; until the run ends it says 'not finished'")
        ->type_name("FILE");
    app.footer(sessionHelp() + kExitStatus);
}

void addShell(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, shell);
    addPlayOptions(app, *options, "");  // its input is the session
    app.footer(
        "Reads a line, plays it, shows what comes of it. At a terminal lines can be edited, Tab completes "
        "commands,\n"
        "keys, values and tags, Ctrl-C drops the line, and lines are kept in\n"
        "$XDG_STATE_HOME/qzcam/history (~/.local/state/qzcam/history) for the next time. Elsewhere lines are "
        "read as\n"
        "they are. A wrong line gets a message and is left out.\n\n" +
        sessionHelp() + "\n" + shellHelp() +
        "\nExit status: 0 fine; without a terminal also 1 an expectation failed, 3 a line was wrong. 2 wrong "
        "usage.");
}

void addDiff(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, diff);
    app.add_option("A", options->a, "Dump or session, '-' for standard input")->required();
    app.add_option("B", options->b, "Another of the same kind; default: the built-in one");
    app.add_option("--as", options->as,
                   "What they are, when their content does not tell: devices or sessions")
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
    app.add_flag("--json", options->json, "Print JSON");
    app.footer(
        "Of two devices: vendor tags and their types, static entries, parameters that they publish, and the\n"
        "requests that a session makes on each. Of two sessions: the parameters that they end with, and "
        "their\n"
        "requests one by one. Expectations are left out, and so is what the device has no tags for. What is\n"
        "alike is not shown; '-' stands for what is not there.\n"
        "\nExit status: 0 nothing differs, 1 something does, 2 wrong usage, 3 a bad input file.");
}

void addCheck(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, check);
    addDevice(app, options->device, options->camera);
    app.add_flag("--json", options->json, "Print JSON");
    app.footer(
        "For every vendor tag that the library looks up: whether the device declares it, with the element\n"
        "type that the library writes or reads, and whether its static entry makes sense to its reader. By\n"
        "feature, worst first.\n"
        "\nExit status: 0 fine, or tags are only missing; 1 a tag is mistyped or an entry malformed; 2 wrong "
        "usage;\n3 a bad dump.");
}

void addParams(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, params);
    app.add_option("NAME", options->name,
                   "A key, setter, getter, handler, message, command number, property, vocabulary or tag; "
                   "default: all");
    const auto json = app.add_flag("--json", options->json, "Print JSON");
    app.add_flag("--markdown", options->markdown, "Print Markdown: docs/reference.md")->excludes(json);
    app.footer(
        "What an application may set and read, what results bring, and every line of the log: the rows of\n"
        "the library, in the order in which it works.\n"
        "\nExit status: 0 fine, 2 wrong usage, or there is no such name.");
}

void addExplain(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, explain);
    app.add_option("KEY", options->key, "The parameter")->required();
    addDevice(app, options->device, options->camera);
    addProperties(app, options->properties);
    app.add_option("--params", options->parameters,
                   "Parameters that are set, KEY and others: key=value;key=value, or a file of them")
        ->type_name("TEXT|FILE");
    app.footer(
        "Shows who reads the parameter, what its values become, the tag that they go into and whether the "
        "device\ndeclares it, under which conditions, and the choices that the device publishes.\n"
        "\nExit status: 0 fine, 2 wrong usage, or no setter reads KEY; 3 a bad input file.");
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

// A script's variable that is not set must not stand for what is built in.
void refuseEmpty(CLI::App& app) {
    for (CLI::Option* option : app.get_options([](const CLI::Option*) { return true; })) {
        option->check([](const std::string& word) { return word.empty() ? "expected no empty text" : ""; });
    }
}

// How many letters must be inserted, left out or replaced.
size_t distance(std::string_view one, std::string_view other) {
    std::vector<size_t> row{0};
    while (row.size() <= other.size()) row.push_back(row.size());
    for (size_t i = 0; i < one.size(); ++i) {
        size_t diagonal = std::exchange(row[0], i + 1);
        for (size_t j = 0; j < other.size(); ++j) {
            const size_t replaced = diagonal + (one[i] == other[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

std::string noCommand(const CLI::App& app, const std::string& word) {
    constexpr size_t kAlike = 2;
    std::string text = fmt::format("no command {}", excerpt(word));
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (distance(word, command->get_name()) > kAlike) continue;
        return text + fmt::format("; perhaps '{}'", command->get_name());
    }
    return text;
}

std::string usageMessage(const CLI::App* app, const CLI::Error& error) {
    const auto rest = app->remaining();
    const bool isCommand = app->get_subcommands().empty() && !rest.empty() && !startsWith(rest.front(), "-");
    const std::string wrong = isCommand ? noCommand(*app, rest.front()) : error.what();
    return fmt::format("qzcam: {}\nRun with --help for more information.\n", visible(wrong));
}

// A report from before must not pass for one of a run that was called wrongly. What was asked for is not
// known then, so that a file that stands elsewhere on the command line may be an input.
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
    const JUnitFile report(path);
    if (!report.isOneOf(inputs)) report.begin();
}

// What is asked for by --help and --version is output like any other.
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
    CLI::App app{"Plays a camera session against a device and shows what the camera library makes of it.",
                 "qzcam"};
    app.set_version_flag("--version", "qzcam " QZCAM_VERSION);
    app.require_subcommand(0, 1);
    app.footer(
        "Without a command: run, with the built-in session on the built-in device.\n\n"
        "Exit status: 0 fine, 1 an expectation or a check failed, 2 wrong usage, 3 a bad input file.\n"
        "Inputs end within 64 MiB, and a pipe may be silent for 60 seconds.\n"
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
