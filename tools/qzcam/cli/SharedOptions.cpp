// SPDX-License-Identifier: Apache-2.0
#include "cli/Options.h"

#include <fmt/format.h>

namespace qzcam {

void addDevice(CLI::App& app, std::string& device, std::string& camera, const char* orInput,
               const char* whichCamera) {
    app.add_option(
           "--device", device,
           fmt::format(
               "Device: 'dumpsys media.camera', or a bugreport, as text, zip or gzip{}; default: the built-in one",
               orInput))
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
           "System properties: text of 'getprop', name=value lines, or a bugreport; default: those of the "
           "bugreport that is the device")
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
