// SPDX-License-Identifier: Apache-2.0
#include "output/JsonPrinter.h"
#include "show/ShowReport.h"

#include <nlohmann/json.hpp>

#include <map>

namespace qzcam {

namespace {

using Json = nlohmann::ordered_json;

Json orNull(const std::optional<size_t>& number) { return number ? Json(*number) : Json(nullptr); }

Json head(const Contents& contents) {
    return {{"format", "qzcam-show"}, {"version", 1}, {"input", contents.input.name}};
}

Json cameraJson(const ReportedCamera& camera) {
    Json json{{"id", camera.id},
              {"name", camera.name},
              {"provider", camera.provider},
              {"version", camera.version},
              {"facing", camera.facing},
              {"orientation", nullptr},
              {"level", camera.level},
              {"physical", camera.physicalIds},
              {"static", camera.hasStatic},
              {"open", camera.isOpen},
              {"client", camera.client},
              {"line", camera.line}};
    if (camera.orientation) json["orientation"] = *camera.orientation;
    return json;
}

Json blockJson(const VendorBlock& block, bool verbose) {
    Json json{{"vendorId", nullptr},
              {"line", block.line},
              {"announced", orNull(block.announced)},
              {"tags", block.tags.size()}};
    if (block.vendorId) json["vendorId"] = *block.vendorId;
    if (!verbose) return json;
    json["declared"] = Json::array();
    for (const VendorTag& tag : block.tags) {
        json["declared"].push_back({{"tag", std::string(tag.section) + "." + std::string(tag.name)},
                                    {"id", tag.id},
                                    {"type", typeName(tag.type)},
                                    {"line", tag.line}});
    }
    return json;
}

Json arrayJson(const MetadataArray& array) {
    return {{"camera", array.camera},
            {"name", nameOf(array)},
            {"physicalCamera", array.physicalCamera},
            {"line", array.line},
            {"announced", orNull(array.announced)},
            {"entries", array.entries.size()},
            {"previousSession", array.previousSession}};
}

Json linesJson(const std::vector<ReportedLine>& lines) {
    Json list = Json::array();
    for (const ReportedLine& each : lines) list.push_back({{"line", each.line}, {"text", each.text}});
    return list;
}

Json faultJson(const Fault& fault) {
    return {{"kind", nameOf(fault.kind)},
            {"line", fault.line},
            {"otherLine", fault.otherLine},
            {"text", fault.text},
            {"consequence", fault.consequence}};
}

void addReport(Json& json, const Report& report, const ShowView& view) {
    for (const ReportedCamera& camera : report.cameras)
        if (view.shows(camera.id)) json["cameras"].push_back(cameraJson(camera));
    for (const ApiDevice& device : report.apiMap) {
        if (!view.shows(device.id)) continue;
        json["open"].push_back({{"number", device.number}, {"camera", device.id}, {"line", device.line}});
    }
    for (const Provider& each : report.providers) {
        json["providers"].push_back({{"name", each.name},
                                     {"version", each.version},
                                     {"announced", orNull(each.announced)},
                                     {"line", each.line}});
    }
    for (const VendorBlock& block : report.vendorBlocks)
        json["vendorBlocks"].push_back(blockJson(block, view.verbose));
    for (const MetadataArray& array : report.arrays)
        if (view.shows(array.camera)) json["arrays"].push_back(arrayJson(array));
    for (const Fault& fault : report.faults) json["faults"].push_back(faultJson(fault));
    for (const Cut& each : report.differences)
        json["differences"].push_back({{"line", each.line}, {"text", each.text}});
    for (const Json& line : linesJson(report.errors)) json["messages"].push_back(line);
    for (const Json& line : linesJson(report.clients)) json["clients"].push_back(line);
    for (const Json& line : linesJson(report.events)) json["events"].push_back(line);
}

Json parametersJson(const ParameterList& list, bool verbose) {
    Json json{{"where", list.where},
              {"line", list.line},
              {"announced", orNull(list.announced)},
              {"count", list.parameters.size()},
              {"cut", list.cut}};
    if (!verbose) return json;
    json["parameters"] = Json::array();
    for (const ListedParameter& each : list.parameters) {
        json["parameters"].push_back(
            {{"line", each.line}, {"key", each.key}, {"value", each.value}, {"cut", each.cut}});
    }
    return json;
}

Json logJson(const LogSummary& log) {
    Json json{{"sections", log.sections}, {"lines", log.lines},   {"from", log.from},     {"to", log.to},
              {"folded", log.folded},     {"pruned", log.pruned}, {"tags", Json::array()}};
    for (const LogTag& tag : log.tags) {
        Json levels = Json::object();
        for (const auto& [level, count] : tag.levels) levels[std::string(1, level)] = count;
        json["tags"].push_back({{"tag", tag.tag}, {"lines", tag.lines}, {"levels", levels}});
    }
    return json;
}

Json unusedJson(const std::vector<UnusedPart>& unused) {
    std::map<UnusedPart::Kind, Json> kinds;
    for (const UnusedPart& each : unused) {
        Json& json = kinds[each.kind];
        if (json.is_null()) json = {{"kind", ""}, {"count", 0}, {"names", Json::array()}};
        json["count"] = json["count"].get<size_t>() + each.count;
        json["names"].push_back({{"line", each.line},
                                 {"lastLine", std::max(each.line, each.lastLine)},
                                 {"count", each.count},
                                 {"name", each.name}});
    }
    Json list = Json::array();
    for (auto& [kind, json] : kinds) {
        json["kind"] = nameOf(kind);
        list.push_back(std::move(json));
    }
    return list;
}

}  // namespace

std::string contentsJson(const Contents& contents, const ShowView& view) {
    Json json = head(contents);
    json["kind"] = kindOf(contents);
    json["lines"] = contents.lines;
    json["read"] = contents.input.steps;
    json["header"] = Json::object();
    for (const auto& [name, value] : contents.header) json["header"][name] = value;
    for (const char* list : {"cameras", "open", "providers", "vendorBlocks", "arrays", "monitors",
                             "parameters", "messages", "clients", "events", "faults", "cuts", "differences"})
        json[list] = Json::array();
    for (const Report& report : contents.reports) addReport(json, report, view);
    for (const ParameterList& list : contents.parameters)
        if (view.shows(list.camera)) json["parameters"].push_back(parametersJson(list, view.verbose));
    for (const FoundMonitor& each : contents.monitors) {
        if (!view.shows(each.camera)) continue;
        json["monitors"].push_back({{"camera", each.camera},
                                    {"line", each.line},
                                    {"requests", each.requests},
                                    {"results", each.results},
                                    {"previousSession", each.previousSession}});
    }
    json["properties"] = {{"count", contents.properties.size()}, {"values", Json::object()}};
    for (const auto& [name, value] : contents.properties) json["properties"]["values"][name] = value;
    json["log"] = logJson(contents.log);
    for (const Cut& cut : contents.cuts) json["cuts"].push_back({{"line", cut.line}, {"text", cut.text}});
    json["left"] = unusedJson(contents.unused);
    return jsonText(json);
}

std::string arraysJson(const Contents& contents, const std::vector<const MetadataArray*>& arrays) {
    Json json = head(contents);
    json["arrays"] = Json::array();
    for (const MetadataArray* array : arrays) {
        Json row = arrayJson(*array);
        Json entries = Json::array();
        for (const ArrayEntry& entry : array->entries) {
            const EntryValues values = readValues(entry);
            Json each{{"tag", entry.name},    {"id", entry.id},     {"type", entry.type},
                      {"count", entry.count}, {"line", entry.line}, {"values", jsonOf(values.values)},
                      {"cut", values.cut}};
            for (const UnknownWord& word : values.words)
                each["unknownWords"].push_back({{"index", word.index}, {"word", word.word}});
            if (!values.wrong.empty()) each["wrong"] = {{"line", values.wrongLine}, {"what", values.wrong}};
            entries.push_back(std::move(each));
        }
        row["entries"] = std::move(entries);
        json["arrays"].push_back(std::move(row));
    }
    return jsonText(json);
}

std::string foundJson(const Contents& contents, const std::vector<FoundLine>& lines,
                      const std::string& text) {
    Json json = head(contents);
    json["find"] = text;
    json["count"] = lines.size();
    json["found"] = Json::array();
    for (const FoundLine& each : lines)
        json["found"].push_back({{"line", each.line}, {"where", each.where}, {"text", each.text}});
    return jsonText(json);
}

}  // namespace qzcam
