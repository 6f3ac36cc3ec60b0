// SPDX-License-Identifier: Apache-2.0
#include "cli/DeviceInput.h"

#include "cli/Commands.h"
#include "cli/InputKind.h"
#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "device/FoundParameters.h"
#include "device/Properties.h"
#include "facts/Hints.h"
#include "facts/Lookup.h"
#include "input/LogPrefix.h"
#include "input/Parts.h"
#include "verdict/Explanation.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

namespace qzcam {

namespace {

using Kind = Part::Kind;

const Part* largest(const std::vector<Part>& parts, Kind kind) {
    const Part* found = nullptr;
    for (const Part& part : parts) {
        if (part.kind == kind && (!found || part.text.size() > found->text.size())) found = &part;
    }
    return found;
}

// Returns an empty text for an input that may be a dump without its headings.
std::string whyNoDump(InputKind kind) {
    if (kind == InputKind::Report) {
        return "no media.camera in this report: expected a full bugreport, or the text of "
               "'adb shell dumpsys media.camera'";
    }
    if (kind == InputKind::Dump) return {};
    return notExpected(kind,
                       "a dump of the camera service ('adb shell dumpsys media.camera'), or a bugreport");
}

// The text of a dump, and the number of its first line.
struct DumpText {
    InputText text;
    size_t firstLine = 1;
};

std::optional<DumpText> dumpIn(const InputText& input, Problems& problems) {
    const auto parts = partsOf(input.text);
    if (const Part* const dump = largest(parts, Kind::Dump)) {
        if (!dump->fault.empty()) {
            problems.add(dump->faultLine, fmt::format("the camera dump is cut: {}", cut(dump->fault, 100)));
        }
        DumpText found{input, dump->firstLine};
        found.text.text = dump->text;
        return found;
    }
    const Part* const log = largest(parts, Kind::Log);
    if (auto logged = log ? dumpInLog(log->text) : std::nullopt) {
        DumpText found{textInput(input.name, std::move(*logged)), log->firstLine};
        found.text.cuts = input.cuts;
        return found;
    }
    const std::string why = whyNoDump(kindOf(input.text, parts));
    if (why.empty()) return DumpText{input};
    problems.add(0, why);
    return std::nullopt;
}

Properties readProperties(const std::string& path, Problems& problems) {
    const auto input = readFile(path, problems);
    if (!input) return {};
    const auto parts = partsOf(input->text);
    if (!isOfPhone(kindOf(input->text, parts))) return parseProperties(input->text, problems);
    Properties found = propertiesOf(parts, problems);
    if (found.empty()) problems.add(0, "no properties in it: expected lines '[name]: [value]' or name=value");
    return found;
}

// Returns false if there are no usable properties.
bool setProperties(const SetupOptions& options, const InputText& device, bool& whole) {
    const bool isGiven = !options.properties.empty();
    Problems problems(isGiven ? inputName(options.properties) : device.name);
    const Properties properties =
        isGiven ? readProperties(options.properties, problems) : propertiesOf(partsOf(device.text), problems);
    // Read-only properties of a device may be longer than the library's interface allows; the library reads
    // none of these.
    for (const auto& [name, value] : properties) setProperty(name, value);
    const bool good = report(problems);
    whole = whole && good;
    return good || !properties.empty() || !isGiven;
}

std::optional<ParameterText> takeFound(const InputText& input, const std::vector<FoundParameters>& found,
                                       Problems& problems) {
    const FoundParameters* const best = bestOf(found);
    if (!best) {
        problems.add(0,
                     "no parameters in it: expected 'key=value;key=value', a dump of them, or a log of them");
        return std::nullopt;
    }
    const std::string more = found.size() == 1 ? "" : fmt::format(", of {} sets in it", found.size());
    complain(fmt::format("{}:{}: {} used: {}{}", input.name, best->line,
                         counted(best->text.parameters.size(), "parameter"), best->what, more));
    return best->text;
}

std::optional<ParameterText> parametersOf(const InputText& input, Problems& problems) {
    const auto parts = partsOf(input.text);
    const auto found = findParameters(parts);
    const bool isPlain = found.empty() && !isOfPhone(kindOf(input.text, parts));
    return isPlain ? parseParameters(input.text, problems) : takeFound(input, found, problems);
}

bool isFile(const std::string& textOrFile) {
    std::error_code ignored;
    return textOrFile == "-" || textOrFile.find('=') == std::string::npos ||
           std::filesystem::exists(textOrFile, ignored);
}

void reportCuts(const InputText& input, const ParameterText& text) {
    for (const size_t line : text.cutLines) {
        complain(fmt::format(
            "{}:{}: one parameter left out: its line is cut, and the rest of its value is missing",
            input.name, line));
    }
}

// Returns true, with a message, for a key that has no value.
bool isOnlyKey(const std::string& textOrFile) {
    std::error_code ignored;
    if (!isFile(textOrFile) || std::filesystem::exists(textOrFile, ignored)) return false;
    const std::set<std::string> keys = readKeys();
    const std::string key = nearestOne(textOrFile, {keys.begin(), keys.end()});
    if (key.empty()) return false;
    complain(fmt::format(
        "qzcam: --params: there is no file '{}': expected a file, or key=value; perhaps '{}=...' is meant",
        textOrFile, key));
    return true;
}

std::optional<std::vector<Parameter>> readParameters(const std::string& textOrFile, bool& whole) {
    if (textOrFile.empty()) return std::vector<Parameter>{};
    if (isOnlyKey(textOrFile)) return std::nullopt;
    const bool isTyped = !isFile(textOrFile);
    const auto input = isTyped ? textInput("--params", textOrFile) : readFile(textOrFile);
    if (!input) return std::nullopt;
    Problems problems(input->name);
    auto text = parametersOf(*input, problems);
    const bool good = report(problems);
    whole = whole && good;
    if (!text || (!good && (isTyped || text->parameters.empty()))) return std::nullopt;
    reportCuts(*input, *text);
    return std::move(text->parameters);
}

void complainOf(const Fault& fault, const std::string& file) {
    complain(fmt::format("{}:{}: {}: {}", file, fault.line, fault.text, fault.consequence));
}

DeviceInput deviceOfText(const InputText& text, size_t firstLine, const std::string& camera,
                         Problems& problems) {
    DeviceInput input;
    input.text = text;
    input.report = std::make_shared<Report>(readDump(text.text, firstLine));
    addDamage(*input.report, problems);
    input.device = deviceOf(*input.report, camera, problems);
    input.device.file = text.name;
    auto cameras = std::make_shared<Cameras>(input.report, text.name);
    if (camera.empty() && !cameras->numbers().empty()) input.cameras = std::move(cameras);
    input.whole = report(problems) && text.cuts.empty();
    for (const Fault& fault : input.device.faults) complainOf(fault, text.name);
    return input;
}

// Sessions open a back and a front camera. The built-in device has one, which is used as both.
void addFrontCamera(DeviceInput& builtIn) {
    if (builtIn.cameras) builtIn.cameras->addNumber(1, 0);
}

}  // namespace

bool canBeChecked(const Device& device) {
    if (device.hasVendorSection || !device.vendorTags.empty() || !device.entries.empty()) return true;
    complain(fmt::format("{}: nothing to check: expected vendor tags, or static entries of camera {}",
                         device.file, device.camera));
    return false;
}

OtherCamera otherCamera(const DeviceInput& input, const std::string& camera) {
    Problems problems(input.device.file);
    OtherCamera other{deviceOf(*input.report, camera, problems), false};
    other.device.file = input.device.file;
    other.whole = report(problems);
    for (const Fault& fault : other.device.faults) {
        const auto& known = input.device.faults;
        const bool isKnown = std::any_of(known.begin(), known.end(),
                                         [&](const Fault& each) { return each.line == fault.line; });
        if (!isKnown) complainOf(fault, input.device.file);
    }
    return other;
}

std::optional<DeviceInput> readDevice(const InputText& file, const std::string& camera, Wants wants) {
    Problems problems(file.name);
    const auto dump = dumpIn(file, problems);
    if (!dump) {
        report(problems);
        return std::nullopt;
    }
    DeviceInput input = deviceOfText(dump->text, dump->firstLine, camera, problems);
    const bool hasTags = wants == Wants::VendorTags && camera.empty() && input.device.hasVendorTags;
    return input.device.camera.empty() && !hasTags ? std::nullopt : std::optional(std::move(input));
}

std::optional<DeviceInput> readDevice(const std::string& path, const std::string& camera, Wants wants) {
    const auto dump = readOr(path, "built-in device", builtInDevice());
    if (!dump) return std::nullopt;
    reportUsedParts(*dump, false);
    return readDevice(*dump, camera, wants);
}

void reportUsedParts(const InputText& input, bool properties) {
    const auto parts = partsOf(input.text);
    const Part* const dump = largest(parts, Kind::Dump);
    const Part* const list = properties ? largest(parts, Kind::Properties) : nullptr;
    if (!dump || (!isReport(parts) && !list)) return;
    std::string text = fmt::format("{}: the camera dump from line {}", input.name, dump->firstLine);
    if (list) text += fmt::format(", the properties from line {}", list->firstLine);
    complain(text);
}

std::optional<Setup> readSetup(const SetupOptions& options) {
    const auto input = readOr(options.device, "built-in device", builtInDevice());
    return input ? readSetup(*input, options) : std::nullopt;
}

std::optional<Setup> readSetup(const InputText& input, const SetupOptions& options) {
    reportUsedParts(input, options.properties.empty());
    auto device = readDevice(input, options.camera);
    Setup setup;
    setup.whole = device && device->whole;
    auto parameters = readParameters(options.parameters, setup.whole);
    if (!setProperties(options, input, setup.whole) || !device || !parameters) return std::nullopt;
    if (options.device.empty()) addFrontCamera(*device);
    setup.input = std::move(*device);
    setup.parameters = std::move(*parameters);
    return setup;
}

void reportUnread(const std::vector<Parameter>& parameters) {
    const std::set<std::string> keys = readKeys();
    for (const auto& [key, value] : parameters) {
        const bool isKnown =
            keys.count(key) != 0 || ownerOf(key) != KeyOwner::None || !noteOnHostKey(key).empty();
        if (!isKnown) complain(fmt::format("qzcam: no setter reads '{}'{}", key, whyUnread(key)));
    }
}

}  // namespace qzcam
