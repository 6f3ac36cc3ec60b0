// SPDX-License-Identifier: Apache-2.0
#include "cli/Commands.h"

#include "base/Text.h"
#include "cli/CommandFiles.h"
#include "cli/InputKind.h"
#include "device/BuiltIn.h"
#include "facts/Hints.h"
#include "input/Input.h"
#include "output/Printer.h"
#include "show/ShowReport.h"

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

bool write(const std::string& text, const Contents& contents, const ShowOptions& options,
           const std::function<std::vector<PageData>()>& page) {
    return writeResult(text, options.html, "show: " + contents.input.name, page);
}

// Everything, including the values of each entry.
std::vector<PageData> wholePage(const Contents& contents, const std::string& camera) {
    return {{"show", contentsJson(contents, {camera, true, false})},
            {"arrays", arraysJson(contents, arraysNamed(contents, "", camera))}};
}

ExitStatus showArrays(const Contents& contents, const ShowOptions& options, const ShowView& view) {
    const auto arrays = arraysNamed(contents, options.array, options.camera);
    if (arrays.empty()) {
        const auto names = arrayNames(contents, options.camera);
        complain(fmt::format(
            "{}: no array '{}'{}: expected {}{}", contents.input.name, options.array,
            options.camera.empty() ? "" : " of camera " + options.camera,
            names.empty() ? "a dump with metadata arrays" : fmt::format("{}", fmt::join(names, ", ")),
            perhaps(nearest(options.array, names))));
        return kUsage;
    }
    const std::string text = options.json ? arraysJson(contents, arrays) : arraysText(arrays, view);
    const auto page = [&] { return std::vector<PageData>{{"arrays", arraysJson(contents, arrays)}}; };
    return write(text, contents, options, page) ? kFine : kBadInput;
}

ExitStatus showFound(const Contents& contents, const ShowOptions& options) {
    const auto lines = findText(contents, options.find);
    const std::string json = foundJson(contents, lines, options.find);
    const std::string text = options.json ? json : foundText(lines, options.find);
    const auto page = [&] { return std::vector<PageData>{{"found", json}}; };
    return write(text, contents, options, page) ? kFine : kBadInput;
}

}  // namespace

ExitStatus show(const ShowOptions& options) {
    if (const auto wrong = prepareFiles({options.input}, options.html)) return *wrong;
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
        constexpr const char* kExpected = "a camera dump, a bugreport, a log, properties or parameters";
        const std::string other = notExpected(kindOf(input->text, contents.parts), kExpected);
        complain(fmt::format("{}: {}", contents.input.name,
                             other.empty() ? fmt::format("expected {}", kExpected) : other));
        return kBadInput;
    }
    const std::string text = options.json ? contentsJson(contents, view) : contentsText(contents, view);
    const auto page = [&] { return wholePage(contents, options.camera); };
    if (!write(text, contents, options, page)) return kBadInput;
    return contents.hasFaults() ? kFailed : kFine;
}

}  // namespace qzcam
