#include "cli/Diff.h"

#include "base/Input.h"
#include "base/WriteAll.h"
#include "cli/Difference.h"
#include "device/BuiltIn.h"
#include "device/DumpScanner.h"

#include <fmt/format.h>

#include <cstdio>
#include <optional>
#include <utility>

namespace qzcam {

namespace {

const char* nameOf(InputKind kind) { return kind == InputKind::Dump ? "a dump" : "a session"; }

std::optional<Session> readSession(const Input& input) {
    Problems problems(input.name);
    Session session = parseSession(input.text, input.name, problems);
    return report(problems) ? std::optional(std::move(session)) : std::nullopt;
}

std::optional<Session> readSession(const std::string& path) {
    const auto input = readOr(path, "built-in session", builtInSession());
    return input ? readSession(*input) : std::nullopt;
}

ExitStatus tell(const DiffReport& report, bool json, bool whole) {
    if (!writeAll(stdout, json ? diffJson(report) : diffText(report)) || !whole) return kBadInput;
    return report.empty() ? kFine : kExpectationFailed;
}

ExitStatus diffDevices(const DiffOptions& options, const Input& a, const std::optional<Input>& b) {
    const size_t comma = options.cameras.find(',');
    const std::string cameraA = options.cameras.substr(0, comma);
    const std::string cameraB = comma == std::string::npos ? cameraA : options.cameras.substr(comma + 1);
    const auto deviceA = readDevice(a, cameraA);
    const auto deviceB = b ? readDevice(*b, cameraB) : readDevice(std::string(), cameraB);
    const auto session = readSession(options.session);
    if (!deviceA || !deviceB || !session) return kBadInput;
    return tell(compare(portraitOf(deviceA->device, *session), portraitOf(deviceB->device, *session)),
                options.json, deviceA->whole && deviceB->whole);
}

ExitStatus diffSessions(const DiffOptions& options, const Input& a, const std::optional<Input>& b) {
    const auto device = readDevice(options.device, options.cameras);
    const auto sessionA = readSession(a);
    const auto sessionB = b ? readSession(*b) : readSession(std::string());
    if (!device || !sessionA || !sessionB) return kBadInput;
    return tell(compare(portraitOf(*sessionA, device->device), portraitOf(*sessionB, device->device)),
                options.json, device->whole);
}

}  // namespace

InputKind kindOf(std::string_view text) {
    if (isUtf16(text)) return InputKind::Dump;  // whose reader says so
    Problems ignored("");
    const RawDump dump = scanDump(text, "", ignored);
    if (!dump.cameras.empty() || dump.hasVendorTags || !dump.entries.empty()) return InputKind::Dump;
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
    if (!areReadOnce({options.a, options.b, options.session, options.device})) return kUsage;
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
