// SPDX-License-Identifier: Apache-2.0
#include "log/PlatformLine.h"

#include "base/Text.h"
#include "device/ParameterText.h"
#include "log/FormatPattern.h"

namespace qzcam {

namespace {

using LineKind = PlatformLine::Kind;
using PrintedValues = std::vector<PrintedValue>;

void readMistyped(PlatformLine& line, const PrintedValues& values) {
    line.tag = values[0].text;
    line.declared = values[2].text;
    line.given = values[3].text;
}

void readName(PlatformLine& line, const PrintedValues& values) { line.tag = values[0].text; }

void readPair(PlatformLine& line, const PrintedValues& values) {
    line.parameters.emplace_back(values[0].text, values[1].text);
}

void readNothing(PlatformLine& /*line*/, const PrintedValues& /*values*/) {}

struct KnownLine {
    const char* logTag;
    LineKind kind;
    FormatPattern pattern;
    void (*read)(PlatformLine&, const PrintedValues&);
};

const std::vector<KnownLine>& known() {
    constexpr const char* mistyped =
        "Mismatched tag type when updating entry %s (%d) of type %s; got type %s data instead ";
    constexpr const char* unknown = "Update metadata entry: Unknown tag %d";
    const auto row = [](const char* logTag, LineKind kind, const char* format,
                        void (*read)(PlatformLine&, const PrintedValues&)) {
        return KnownLine{logTag, kind, FormatPattern(format), read};
    };
    static const std::vector<KnownLine> rows{
        row("Camera2-Metadata", LineKind::Mistyped, mistyped, readMistyped),
        row("CamComm1.0-MD", LineKind::Mistyped, mistyped, readMistyped),
        row("Camera2-Metadata", LineKind::UnknownTag, unknown, readNothing),
        row("CamComm1.0-MD", LineKind::UnknownTag, unknown, readNothing),
        row("VendorTagDescriptor", LineKind::NoTag, "lookupTag: Tag name '%s' does not exist.", readName),
        row("VendorTagDescriptor", LineKind::NoSection, "lookupTag: Section '%s' does not exist.", readName),
        row("VendorTagDescriptor", LineKind::NoType, "%s: tag type %d from vendor ops does not exist.",
            readNothing),
        row("Camera3-TagMonitor", LineKind::NotMonitored, "parseTagsToMonitor: Unknown tag %s, ignoring",
            readName),
        row("CameraParams", LineKind::ParameterCount, "dump: mMap.size = %d", readNothing),
        row("CameraParams", LineKind::Parameter, "%s: %s", readPair),
        row("Camera", LineKind::ParameterCount, "dump: size=%d", readNothing),
        row("Camera", LineKind::Parameter, "dump: %s=%s", readPair),
    };
    return rows;
}

bool isKnownTag(const std::string& tag) {
    for (const KnownLine& row : known()) {
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
    constexpr LineKind kinds[] = {LineKind::SetParameters, LineKind::GetParameters,
                                  LineKind::DefaultParameters};
    PlatformLine line;
    line.kind = kinds[static_cast<size_t>(logged.kind)];
    line.cut = logged.cut;
    (logged.kind == LoggedParameters::Kind::Defaults ? line.camera : line.process) = logged.of;
    for (const Parameter& each : logged.text.parameters) line.parameters.emplace_back(each.key, each.value);
    return line;
}

PlatformLine describe(const KnownLine& row, const PrintedValues& values, const LogLine& line) {
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
    for (const KnownLine& row : known()) {
        // Without a log tag the "key: value" of a list could be anything.
        if (line.tag.empty() ? row.kind == LineKind::Parameter : line.tag != row.logTag) continue;
        if (const auto match = row.pattern.match(message)) return describe(row, match->values, line);
    }
    return std::nullopt;
}

}  // namespace qzcam
