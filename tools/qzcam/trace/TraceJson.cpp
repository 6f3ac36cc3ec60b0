// SPDX-License-Identifier: Apache-2.0
#include "host/EventWords.h"
#include "output/JsonPrinter.h"
#include "trace/TraceOutput.h"

#include <system/camera_metadata.h>
#include <iterator>
#include <nlohmann/json.hpp>
#include <utility>

namespace qzcam {

namespace {

using Json = nlohmann::ordered_json;
using Kind = TraceItem::Kind;

constexpr int kVersion = 1;

// A date without a year has no number.
Json jsonOf(const LogTime& time) {
    const bool isWall = time.kind == LogTime::Kind::Wall;
    Json json{{"clock", isWall ? "wall" : "monotonic"}, {"text", time.text}};
    if (!isWall) json["nanoseconds"] = time.nanoseconds;
    return json;
}

template <typename T>
void addIf(Json& json, const char* name, bool isKnown, const T& value) {
    if (isKnown) json[name] = value;
}

void addPlace(Json& json, const TraceItem& item) {
    json["input"] = item.input;
    json["line"] = item.line;
    if (item.time.kind != LogTime::Kind::None) json["time"] = jsonOf(item.time);
    if (item.frame) json["frame"] = *item.frame;
    addIf(json, "camera", !item.camera.empty(), item.camera);
    addIf(json, "physicalCamera", !item.physicalCamera.empty(), item.physicalCamera);
    addIf(json, "client", !item.client.empty(), item.client);
    addIf(json, "pid", item.pid >= 0, item.pid);
    addIf(json, "tid", item.tid >= 0, item.tid);
}

void addEntry(Json& json, const TraceItem& item) {
    addIf(json, "tag", !item.tag.empty(), item.tag);
    addIf(json, "removed", item.isRemoved, true);
    const bool hasValue = item.kind == Kind::Entry || item.kind == Kind::Logged || item.kind == Kind::Refused;
    if (hasValue && !item.isRemoved) json["value"] = item.value.empty() ? Json() : Json(item.value);
    if (item.values) {
        json["type"] = camera_metadata_type_names[item.values->type];
        json["values"] = qzcam::jsonOf(*item.values);
    }
    addIf(json, "keys", !item.keys.empty(), item.keys);
    addIf(json, "tags", !item.tags.empty(), item.tags);
    if (item.status) json["status"] = *item.status;
    addIf(json, "declared", !item.declared.empty(), item.declared);
}

Json jsonOf(const VerdictRow& row) {
    Json json{{"key", row.key},
              {"value", row.value},
              {"verdict", verdictWord(row.verdict)},
              {"reason", row.reason}};
    if (row.overflow) {
        json["overflow"] = {{"number", row.overflow->number},
                            {"written", row.overflow->written},
                            {"type", row.overflow->type}};
    }
    if (row.offer) json["offered"] = qzcam::jsonOf(*row.offer);
    return json;
}

Json jsonOf(const TraceItem& item) {
    Json json{{"event", nameOf(item.kind)}, {"of", nameOf(item.side)}};
    addPlace(json, item);
    addEntry(json, item);
    if (!item.message.empty()) json["message"] = item.message;
    if (item.kind == TraceItem::Kind::Message) json["derived"] = item.isDerived;
    if (!item.fields.empty()) {
        Json fields = Json::array();
        for (const Message::Field& field : item.fields)
            fields.push_back({{"name", field.name}, {"value", field.value}});
        json["fields"] = fields;
    }
    addIf(json, "text", !item.text.empty(), item.text);
    addIf(json, "cause", !item.cause.empty(), item.cause);
    for (const VerdictRow& row : item.verdicts) json["verdicts"].push_back(jsonOf(row));
    json["times"] = item.times;
    return json;
}

Json jsonOf(const ParameterTable::Count& count) {
    return {{"times", count.times}, {"lines", count.lines}, {"inputs", count.inputs}};
}

class TraceJson : public TraceOutput {
  public:
    explicit TraceJson(WriteLine write) : mWrite(std::move(write)) {}

    void begin(const std::vector<std::string>& inputs) override {
        print({{"format", "qzcam-trace"}, {"version", kVersion}});
        for (size_t i = 0; i < inputs.size(); ++i)
            print({{"event", "input"}, {"input", i}, {"name", inputs[i]}});
    }
    void group(const std::string& title) override { print({{"event", "group"}, {"title", title}}); }
    void item(const TraceItem& item) override { print(jsonOf(item)); }
    void note(const std::string& text) override { print({{"event", "note"}, {"text", text}}); }

    void table(const ParameterTable& table, bool isPart) override {
        for (const auto& [key, row] : table.rows()) {
            Json json{{"event", "parameter"}, {"key", key}};
            for (const auto& column : ParameterTable::kColumns) json[column.name] = jsonOf(row.*column.count);
            json["statuses"] = row.statuses;
            json["declared"] = row.declared;
            print(json);
        }
        if (!isPart) print({{"event", "never-seen"}, {"keys", table.neverSeen()}});
    }

  private:
    void print(const Json& json) { mWrite(json.dump(-1, ' ', true, Json::error_handler_t::replace)); }

    WriteLine mWrite;
};

}  // namespace

const char* nameOf(TraceItem::Kind kind) {
    constexpr const char* names[] = {"entry",   "logged", "refused", "undeclared", "gated", "message",
                                     "request", "result", "list",    "parameters", "line",  "lost"};
    return names[static_cast<size_t>(kind)];
}

const char* nameOf(TraceItem::Side side) {
    constexpr const char* names[] = {"unknown", "static", "request", "result"};
    return names[static_cast<size_t>(side)];
}

std::unique_ptr<TraceOutput> traceJson(WriteLine write) {
    return std::make_unique<TraceJson>(std::move(write));
}

}  // namespace qzcam
