// SPDX-License-Identifier: Apache-2.0
#include "cli/Diff.h"

#include "cli/CommandFiles.h"
#include "cli/DeviceInput.h"
#include "cli/Difference.h"
#include "device/BuiltIn.h"
#include "device/Report.h"

#include <fmt/format.h>

#include <cstdio>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

namespace {

const char* nameOf(InputKind kind) { return kind == InputKind::Dump ? "a dump" : "a session"; }

std::optional<Session> readSession(const InputText& input) {
    Problems problems(input.name);
    Session session = parseSession(input.text, input.name, problems);
    return report(problems) ? std::optional(std::move(session)) : std::nullopt;
}

std::optional<Session> readSession(const std::string& path) {
    const auto input = readOr(path, "built-in session", builtInSession(), TextKind::Session);
    return input ? readSession(*input) : std::nullopt;
}

ExitStatus tell(const DiffReport& report, const DiffOptions& options, bool whole) {
    const std::string text = options.json ? diffJson(report) : diffText(report);
    const auto page = [&] { return std::vector<PageData>{{"diff", diffJson(report)}}; };
    const bool written =
        writeResult(text, options.html, fmt::format("diff: {} and {}", report.a, report.b), page);
    if (!written || !whole) return kBadInput;
    return report.empty() ? kFine : kExpectationFailed;
}

ExitStatus diffDevices(const DiffOptions& options, const InputText& a, const std::optional<InputText>& b) {
    const size_t comma = options.cameras.find(',');
    const std::string cameraA = options.cameras.substr(0, comma);
    const std::string cameraB = comma == std::string::npos ? cameraA : options.cameras.substr(comma + 1);
    const auto deviceA = readDevice(a, cameraA);
    const auto deviceB = b ? readDevice(*b, cameraB) : readDevice(std::string(), cameraB);
    const auto session = readSession(options.session);
    if (!deviceA || !deviceB || !session) return kBadInput;
    return tell(compare(portraitOf(deviceA->device, *session), portraitOf(deviceB->device, *session)),
                options, !options.strict || (deviceA->whole && deviceB->whole));
}

ExitStatus diffSessions(const DiffOptions& options, const InputText& a, const std::optional<InputText>& b) {
    const auto device = readDevice(options.device, options.cameras);
    const auto sessionA = readSession(a);
    const auto sessionB = b ? readSession(*b) : readSession(std::string());
    if (!device || !sessionA || !sessionB) return kBadInput;
    return tell(compare(portraitOf(*sessionA, device->device), portraitOf(*sessionB, device->device)),
                options, !options.strict || device->whole);
}

}  // namespace

InputKind kindOf(std::string_view text) {
    if (readDump(text).isDump) return InputKind::Dump;
    Lines lines(text);
    for (std::string_view line; lines.next(line);) {
        const std::string_view word = takeWord(line);
        if (word.empty() || word.front() == '#') continue;
        for (const CommandSpec& syntax : commandSpecs()) {
            if (word == syntax.name) return InputKind::Session;
        }
        return InputKind::Unknown;
    }
    return InputKind::Unknown;
}

ExitStatus diff(const DiffOptions& options) {
    const std::vector<std::string> inputs{options.a, options.b, options.session, options.device};
    if (const auto wrong = prepareFiles(inputs, options.html)) return *wrong;
    const auto a = readFile(options.a);
    const auto b = options.b.empty() ? std::nullopt : readFile(options.b);
    if (!a || (!b && !options.b.empty())) return kBadInput;
    if (options.as == kDevices) return diffDevices(options, *a, b);
    if (options.as == kSessions) return diffSessions(options, *a, b);

    const InputKind kind = kindOf(a->text);
    const InputKind other = b ? kindOf(b->text) : kind;
    if (kind == InputKind::Unknown || other == InputKind::Unknown) {
        complain(
            fmt::format("{}: cannot tell whether it is a dump or a session: expected one of these, or --as",
                        kind == InputKind::Unknown ? a->name : b->name));
        return kBadInput;
    }
    if (kind != other) {
        complain(fmt::format("qzcam: {} is {} and {} is {}: expected two of one kind", a->name, nameOf(kind),
                             b->name, nameOf(other)));
        return kUsage;
    }
    return kind == InputKind::Dump ? diffDevices(options, *a, b) : diffSessions(options, *a, b);
}

}  // namespace qzcam
