// SPDX-License-Identifier: Apache-2.0
#include "cli/PhoneOptions.h"

#include "cli/CheckCommand.h"
#include "cli/Compare.h"
#include "cli/MatrixCommand.h"
#include "cli/Record.h"
#include "cli/SharedOptions.h"
#include "cli/ShowCommand.h"
#include "cli/TraceCommand.h"

namespace qzcam {

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
    addHtml(app, options->html);
    app.footer(
        "Prints what an input holds, with line numbers: cameras, providers and vendor tags, metadata arrays\n"
        "with their numbers of entries, tag monitors, parameters, properties, log lines by tag, events of the\n"
        "service; faults of the HAL, where the text is cut, and what of it cannot be used.\n"
        "\nExit status: 0 fine, 1 the HAL has faults, 2 wrong usage, or there is no such array; 3 a bad input.");
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
    app.add_option("--device", options->device,
                   "Hold values against the device of this dump; default: that of a dump among the inputs")
        ->type_name("FILE");
    app.add_flag("--json", options->json, "Print JSON, an event a line, for programs");
    addHtml(app, options->html);
    app.add_option("--perfetto", options->perfetto,
                   "Write a timeline to this file, for the trace viewer at ui.perfetto.dev")
        ->type_name("FILE");
    app.footer(
        "Tells what a phone did, from what it left: the library's own lines in a log (of any layout of logcat,\n"
        "also cut, folded or repeated), the platform's lines about mistyped and missing tags, events of the tag\n"
        "monitor, requests and results that a dump shows. A timeline has requests, results, messages to the\n"
        "application and causes in columns; a table at its end says for each parameter how many lines tell that\n"
        "it was set, written, refused, undeclared, left out, not offered by the device, or too big a number.\n"
        "'unknown' is what no line tells.\n"
        "A log on standard input alone is told line by line as it comes, until its end or Ctrl-C:\n"
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
    addHtml(app, options->html);
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

}  // namespace qzcam
