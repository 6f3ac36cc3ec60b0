// SPDX-License-Identifier: Apache-2.0
// Makes facts from the platform's lines, and finds tags that the device does not declare.
#include "base/Text.h"
#include "facts/Lookup.h"
#include "facts/Tags.h"
#include "trace/LogItems.h"

#include <fmt/format.h>

#include <algorithm>

namespace qzcam {

namespace {

using Kind = TraceItem::Kind;
using Side = TraceItem::Side;

// Returns the full names of the library's tags that end in this name.
std::vector<std::string> fullNamesOf(const std::string& name) {
    std::vector<std::string> names;
    for (const TagFact& fact : tagFacts()) {
        const std::string_view tag = fact.entry.tag;
        if ((tag == name || endsWith(tag, "." + name)) &&
            std::find(names.begin(), names.end(), tag) == names.end()) {
            names.emplace_back(tag);
        }
    }
    return names;
}

}  // namespace

void LogItems::feedUndeclared(const LogLine& log, const std::string& name) {
    const auto names = fullNamesOf(name);
    for (const TagFact& fact : tagFacts()) {
        const std::string tag = fact.entry.tag;
        if (std::find(names.begin(), names.end(), tag) == names.end()) continue;
        TraceItem item = itemOf(log, Kind::Undeclared, sideOf(fact.use));
        item.tag = tag;
        if (item.side == Side::Request) item.keys = fact.names;
        item.cause = "the device declares no such tag";
        if (names.size() > 1) item.cause += "; its section is unknown";
        give(std::move(item));
    }
}

void LogItems::feedMistyped(const LogLine& log, const PlatformLine& line) {
    mMistyped[{log.pid, log.tid}] = line;
    TraceItem item = itemOf(log, Kind::Line, Side::Request);
    const auto names = fullNamesOf(line.tag);
    item.tag = names.size() == 1 ? names.front() : line.tag;
    item.keys = keysWriting(item.tag);
    item.declared = line.declared;
    item.text = fmt::format("{}: update of {} refused", shortName(item.tag), line.given);
    item.cause = fmt::format("the device declares {}", line.declared);
    give(std::move(item));
}

void LogItems::feedParameters(const LogLine& log, const PlatformLine& line) {
    TraceItem item = itemOf(log, Kind::Parameters);
    item.camera = line.camera;
    for (const auto& [key, value] : line.parameters) {
        item.keys.push_back(key);
        item.fields.push_back({key, value});
    }
    if (line.cut) item.cause = "cut: the parameters after it are unknown";
    if (line.kind == PlatformLine::Kind::DefaultParameters) item.cause = "defaults of the platform";
    if (!item.keys.empty()) give(std::move(item));
}

void LogItems::feedPlatform(const LogLine& log, const PlatformLine& line) {
    using P = PlatformLine::Kind;
    if (line.kind == P::Mistyped) return feedMistyped(log, line);
    if (line.kind == P::NoTag && !fullNamesOf(line.tag).empty()) return feedUndeclared(log, line.tag);
    if (line.kind >= P::SetParameters) return feedParameters(log, line);
    TraceItem item = itemOf(log);
    item.tag = line.tag;
    item.text = log.message;
    if (line.kind == P::NoSection) item.cause = "the device has no tags of this section";
    if (line.kind == P::NotMonitored) item.cause = "the tag monitor leaves it out";
    give(std::move(item));
}

}  // namespace qzcam
