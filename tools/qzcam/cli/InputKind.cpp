// SPDX-License-Identifier: Apache-2.0
#include "cli/InputKind.h"

#include "base/Text.h"
#include "input/LogPrefix.h"
#include "log/TagMonitor.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace qzcam {

namespace {

// Returns true if the first word is a command of the session language.
bool isSession(std::string_view text) {
    Lines lines(text);
    for (std::string_view line; lines.next(line);) {
        const std::string_view word = takeWord(line);
        if (word.empty() || word.front() == '#') continue;
        const auto& all = commandSpecs();
        return std::any_of(all.begin(), all.end(),
                           [&](const CommandSpec& command) { return word == command.name; });
    }
    return false;
}

bool hasMonitorEvent(std::string_view text) {
    MonitorReader reader([](const MonitorEvent&) {});
    Lines lines(text);
    for (std::string_view line; lines.next(line);) {
        if (reader.feed(line, lines.number())) return true;
    }
    return false;
}

constexpr const char* kOfPhone =
    "--device takes it, 'qzcam trace' and 'qzcam record' read what the phone did";

// In the order of InputKind: the name of a kind, and what to do with such an input.
constexpr std::array<std::array<const char*, 2>, 8> kTexts{
    {{"empty", nullptr},
     {"a bugreport", kOfPhone},
     {"a dump of the camera service", kOfPhone},
     {"a session", "'qzcam run' plays it"},
     {"a log without a dump", "'qzcam trace' shows what the phone did"},
     {"output of 'cmd media.camera watch'", "'qzcam trace' shows its events"},
     {"a list of properties", "--getprop takes it"},
     {"a list of parameters", "--params takes it"}}};
static_assert(kTexts.size() == static_cast<size_t>(InputKind::Other));

}  // namespace

InputKind kindOf(std::string_view text) { return kindOf(text, partsOf(text)); }

InputKind kindOf(std::string_view text, const std::vector<Part>& parts) {
    const auto isAny = [&](const auto& is) { return std::any_of(parts.begin(), parts.end(), is); };
    const auto holds = [&](Part::Kind kind) {
        return isAny([kind](const Part& part) { return part.kind == kind; });
    };
    if (trimmed(text).empty()) return InputKind::Empty;
    if (isReport(parts)) return InputKind::Report;
    if (holds(Part::Kind::Dump)) return InputKind::Dump;
    if (isSession(text)) return InputKind::Session;
    const auto isLoggedDump = [](const Part& part) {
        return part.kind == Part::Kind::Log && dumpInLog(part.text);
    };
    if (holds(Part::Kind::Log)) return isAny(isLoggedDump) ? InputKind::Dump : InputKind::Log;
    if (holds(Part::Kind::Properties)) return InputKind::Properties;
    if (holds(Part::Kind::Parameters)) return InputKind::Parameters;
    return hasMonitorEvent(text) ? InputKind::Watch : InputKind::Other;
}

bool isOfPhone(InputKind kind) {
    return kind == InputKind::Report || kind == InputKind::Dump || kind == InputKind::Log;
}

std::string notExpected(InputKind kind, std::string_view expected) {
    if (kind == InputKind::Other) return {};
    const auto& [name, use] = kTexts[static_cast<size_t>(kind)];
    return fmt::format("it is {}: expected {}{}", name, expected, use ? fmt::format("; {}", use) : "");
}

Session readSession(const InputText& input, Problems& problems) {
    const InputKind kind = kindOf(input.text);
    // An empty session is a session.
    const bool isOther = kind != InputKind::Session && kind != InputKind::Empty && kind != InputKind::Other;
    if (!isOther) return parseSession(input.text, input.name, problems);
    problems.add(0, notExpected(kind, "a session"));
    return {input.name, {}};
}

}  // namespace qzcam
