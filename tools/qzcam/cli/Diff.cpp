// SPDX-License-Identifier: Apache-2.0
#include "cli/Commands.h"

#include "cli/CommandFiles.h"
#include "cli/DeviceInput.h"
#include "cli/Difference.h"
#include "cli/InputKind.h"
#include "device/BuiltIn.h"

#include <fmt/format.h>

#include <cstdio>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

namespace {

std::optional<Session> readSession(const InputText& input) {
    Problems problems(input.name);
    Session session = readSession(input, problems);
    return report(problems) ? std::optional(std::move(session)) : std::nullopt;
}

std::optional<Session> readSession(const std::string& path) {
    const auto input = readOr(path, "built-in session", builtInSession(), TextKind::Session);
    return input ? readSession(*input) : std::nullopt;
}

ExitStatus writeDifference(const DiffReport& report, const DiffOptions& options, bool whole) {
    const std::string text = options.json ? diffJson(report) : diffText(report);
    const auto page = [&] { return std::vector<PageData>{{"diff", diffJson(report)}}; };
    const bool written =
        writeResult(text, options.html, fmt::format("diff: {} and {}", report.a, report.b), page);
    if (!written || !whole) return kBadInput;
    return report.empty() ? kFine : kFailed;
}

ExitStatus diffDevices(const DiffOptions& options, const InputText& a, const std::optional<InputText>& b) {
    const size_t comma = options.cameras.find(',');
    const std::string cameraA = options.cameras.substr(0, comma);
    const std::string cameraB = comma == std::string::npos ? cameraA : options.cameras.substr(comma + 1);
    const auto deviceA = readDevice(a, cameraA);
    const auto deviceB = b ? readDevice(*b, cameraB) : readDevice(std::string(), cameraB);
    const auto session = readSession(options.session);
    if (!deviceA || !deviceB || !session) return kBadInput;
    return writeDifference(compare(sideOf(deviceA->device, *session), sideOf(deviceB->device, *session)),
                           options, !options.strict || (deviceA->whole && deviceB->whole));
}

ExitStatus diffSessions(const DiffOptions& options, const InputText& a, const std::optional<InputText>& b) {
    const auto device = readDevice(options.device, options.cameras);
    const auto sessionA = readSession(a);
    const auto sessionB = b ? readSession(*b) : readSession(std::string());
    if (!device || !sessionA || !sessionB) return kBadInput;
    return writeDifference(compare(sideOf(*sessionA, device->device), sideOf(*sessionB, device->device)),
                           options, !options.strict || device->whole);
}

// Prints a message and returns nothing for an input that is neither a session nor has a dump.
std::optional<InputKind> kindOfInput(const InputText& input) {
    const InputKind kind = kindOf(input.text);
    if (kind == InputKind::Session || kind == InputKind::Dump || kind == InputKind::Report) return kind;
    const std::string other = notExpected(kind, "a dump or a session");
    complain(fmt::format("{}: {}", input.name,
                         other.empty()
                             ? "cannot tell whether it is a dump or a session: expected one of these, or --as"
                             : other));
    return std::nullopt;
}

}  // namespace

ExitStatus diff(const DiffOptions& options) {
    const std::vector<std::string> inputs{options.a, options.b, options.session, options.device};
    if (const auto wrong = prepareFiles(inputs, options.html)) return *wrong;
    const auto a = readFile(options.a);
    const auto b = options.b.empty() ? std::nullopt : readFile(options.b);
    if (!a || (!b && !options.b.empty())) return kBadInput;
    if (options.as == kDevices) return diffDevices(options, *a, b);
    if (options.as == kSessions) return diffSessions(options, *a, b);

    const auto kindA = kindOfInput(*a);
    const auto kindB = b ? kindOfInput(*b) : kindA;
    if (!kindA || !kindB) return kBadInput;
    const bool isOfSessions = kindA == InputKind::Session;
    if (isOfSessions != (kindB == InputKind::Session)) {
        complain(fmt::format("qzcam: {} is a {} and {} is a {}: expected two of one kind", a->name,
                             isOfSessions ? "session" : "dump", b->name, isOfSessions ? "dump" : "session"));
        return kUsage;
    }
    if (isOfSessions) return diffSessions(options, *a, b);
    if (kindA == InputKind::Report || kindB == InputKind::Report) {
        complain(
            "qzcam: only the devices of the bugreports are compared, not what happened; 'qzcam compare' compares "
            "what a phone sent with the library");
    }
    return diffDevices(options, *a, b);
}

}  // namespace qzcam
