// SPDX-License-Identifier: Apache-2.0
#include "cli/SharedOptions.h"

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
    app.add_option("--camera", camera, whichCamera)->type_name("ID");
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

void addHtml(CLI::App& app, std::string& html) {
    app.add_option("--html", html,
                   "Also write a page to this file: one HTML file that any browser shows without a network")
        ->type_name("FILE");
}

}  // namespace qzcam
