// SPDX-License-Identifier: Apache-2.0
// The reference for programs.
#include "base/Text.h"
#include "facts/Reference.h"

#include <nlohmann/json.hpp>

namespace qzcam {

namespace {

using Json = nlohmann::ordered_json;

Json jsonOf(const Value& value, Column::Style style) {
    const std::string& first = value[0].text;
    if (style == Column::Style::Number) return *parseInteger(first);
    if (value.size() == 1) return first;
    Json object = Json::object();
    for (const NamedText& part : value) object[part.name] = part.text;
    return object;
}

Json jsonOf(const Column& column, const std::vector<Value>& values) {
    if (!column.isList) return values.empty() ? Json() : jsonOf(values[0], column.style);
    Json list = Json::array();
    for (const Value& value : values) list.push_back(jsonOf(value, column.style));
    return list;
}

Json jsonOf(const Section& section) {
    Json list = Json::array();
    for (const Doc& doc : section.docs) {
        Json object = Json::object();
        for (size_t i = 0; i < section.columns.size(); ++i) {
            object[section.columns[i].json] = jsonOf(section.columns[i], doc.cells[i]);
        }
        list.push_back(std::move(object));
    }
    return list;
}

}  // namespace

std::string referenceJson(const Reference& reference) {
    Json whole{{"format", "qzcam-reference"}, {"version", 2}};
    for (const Section& section : reference) whole[section.json] = jsonOf(section);
    return whole.dump(2, ' ', true, Json::error_handler_t::replace) + "\n";
}

}  // namespace qzcam
