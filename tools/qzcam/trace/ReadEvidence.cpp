// SPDX-License-Identifier: Apache-2.0
// Reads the parts of an input that contain facts of a session.
#include "input/LogPrefix.h"
#include "trace/ArrayItems.h"
#include "trace/LogItems.h"
#include "trace/Timeline.h"

#include "base/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <optional>

namespace qzcam {

namespace {

// Other sections of a bugreport do not belong to the camera. Text outside of sections may be events of the
// tag monitor.
bool isRead(const Part& part) {
    return part.kind == Part::Kind::Dump || part.kind == Part::Kind::Log || part.title.empty();
}

std::string placesOf(const std::vector<Part>& parts, Part::Kind kind) {
    std::string lines;
    for (const Part& part : parts) {
        if (part.kind == kind) lines += fmt::format("{}{}", lines.empty() ? "" : " and ", part.firstLine);
    }
    return lines;
}

// Returns nothing for a text with a single part.
std::optional<std::string> whatIsTaken(const std::string& name, const std::vector<Part>& parts) {
    const std::string dumps = placesOf(parts, Part::Kind::Dump);
    const std::string logs = placesOf(parts, Part::Kind::Log);
    if (!isReport(parts) && (dumps.empty() || logs.empty())) return std::nullopt;
    std::string text;
    if (!dumps.empty()) text = "the camera dump from line " + dumps;
    if (!logs.empty()) text += fmt::format("{}the log from line {}", text.empty() ? "" : ", ", logs);
    if (text.empty()) return std::nullopt;
    return name + ": " + text;
}

// Finds a dump inside a log. The returned text must outlive the parts.
std::string addLoggedDump(std::vector<Part>& parts) {
    const auto isDump = [](const Part& part) { return part.kind == Part::Kind::Dump; };
    if (std::any_of(parts.begin(), parts.end(), isDump)) return {};
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        auto dump = part->kind == Part::Kind::Log ? dumpInLog(part->text) : std::nullopt;
        if (!dump) continue;
        parts.insert(std::next(part), {Part::Kind::Dump, {}, part->firstLine, {}, {}, 0});
        return std::move(*dump);
    }
    return {};
}

}  // namespace

MonitorStream& Evidence::streamOf(const MonitorEvent& event, const MonitorPlace& place, size_t input) {
    const auto isSamePlace = [&](const MonitorStream& stream) {
        return stream.input == input && stream.place.line == place.line &&
               (event.camera.empty() ||
                (stream.place.camera == event.camera && stream.place.client == event.client));
    };
    const auto found = std::find_if(streams.begin(), streams.end(), isSamePlace);
    if (found != streams.end()) return *found;
    streams.push_back({place, input, {}});
    if (!event.camera.empty()) streams.back().place.camera = event.camera;
    if (!event.camera.empty()) streams.back().place.client = event.client;
    return streams.back();
}

void Evidence::readLines(const Part& part, size_t input, const Report* report) {
    EvidenceReader reader({[&](const LogLine& line) {
                               if (isEvidence(line)) log.push_back({input, line});
                           },
                           [&](const MonitorEvent& event, const MonitorPlace& place) {
                               auto& events = streamOf(event, place, input).events;
                               events.push_back(event);
                               events.back().input = input;
                           },
                           [&](const Tag& tag) {
                               if (report == nullptr) cameras->addTag(tag);
                           }});
    Lines lines(part.text, part.firstLine);
    std::string_view line;
    while (lines.next(line)) reader.feed(line, lines.number());
    reader.end();
    if (report == nullptr) return;
    for (const MetadataArray& array : report->arrays) {
        if (!isFromSession(array)) continue;
        MonitorPlace place = reader.placeOf(array.line);
        if (place.camera.empty()) place.camera = array.camera;
        const TagNames& names = cameras->namesFor(place.camera, input);
        arrays.push_back({place, input, itemsOf(array, place, input, names)});
    }
}

void Evidence::read(const InputText& input) {
    const size_t number = inputs.size();
    inputs.push_back(input.name);
    isDamaged = isDamaged || !input.cuts.empty();
    std::vector<Part> parts = partsOf(input.text);
    const std::string logged = addLoggedDump(parts);
    for (Part& part : parts) {
        if (part.kind == Part::Kind::Dump && !logged.empty()) part.text = logged;
    }
    if (auto text = whatIsTaken(input.name, parts)) taken.push_back(std::move(*text));
    for (const Part& part : parts) {
        if (!isRead(part)) continue;
        std::optional<Report> report;
        if (part.kind == Part::Kind::Dump) report = readDump(part.text, part.firstLine);
        if (report) cameras->add(number, *report);
        isDamaged = isDamaged || !part.fault.empty();
        if (report && !part.fault.empty()) {
            faults.push_back(fmt::format("{}:{}: the camera dump is cut: {}", input.name, part.faultLine,
                                         cut(part.fault, 100)));
        }
        readLines(part, number, report ? &*report : nullptr);
    }
}

}  // namespace qzcam
