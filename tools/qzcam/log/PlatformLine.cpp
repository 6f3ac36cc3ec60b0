// SPDX-License-Identifier: Apache-2.0
#include "log/PlatformLine.h"

#include "base/Text.h"
#include "device/ParameterText.h"
#include "log/FormatPattern.h"

namespace qzcam {

namespace {

using Kind = PlatformLine::Kind;
using Values = std::vector<PrintedValue>;

void readMistyped(PlatformLine& line, const Values& values) {
    line.tag = values[0].text;
    line.declared = values[2].text;
    line.given = values[3].text;
}

void readName(PlatformLine& line, const Values& values) { line.tag = values[0].text; }

void readPair(PlatformLine& line, const Values& values) {
    line.parameters.emplace_back(values[0].text, values[1].text);
}

void readNothing(PlatformLine& /*line*/, const Values& /*values*/) {}

struct Known {
    const char* logTag;
    Kind kind;
    FormatPattern pattern;
    void (*read)(PlatformLine&, const Values&);
};

const std::vector<Known>& known() {
    constexpr const char* mistyped =
        "Mismatched tag type when updating entry %s (%d) of type %s; got type %s data instead ";
    constexpr const char* unknown = "Update metadata entry: Unknown tag %d";
    const auto row = [](const char* logTag, Kind kind, const char* format,
                        void (*read)(PlatformLine&, const Values&)) {
        return Known{logTag, kind, FormatPattern(format), read};
    };
    static const std::vector<Known> rows{
        row("Camera2-Metadata", Kind::Mistyped, mistyped, readMistyped),
        row("CamComm1.0-MD", Kind::Mistyped, mistyped, readMistyped),
        row("Camera2-Metadata", Kind::UnknownTag, unknown, readNothing),
        row("CamComm1.0-MD", Kind::UnknownTag, unknown, readNothing),
        row("VendorTagDescriptor", Kind::NoTag, "lookupTag: Tag name '%s' does not exist.", readName),
        row("VendorTagDescriptor", Kind::NoSection, "lookupTag: Section '%s' does not exist.", readName),
        row("VendorTagDescriptor", Kind::NoType, "%s: tag type %d from vendor ops does not exist.",
            readNothing),
        row("Camera3-TagMonitor", Kind::NotMonitored, "parseTagsToMonitor: Unknown tag %s, ignoring",
            readName),
        row("CameraParams", Kind::ParameterCount, "dump: mMap.size = %d", readNothing),
        row("CameraParams", Kind::Parameter, "%s: %s", readPair),
        row("Camera", Kind::ParameterCount, "dump: size=%d", readNothing),
        row("Camera", Kind::Parameter, "dump: %s=%s", readPair),
    };
    return rows;
}

bool isKnownTag(const std::string& tag) {
    for (const Known& row : known()) {
        if (tag == row.logTag) return true;
    }
    return false;
}

// Returns the parameters of one message. After a head they are in a separate message.
std::optional<LoggedParameters> loggedBy(const LogLine& line) {
    const bool isClient = line.tag == "Camera2Client";
    if (!isClient && !line.tag.empty() && line.tag != "CameraClient") return std::nullopt;
    auto logged = parseLogged(line.message, line.line);
    if (logged || !isClient) return logged;
    LoggedParameters below;
    below.kind = LoggedParameters::Kind::Defaults;
    below.cut = line.message.size() >= kNativeLimit;
    below.text = parseFlattened(line.message, line.line, below.cut);
    return below.text.parameters.size() > 1 ? std::optional(below) : std::nullopt;
}

PlatformLine describe(const LoggedParameters& logged) {
    constexpr Kind kinds[] = {Kind::SetParameters, Kind::GetParameters, Kind::DefaultParameters};
    PlatformLine line;
    line.kind = kinds[static_cast<size_t>(logged.kind)];
    line.cut = logged.cut;
    if (logged.kind == LoggedParameters::Kind::Defaults) line.camera = logged.of;
    for (const Parameter& each : logged.text.parameters) line.parameters.emplace_back(each.key, each.value);
    return line;
}

PlatformLine describe(const Known& row, const Values& values, const LogLine& line) {
    PlatformLine found;
    found.kind = row.kind;
    found.cut = line.message.size() >= kNativeLimit;
    row.read(found, values);
    return found;
}

}  // namespace

std::optional<PlatformLine> recognisePlatformLine(const LogLine& line) {
    if (const auto logged = loggedBy(line)) return describe(*logged);
    if (!line.tag.empty() && !isKnownTag(line.tag)) return std::nullopt;
    const std::string_view message = std::string_view(line.message).substr(0, kPayloadLimit);
    for (const Known& row : known()) {
        // Without a log tag the "key: value" of a list could be anything.
        if (line.tag.empty() ? row.kind == Kind::Parameter : line.tag != row.logTag) continue;
        if (const auto match = row.pattern.match(message)) return describe(row, match->values, line);
    }
    return std::nullopt;
}

}  // namespace qzcam
