// The reference for programs.
#include "facts/Reference.h"

#include <nlohmann/json.hpp>

namespace qzcam {

namespace {

using Json = nlohmann::ordered_json;

Json json(const Mapping& row);
Json json(const EntryForm& form);
Json json(const ParameterDoc& doc);
Json json(const PublishedDoc& doc);
Json json(const MessageDoc& doc);
Json json(const CommandDoc& doc);
Json json(const PropertyDoc& doc);

template <typename Row>
Json list(const std::vector<Row>& rows) {
    Json array = Json::array();
    for (const Row& row : rows) array.push_back(json(row));
    return array;
}

Json json(const Mapping& row) { return {{"from", row.from}, {"to", row.to}}; }

Json json(const EntryForm& form) { return {{"tag", form.tag}, {"type", form.type}, {"count", form.count}}; }

Json json(const ParameterDoc& doc) {
    return {{"key", doc.key},
            {"readAs", doc.readAs},
            {"entries", list(doc.entries)},
            {"words", list(doc.words)},
            {"examples", list(doc.examples)},
            {"otherwise", doc.otherwise},
            {"conditions", doc.conditions}};
}

Json json(const PublishedDoc& doc) {
    return {{"key", doc.key},
            {"capability", json(doc.capability)},
            {"words", list(doc.words)},
            {"examples", list(doc.examples)},
            {"conditions", doc.conditions}};
}

Json json(const MessageDoc& doc) {
    return {{"name", doc.name},     {"code", doc.code},       {"carriedBy", doc.carriedBy},
            {"fields", doc.fields}, {"from", list(doc.from)}, {"conditions", doc.conditions}};
}

Json json(const CommandDoc& doc) { return {{"number", doc.number}, {"answer", doc.what}}; }

Json json(const PropertyDoc& doc) {
    return {{"name", doc.name}, {"whenUnset", doc.otherwise}, {"effect", doc.what}};
}

}  // namespace

std::string referenceJson(const Reference& reference) {
    const Json whole{{"format", "qzcam-reference"},
                     {"version", 1},
                     {"parameters", list(reference.parameters)},
                     {"published", list(reference.published)},
                     {"messages", list(reference.messages)},
                     {"commands", list(reference.commands)},
                     {"properties", list(reference.properties)}};
    return whole.dump(2, ' ', true, Json::error_handler_t::replace) + "\n";
}

}  // namespace qzcam
