// SPDX-License-Identifier: Apache-2.0
#include "cli/Commands.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "cli/CommandFiles.h"
#include "cli/DeviceInput.h"
#include "cli/InputKind.h"
#include "compare/ComparisonReport.h"
#include "device/FoundParameters.h"
#include "device/Properties.h"
#include "input/Input.h"
#include "input/Parts.h"
#include "session/Player.h"
#include "viewer/Sensors.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

namespace qzcam {

namespace {

std::string arrayName(const MetadataArray& array) {
    return array.previousSession ? nameOf(array) + " of an earlier session" : nameOf(array);
}

std::vector<std::string> namesOf(const std::vector<const MetadataArray*>& arrays) {
    return mapped(arrays, [](const MetadataArray* array) { return arrayName(*array); });
}

const MetadataArray* choose(const std::vector<const MetadataArray*>& arrays, const CompareOptions& options) {
    if (arrays.empty()) {
        complain(fmt::format(
            "{}: no request or result of an open camera in it: expected the output of "
            "'dumpsys media.camera' while the application runs. 'qzcam trace' also reads logs, and "
            "'qzcam record' events of the tag monitor",
            inputName(options.device)));
        return nullptr;
    }
    if (options.array.empty()) return arrays.front();
    std::vector<const MetadataArray*> beginning;
    for (const MetadataArray* array : arrays) {
        if (arrayName(*array) == options.array) return array;
        if (startsWith(lowered(arrayName(*array)), lowered(options.array))) beginning.push_back(array);
    }
    if (beginning.size() == 1) return beginning.front();
    complain(fmt::format("qzcam: {} has no array {}: expected {}", inputName(options.device),
                         excerpt(options.array), fmt::join(namesOf(arrays), ", ")));
    return nullptr;
}

// The session and the parameters that are played, and the name of both.
struct LibraryInput {
    Session session;
    std::vector<Parameter> parameters;
    std::string name;
};

std::optional<LibraryInput> sessionInput(const CompareOptions& options, std::vector<Parameter> parameters) {
    Problems problems(inputName(options.session));
    const auto text = readFile(options.session, problems);
    LibraryInput library{
        {inputName(options.session), {}}, std::move(parameters), "session " + inputName(options.session)};
    if (text) library.session = readSession(*text, problems);
    return report(problems) ? std::optional(std::move(library)) : std::nullopt;
}

// Returns a request with the parameters of the option, or with the best ones of the input.
std::optional<LibraryInput> parameterInput(const CompareOptions& options, const InputText& input,
                                           std::vector<Parameter> parameters) {
    Problems none("");
    LibraryInput library{parseSession("open 0\nrequest\n", "parameters", none), std::move(parameters),
                         "parameters of --params"};
    if (!options.parameters.empty()) return library;
    const auto all = findParameters(partsOf(input.text));
    const FoundParameters* const found = bestOf(all);
    if (!found || found->source == FoundParameters::Source::Defaults) {
        complain(fmt::format(
            "{}: no parameters of the application in it to compare with: expected a SESSION or --params",
            input.name));
        return std::nullopt;
    }
    library.parameters = found->text.parameters;
    library.name = fmt::format("{} of {} (line {}){}", counted(library.parameters.size(), "parameter"),
                               input.name, found->line,
                               found->text.cutLines.empty() ? "" : ", cut by the log: others may be missing");
    return library;
}

LibrarySide play(const Device& device, const LibraryInput& library) {
    LibrarySide side;
    Player player(device, [&](const Event& event) {
        if (const auto* request = std::get_if<RequestEvent>(&event)) side.request = request->entries;
        if (const auto* verdicts = std::get_if<VerdictsEvent>(&event)) side.verdicts = verdicts->rows;
        if (const auto* result = std::get_if<ResultEvent>(&event)) {
            side.result = result->entries;
            side.hasResult = true;
        }
    });
    player.setParameters(library.parameters);
    player.playOnOtherDevice(library.session);
    return side;
}

std::vector<PageData> pageData(const Device& device, const ComparedSides& sides,
                               const ArrayComparison& comparison) {
    SensorData sensors;
    sensors.add(device.camera.substr(device.camera.rfind('/') + 1), device);
    return {{"compare", comparisonJson(sides, comparison)}, sensors.data()};
}

}  // namespace

ExitStatus compare(const CompareOptions& options) {
    std::vector<std::string> inputs = options.inputs();
    inputs.push_back(options.session);
    if (const auto wrong = prepareFiles(inputs, options.html)) return *wrong;
    const ScopedProperties restored;
    const auto text = readFile(options.device);
    auto setup = text ? readSetup(*text, options) : std::nullopt;
    if (!setup) return kBadInput;
    if (!options.parameters.empty()) reportUnread(setup->parameters);
    const DeviceInput* const device = &setup->input;
    const ReportedCamera* camera = findCamera(*device->report, device->device.camera);
    const auto arrays = comparableArrays(*device->report, camera != nullptr ? camera->id : "");
    const MetadataArray* array = choose(arrays, options);
    if (array == nullptr) return arrays.empty() ? kBadInput : kUsage;
    const auto library = options.session.empty()
                             ? parameterInput(options, *text, std::move(setup->parameters))
                             : sessionInput(options, std::move(setup->parameters));
    if (!library) return kBadInput;

    const LibrarySide side = play(device->device, *library);
    const ArrayComparison comparison = compareArray(*array, device->device, side);
    ComparedSides sides{text->name, device->device.camera, arrayName(*array), array->line, library->name, {}};
    if (isResult(*array) && !side.hasResult) sides.here += ": its request, because it has no result";
    for (std::string& name : namesOf(arrays)) {
        if (name != sides.array) sides.otherArrays.push_back(std::move(name));
    }
    const std::string output =
        options.json ? comparisonJson(sides, comparison) : comparisonText(sides, comparison);
    const auto page = [&] { return pageData(device->device, sides, comparison); };
    if (!writeResult(output, options.html, "compare: " + sides.file, page)) return kBadInput;
    return comparison.differs() ? kFailed : kFine;
}

}  // namespace qzcam
