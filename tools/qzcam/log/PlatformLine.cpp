// SPDX-License-Identifier: Apache-2.0
#include "log/PlatformLine.h"

#include "base/Text.h"
#include "log/FormatPattern.h"

#include <iterator>

namespace qzcam {

namespace {

using Kind = PlatformLine::Kind;
using Values = std::vector<PrintedValue>;

uint32_t tagNumber(const std::string& text) {
    const auto number = parseInteger(text);  // vendor tags are printed as negative numbers
    return number ? static_cast<uint32_t>(*number) : 0;
}

void readMistyped(PlatformLine& line, const Values& values) {
    line.tag = values[0].text;
    line.id = tagNumber(values[1].text);
    line.declared = values[2].text;
    line.given = values[3].text;
}

void readNumber(PlatformLine& line, const Values& values) { line.id = tagNumber(values[0].text); }
void readName(PlatformLine& line, const Values& values) { line.tag = values[0].text; }
void readType(PlatformLine& line, const Values& values) { line.declared = values[1].text; }
void readFlattened(PlatformLine& line, const Values& values) { line.text = values[1].text; }

void readDefaults(PlatformLine& line, const Values& values) {
    line.camera = values[1].text;
    line.text = trimmed(values[2].text);
}

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
        row("Camera2-Metadata", Kind::UnknownTag, unknown, readNumber),
        row("CamComm1.0-MD", Kind::UnknownTag, unknown, readNumber),
        row("VendorTagDescriptor", Kind::NoTag, "lookupTag: Tag name '%s' does not exist.", readName),
        row("VendorTagDescriptor", Kind::NoSection, "lookupTag: Section '%s' does not exist.", readName),
        row("VendorTagDescriptor", Kind::NoType, "%s: tag type %d from vendor ops does not exist.", readType),
        row("Camera3-TagMonitor", Kind::NotMonitored, "parseTagsToMonitor: Unknown tag %s, ignoring",
            readName),
        row("CameraClient", Kind::SetParameters, "setParameters (pid %d) (%s", readFlattened),
        row("CameraClient", Kind::GetParameters, "getParameters (pid %d) (%s", readFlattened),
        row("Camera2Client", Kind::DefaultParameters, "%s: Default parameters converted from camera %d:%s",
            readDefaults),
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

// "key=value;key=value". The last value of a cut text may be cut, so that it is left out.
void splitParameters(PlatformLine& line) {
    if (endsWith(line.text, ")") && line.kind != Kind::DefaultParameters)
        line.text.pop_back();
    else if (line.kind != Kind::DefaultParameters)
        line.cut = true;
    auto pairs = split(line.text, ';');
    if (line.cut && !pairs.empty()) pairs.pop_back();
    for (const std::string_view pair : pairs) {
        const size_t equals = pair.find('=');
        if (equals == std::string_view::npos || equals == 0) continue;
        line.parameters.emplace_back(pair.substr(0, equals), pair.substr(equals + 1));
    }
}

PlatformLine describe(const Known& row, const Values& values, const LogLine& line) {
    PlatformLine found;
    found.kind = row.kind;
    found.cut = line.message.size() >= kNativeLimit;
    row.read(found, values);
    if (!found.text.empty()) splitParameters(found);
    return found;
}

}  // namespace

std::optional<PlatformLine> recognisePlatformLine(const LogLine& line) {
    if (!line.tag.empty() && !isKnownTag(line.tag)) return std::nullopt;
    const std::string_view message = std::string_view(line.message).substr(0, kPayloadLimit);
    for (const Known& row : known()) {
        // Without a log tag a list's "key: value" could be anything.
        if (line.tag.empty() ? row.kind == Kind::Parameter : line.tag != row.logTag) continue;
        if (const auto match = row.pattern.match(message)) return describe(row, match->values, line);
    }
    return std::nullopt;
}

}  // namespace qzcam
