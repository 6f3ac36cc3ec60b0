// SPDX-License-Identifier: Apache-2.0
#include "cli/ShowCommand.h"

#include "base/Text.h"
#include "base/WriteAll.h"
#include "device/BuiltIn.h"
#include "facts/Hints.h"
#include "input/Input.h"
#include "output/Printer.h"
#include "show/ShowReport.h"
#include "viewer/Page.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace qzcam {

namespace {

bool hasCamera(const Contents& contents, const std::string& camera) {
    return std::any_of(contents.reports.begin(), contents.reports.end(), [&](const Report& report) {
        return std::any_of(report.cameras.begin(), report.cameras.end(),
                           [&](const ReportedCamera& each) { return each.id == camera; });
    });
}

std::string cameras(const Contents& contents) {
    std::string ids;
    for (const Report& report : contents.reports) {
        for (const ReportedCamera& camera : report.cameras)
            ids += (ids.empty() ? "" : ", ") + std::string(camera.id);
    }
    return ids.empty() ? "none" : ids;
}

bool drawPage(const Contents& contents, const ShowOptions& options, const std::vector<PageData>& data) {
    return finishPage(options.html, fmt::format("qzcam show: {}", contents.input.name), data);
}

// Collects everything, including the values of each entry.
bool drawContents(const Contents& contents, const ShowOptions& options) {
    if (options.html.empty()) return true;
    const auto arrays = arraysNamed(contents, "", options.camera);
    return drawPage(contents, options,
                    {{"show", contentsJson(contents, {options.camera, true, false})},
                     {"arrays", arraysJson(contents, arrays)}});
}

ExitStatus showArrays(const Contents& contents, const ShowOptions& options, const ShowView& view) {
    const auto arrays = arraysNamed(contents, options.array, options.camera);
    if (arrays.empty()) {
        const auto names = arrayNames(contents);
        complain(fmt::format(
            "{}: no array '{}': expected {}{}", contents.input.name, options.array,
            names.empty() ? "a dump with metadata arrays" : fmt::format("{}", fmt::join(names, ", ")),
            perhaps(nearest(options.array, names))));
        return kUsage;
    }
    const std::string text = options.json ? arraysJson(contents, arrays) : arraysText(arrays, view);
    const bool drawn = drawPage(contents, options, {{"arrays", arraysJson(contents, arrays)}});
    return writeAll(stdout, text) && drawn ? kFine : kBadInput;
}

ExitStatus showFound(const Contents& contents, const ShowOptions& options) {
    const auto lines = findText(contents, options.find);
    const std::string text =
        options.json ? foundJson(contents, lines, options.find) : foundText(lines, options.find);
    const bool drawn = drawPage(contents, options, {{"found", foundJson(contents, lines, options.find)}});
    return writeAll(stdout, text) && drawn ? kFine : kBadInput;
}

}  // namespace

ExitStatus show(const ShowOptions& options) {
    if (const auto wrong = beginPage(options.html, {options.input})) return *wrong;
    const auto input = readOr(options.input, "built-in device", builtInDevice());
    if (!input) return kBadInput;
    const Contents contents = readContents(*input);
    if (!options.find.empty()) return showFound(contents, options);
    if (!options.camera.empty() && !hasCamera(contents, options.camera)) {
        complain(fmt::format("{}: no camera '{}': there is {}", contents.input.name, options.camera,
                             cameras(contents)));
        return kBadInput;
    }
    const ShowView view{options.camera, options.verbose, wantsColour(stdout)};
    if (!options.array.empty()) return showArrays(contents, options, view);
    if (contents.isEmpty()) {
        complain(fmt::format("{}: expected a camera dump, a bugreport, a log, properties or parameters",
                             contents.input.name));
        return kBadInput;
    }
    const std::string text = options.json ? contentsJson(contents, view) : contentsText(contents, view);
    const bool drawn = drawContents(contents, options);
    if (!writeAll(stdout, text) || !drawn) return kBadInput;
    return contents.hasFaults() ? kExpectationFailed : kFine;
}

}  // namespace qzcam
