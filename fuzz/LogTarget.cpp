// SPDX-License-Identifier: Apache-2.0
// Reads any text as a log, as events of the tag monitor, or as a dump with both. Each fact must have a line
// of the text and must be printable.
#include "Target.h"

#include "base/Text.h"
#include "log/LibraryLine.h"
#include "trace/ParameterTable.h"
#include "trace/Timeline.h"
#include "trace/TraceOutput.h"

#include <nlohmann/json.hpp>

#include <string>

namespace qz::fuzz {

namespace {

qzcam::Timeline timelineOf(const std::string& text) {
    qzcam::Evidence evidence;
    evidence.read(qzcam::textInput("fuzz", text));
    return qzcam::timelineOf(std::move(evidence));
}

std::string printed(const qzcam::Timeline& timeline,
                    std::unique_ptr<qzcam::TraceOutput> (*make)(qzcam::WriteLine)) {
    std::string text;
    const auto output = make([&text](const std::string& line) { text += line + '\n'; });
    qzcam::ParameterTable table;
    output->begin(timeline.inputs);
    for (const qzcam::TraceGroup& group : timeline.groups) {
        output->group(group.title);
        for (const qzcam::TraceItem& item : group.items) {
            output->item(item);
            table.add(item);
        }
    }
    for (const std::string& note : timeline.notes) output->note(note);
    output->table(table, false);
    return text;
}

void requireSound(const qzcam::Timeline& timeline, size_t lines) {
    for (const qzcam::TraceGroup& group : timeline.groups) {
        for (const qzcam::TraceItem& item : group.items) {
            require(item.line >= 1 && item.line <= lines, "each fact has a line of the text");
            if (!item.values) continue;
            require(item.values->bytes.size() ==
                        item.values->count * camera_metadata_type_size[item.values->type],
                    "values have all of their elements");
        }
    }
}

}  // namespace

void execute(Input& input) {
    const std::string text(input.rest());
    const qzcam::Timeline timeline = timelineOf(text);
    requireSound(timeline, qzcam::split(text, '\n').size());
    const auto asText = [](qzcam::WriteLine write) { return qzcam::traceText(std::move(write), {}); };
    const std::string shown = printed(timeline, asText);
    for (const std::string_view line : qzcam::split(shown, '\n')) {
        require(qzcam::visible(line) == line, "each line can be shown");
    }
    const std::string json = printed(timeline, qzcam::traceJson);
    for (const std::string_view line : qzcam::split(json, '\n')) {
        require(line.empty() || nlohmann::json::accept(line), "each line is JSON");
    }
    require(printed(timelineOf(text), qzcam::traceJson) == json, "the same text gives the same facts");
}

}  // namespace qz::fuzz
