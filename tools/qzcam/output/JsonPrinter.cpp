// SPDX-License-Identifier: Apache-2.0
#include "output/JsonPrinter.h"

#include "device/FindingsJson.h"
#include "facts/Vocabulary.h"
#include "host/EventWords.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

namespace qzcam {

namespace {

using Json = nlohmann::ordered_json;

template <typename T>
Json jsonOfElement(const T& element) {
    if constexpr (std::is_same_v<T, camera_metadata_rational_t>) {
        return Json::array({element.numerator, element.denominator});
    } else if constexpr (std::is_same_v<T, float>) {
        return std::stod(fmt::to_string(element));  // 0.98, not 0.98000001907
    } else {
        return element;
    }
}

Json jsonOf(const EntryRow& row);
Json jsonOf(const ParamRow& row);
Json jsonOf(const VerdictEntry& entry);
Json jsonOf(const VerdictRow& row);
Json jsonOf(const Message::Field& field);

template <typename Row>
Json listOf(const std::vector<Row>& rows) {
    Json list = Json::array();
    for (const Row& row : rows) list.push_back(jsonOf(row));
    return list;
}

Json jsonOf(const EntryRow& row) {
    Json json{{"tag", row.name},
              {"id", row.tag},
              {"type", typeName(row.values.type)},
              {"values", jsonOf(row.values)},
              {"change", changeWord(row.change)}};
    if (row.change == Change::Changed) json["before"] = jsonOf(row.before);
    if (!row.from.empty()) json["from"] = row.from;
    if (!row.lines.empty()) json["lines"] = row.lines;
    return json;
}

Json jsonOf(const ParamRow& row) {
    Json json{{"key", row.key}, {"value", row.value}, {"change", changeWord(row.change)}};
    if (!row.capability.empty()) json["capability"] = row.capability;
    return json;
}

Json jsonOf(const VerdictEntry& entry) {
    Json json{{"tag", entry.name},
              {"type", typeName(entry.values.type)},
              {"values", jsonOf(entry.values)},
              {"verdict", verdictWord(entry.verdict)}};
    if (!entry.reason.empty()) json["reason"] = entry.reason;
    return json;
}

Json jsonOf(const VerdictRow& row) {
    Json json{{"key", row.key}, {"value", row.value}, {"verdict", verdictWord(row.verdict)}};
    if (row.line != 0) json["line"] = row.line;
    if (!row.reason.empty()) json["reason"] = row.reason;
    if (row.overflow) {
        json["overflow"] = {{"number", row.overflow->number},
                            {"written", row.overflow->written},
                            {"type", row.overflow->type}};
    }
    if (row.offer) json["offered"] = jsonOf(*row.offer);
    if (row.owner != KeyOwner::None) json["owner"] = ownerWord(row.owner);
    if (!row.perhaps.empty()) json["perhaps"] = row.perhaps;
    json["entries"] = listOf(row.entries);
    return json;
}

// Prints fields in their order. The fields of an element of a list have no names.
Json jsonOf(const Message::Field& field) {
    Json json{{"value", field.value}};
    if (!field.name.empty()) json["name"] = field.name;
    return json;
}

Json jsonOf(const SessionEvent& event) { return {{"event", "session"}, {"file", event.file}}; }

Json jsonOf(const CommandEvent& event) {
    return {{"event", "command"}, {"line", event.line}, {"text", event.text}};
}

Json jsonOf(const RequestEvent& event) { return {{"event", "request"}, {"entries", listOf(event.entries)}}; }

Json jsonOf(const VerdictsEvent& event) {
    return {{"event", "verdicts"}, {"parameters", listOf(event.rows)}};
}

Json jsonOf(const ResultEvent& event) {
    return {{"event", "result"}, {"frame", event.frame}, {"entries", listOf(event.entries)}};
}

Json jsonOf(const ParamsEvent& event) { return {{"event", "params"}, {"parameters", listOf(event.rows)}}; }

Json jsonOf(const PublishEvent& event) {
    return {{"event", "publish"},
            {"parameters", listOf(event.rows)},
            {"undeclared", event.undeclared},
            {"absent", event.absent},
            {"silent", event.silent}};
}

Json jsonOf(const CallbackEvent& event) {
    const Message& message = event.message;
    Json json{
        {"event", "callback"},  {"kind", message.isData ? "data" : "notify"}, {"code", message.code},
        {"name", message.name}, {"fields", listOf(message.fields)},           {"numbers", message.numbers}};
    if (message.isData) json["bytes"] = message.bytes;
    json["from"] = resultEntriesOf(message);
    return json;
}

Json jsonOf(const LogEvent& event) {
    Json json{{"event", "log"},
              {"level", std::string(1, logLetter(event.priority))},
              {"tag", event.tag},
              {"text", event.text}};
    const int level = LogFilter::levelOf(event);
    if (level != event.priority) json["countsAs"] = std::string(1, logLetter(level));
    return json;
}

Json jsonOf(const StatusEvent& event) {
    return {{"event", "status"}, {"of", event.of}, {"status", event.status}, {"answer", event.isAnswer}};
}

Json jsonOf(const AnswerEvent& event) {
    return {{"event", "answer"}, {"question", event.question}, {"answer", event.answer}};
}

Json jsonOf(const ErrorEvent& event) { return {{"event", "error"}, {"text", event.text}}; }

Json jsonOf(const NoteEvent& event) { return {{"event", "note"}, {"text", event.text}}; }

Json jsonOf(const ExpectationEvent& event) {
    return {{"event", "expectation"}, {"file", event.file}, {"line", event.line},
            {"text", event.text},     {"met", event.met},   {"expected", event.expected},
            {"actual", event.actual}};
}

Json jsonOf(const SummaryEvent& event) {
    return {{"event", "summary"}, {"met", event.met}, {"failed", event.failed}};
}

// The static entries that areas and crops refer to.
struct SensorEntry {
    const char* member;
    const char* tag;
};

constexpr SensorEntry kSensorEntries[] = {
    {"activeArray", "android.sensor.info.activeArraySize"},
    {"pixelArray", "android.sensor.info.pixelArraySize"},
    {"maxDigitalZoom", "android.scaler.availableMaxDigitalZoom"},
    {"subActiveArray", "com.ambrix.device.capabilities.qzSubActiveArraySize"},
};

}  // namespace

nlohmann::ordered_json sensorJson(const Device& device) {
    const TagNames names(device.vendorTags);
    Json json = Json::object();
    for (const auto& [member, tag] : kSensorEntries) {
        const Tag* found = names.find(tag);
        if (found == nullptr) continue;
        for (const StaticEntry& entry : device.entries) {
            if (entry.tag == found->id) json[member] = jsonOf(entry.values);
        }
    }
    return json;
}

nlohmann::ordered_json jsonOf(const Offer& offer) {
    Json json{{"by", offer.source}};
    if (offer.kind == Offer::Kind::Range) {
        json["from"] = offer.values[0];
        json["to"] = offer.values[1];
    } else {
        json["values"] = offer.values;
    }
    if (!offer.whole) json["cut"] = true;
    return json;
}

nlohmann::ordered_json jsonOf(const Values& values) {
    Json list = Json::array();
    for (size_t i = 0; i < values.count && values.type < NUM_TYPES; ++i) {
        list.push_back(withElementType(
            values.type, [&](auto zero) { return jsonOfElement(elementAt<decltype(zero)>(values, i)); }));
    }
    return list;
}

// Texts come from dumps and drivers. Bytes that are not UTF-8 are replaced, and everything except ASCII is
// escaped, since some terminals accept control characters beyond it.
std::string jsonText(const Json& json, int indent) {
    return json.dump(indent, ' ', true, Json::error_handler_t::replace) + (indent < 0 ? "" : "\n");
}

void JsonPrinter::write(const Json& object) { line(jsonText(object, -1)); }

void JsonPrinter::device(const Device& device) {
    if (!mStarted) write({{"format", "qzcam-events"}, {"version", kVersion}});
    mStarted = true;
    Json json{{"event", "device"},
              {"file", device.file},
              {"camera", device.camera},
              {"vendorTags", device.vendorTags.size()},
              {"staticEntries", device.entries.size()},
              {"cutLists", device.cutLists}};
    Json sensor = sensorJson(device);
    if (!sensor.empty()) json["sensor"] = std::move(sensor);
    addFindings(json, device);
    write(json);
}

void JsonPrinter::print(const Event& event) {
    const auto* line = std::get_if<LogEvent>(&event);
    if (line != nullptr && !mFilter.shows(*line)) return;
    std::visit([this](const auto& each) { write(jsonOf(each)); }, event);
}

}  // namespace qzcam
