#include "Diff.h"

#include "BuiltIn.h"
#include "Difference.h"
#include "DumpScanner.h"
#include "Input.h"
#include "WriteAll.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

namespace qzcam {

namespace {

constexpr const char* kDevices = "devices";
constexpr const char* kSessions = "sessions";

ExitStatus complain(ExitStatus status, const std::string& text) {
    fmt::print(stderr, "{}\n", text);
    return status;
}

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
    if (options.a == "-" && options.b == "-")
        return complain(kUsage, "qzcam: standard input is there once only");
    const auto a = readFile(options.a);
    const auto b = options.b.empty() ? std::nullopt : readFile(options.b);
    if (!a || (!b && !options.b.empty())) return kBadInput;
    if (options.as == kDevices) return diffDevices(options, *a, b);
    if (options.as == kSessions) return diffSessions(options, *a, b);

    const InputKind kind = kindOf(a->text);
    const InputKind other = b ? kindOf(b->text) : kind;
    if (kind == InputKind::Unknown || other == InputKind::Unknown) {
        return complain(kBadInput,
                        fmt::format("{}: cannot tell whether it is a dump or a session: expected one "
                                    "of these, or --as",
                                    kind == InputKind::Unknown ? a->name : b->name));
    }
    if (kind != other) {
        return complain(kUsage, fmt::format("qzcam: {} is {} and {} is {}: expected two of one kind", a->name,
                                            nameOf(kind), b->name, nameOf(other)));
    }
    return kind == InputKind::Dump ? diffDevices(options, *a, b) : diffSessions(options, *a, b);
}

void addDiff(CLI::App& app, Action& action) {
    const auto options = std::make_shared<DiffOptions>();
    app.add_option("A", options->a, "Dump or session, '-' for standard input")->required();
    app.add_option("B", options->b, "Another of the same kind; default: the built-in one");
    app.add_option("--as", options->as,
                   "What they are, when their content does not tell: devices or sessions")
        ->type_name("KIND")
        ->check([](const std::string& word) {
            return word == kDevices || word == kSessions ? "" : "expected devices or sessions";
        });
    app.add_option("--session", options->session,
                   "Session whose requests are compared on two devices; default: the built-in one")
        ->type_name("FILE");
    app.add_option("--device", options->device,
                   "Device that two sessions are played on; default: the built-in one")
        ->type_name("DUMP");
    app.add_option("--camera", options->cameras,
                   "Camera of the dump, or of both dumps 'A,B'; default: the first of each")
        ->type_name("ID");
    app.add_flag("--json", options->json, "Print JSON");
    app.footer(
        "Of two devices: vendor tags and their types, static entries, parameters that they publish, and the\n"
        "requests that a session makes on each. Of two sessions: the parameters that they end with, and "
        "their\n"
        "requests one by one. Expectations are left out, and so is what the device has no tags for. What is\n"
        "alike is not shown; '-' stands for what is not there.\n"
        "\nExit status: 0 nothing differs, 1 something does, 2 wrong usage, 3 a bad input file.");
    app.callback([&action, options] { action = [options] { return diff(*options); }; });
}

}  // namespace qzcam
