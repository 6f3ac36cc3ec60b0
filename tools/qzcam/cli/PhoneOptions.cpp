// SPDX-License-Identifier: Apache-2.0
#include "cli/Options.h"

#include "base/Text.h"

#include <fmt/format.h>

namespace qzcam {

void addCheck(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, check);
    addDevice(app, options->device, options->camera, kOrBuiltIn,
              "Camera of the dump, or 'all' for a table of all; default: all if there are several");
    addDumpArgument(app, options->device);
    addStrict(app, options->strict);
    addVerbose(app, options->verbose);
    addJson(app, options->json);
    addHtml(app, options->html);
    app.footer(
        "Checks every vendor tag that the library looks up: the device must declare it with the element type that\n"
        "the library writes or reads, and the library must be able to use its static entry. The findings are\n"
        "sorted by feature, the worst first. For several cameras it prints a table with a row for each feature and\n"
        "a column for each camera.\n"
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
                   "An earlier matrix in JSON: show the tags that got better or worse")
        ->type_name("FILE");
    CLI::Option* json = addJson(app, options->json, "Print JSON: features and tags");
    app.add_flag("--csv", options->csv, "Print CSV: the matrix, or with a baseline the changes")
        ->excludes(json);
    addHtml(app, options->html);
    app.footer(
        "Checks every camera of every input against the library, on all cores. Each camera is a column, and an\n"
        "input that cannot be used is a column with the reason. A cell shows the worst finding of its row and the\n"
        "number of tags that have it. A column is compared with the column of the baseline that has the same input\n"
        "name and camera number.\n"
        "\nExit status: 0 fine, 1 a tag is mistyped or an entry malformed; with a baseline instead: 1 a tag got\n"
        "worse, an input became unusable, or a camera is missing; 2 wrong usage; 3 an input cannot be used, the\n"
        "others are in the matrix.");
}

void addShow(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, show);
    app.add_option("INPUT", options->input,
                   "Dump, bugreport, log, properties or parameters, '-' for standard input; default: the "
                   "built-in device")
        ->type_name("FILE");
    addCamera(app, options->camera, "Print only this camera");
    CLI::Option* array =
        app.add_option("--array", options->array,
                       "Print the entries of a metadata array: 'static', 'last request sent', or the "
                       "beginning of its name")
            ->type_name("ARRAY");
    app.add_option("--find", options->find,
                   "Print all lines with this text, and the part of the input that each belongs to")
        ->type_name("TEXT")
        ->excludes(array);
    app.add_flag("--verbose", options->verbose, "List the parts that are otherwise only counted");
    addJson(app, options->json);
    addHtml(app, options->html);
    app.footer(
        "Prints the contents of an input, with line numbers: cameras, providers and vendor tags, metadata arrays\n"
        "with their numbers of entries, tag monitors, parameters, properties, log lines by tag, events of the\n"
        "service; then faults of the HAL, places where the text is cut, and parts that cannot be used.\n"
        "\nExit status: 0 fine, 1 the HAL has faults, 2 wrong usage, or there is no such array; 3 a bad input.");
}

void addTrace(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, trace);
    app.add_option("INPUT", options->inputs,
                   "Bugreports, dumps, logs and output of 'watch'; '-' for standard input")
        ->required();
    addCamera(app, options->filter.camera, "Show only this camera, and events whose camera is not known");
    app.add_option("--frames", options->filter.frames, "Show only these frames: 1200..1300, 1200.. or 1203")
        ->type_name("A..B")
        ->check([](const std::string& word) {
            return parseFrames(word)
                       ? ""
                       : fmt::format("expected frame numbers: A..B, A.., ..B or A, not {}", excerpt(word));
        });
    app.add_option("--entry", options->filter.entry,
                   "Show only this entry, by its tag with or without section")
        ->type_name("TAG");
    app.add_option("--key", options->filter.key, "Show only this parameter")->type_name("KEY");
    app.add_option("--pid", options->filter.pid, "Show only lines of this process")->type_name("PID");
    app.add_option("--device", options->device,
                   "Compare values with the device of this dump; default: that of a dump among the inputs")
        ->type_name("FILE");
    app.add_flag(
        "--all", options->all,
        "Print each fact on one line, however long; also lines that only name a function, and the keys "
        "of the parameters that no line contains");
    addStrict(app, options->strict);
    addJson(app, options->json, kJsonEvents);
    addHtml(app, options->html);
    addPerfetto(app, options->perfetto);
    app.footer(
        "Shows what a phone did. It reads the library's lines in a log (of any layout of logcat, also cut, folded\n"
        "or repeated), the platform's lines about mistyped and missing tags, events of the tag monitor, and the\n"
        "requests and results in a dump. Each fact has its time, its frame, its source\n"
        "(request, result, static info, message to the application, log), and its cause after '<-'. A table at the\n"
        "end counts for each parameter the lines which report that it was set, written, logged by its setter or\n"
        "refused; that its tag is not declared, a gate was closed, the fallback was written, the device does not\n"
        "offer the value, or the number does not fit. 'unknown' means that no line has the value.\n"
        "A log on standard input alone is read line by line as it arrives, until its end or Ctrl-C:\n"
        "  adb logcat | qzcam trace -\n"
        "\nExit status: 0 fine, 2 wrong usage, 3 a bad input file, or no camera session is found; with --strict\n"
        "also a damaged input.");
}

void addCompare(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, compare);
    app.add_option("INPUT", options->device, "Dump or bugreport of the phone, '-' for standard input")
        ->required();
    app.add_option("SESSION", options->session,
                   "Session whose last request is compared; default: the application's parameters in INPUT");
    app.add_option(
        "--array", options->array,
        "Array of the dump, or the beginning of its name: 'last request sent', 'preview request' ...; default: the first one");
    addCamera(app, options->camera);
    addProperties(app, options->properties);
    addParameters(app, options->parameters,
                  "Parameters that are set: key=value;key=value, or a file with them");
    addJson(app, options->json);
    addHtml(app, options->html);
    app.footer(
        "Compares a request or result in the dump with that of the library: the last request of a session, or the\n"
        "request for the parameters in the dump or in the log beside it. An entry is the same, different, only\n"
        "there (on the phone), or only here, and is shown with its parameter and the reason.\n"
        "\nExit status: 0 no difference, 1 an entry of the library differs, 2 wrong usage, 3 a bad input file.");
}

void addRecord(CLI::App& app, Action& action) {
    const auto options = onChosen(app, action, record);
    app.add_option("INPUT", options->input, "Dump or bugreport of the phone, '-' for standard input")
        ->required();
    app.add_option("-o,--output", options->output, "The session, '-' for standard output")
        ->type_name("FILE")
        ->required();
    addCamera(app, options->camera);
    app.footer(
        "Writes a session with the camera, properties, client, parameters, requests and results of the input, and\n"
        "the expectations that follow from them, each with its line. Parameters come from the log, or from the\n"
        "entries of a request. If several parameters give the same entry, a comment lists them. 'qzcam run\n"
        "SESSION --device INPUT' meets the expectations.\n"
        "\nExit status: 0 fine, 2 wrong usage, 3 a bad input file.");
}

}  // namespace qzcam
