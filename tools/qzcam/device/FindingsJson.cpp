// SPDX-License-Identifier: Apache-2.0
#include "device/FindingsJson.h"

#include "base/Text.h"

#include <nlohmann/json.hpp>

namespace qzcam {

namespace {

using Json = nlohmann::ordered_json;

Json jsonOf(const UnusedPart& part) {
    return {{"kind", nameOf(part.kind)},
            {"line", part.line},
            {"lastLine", part.lastLine},
            {"count", part.count},
            {"name", visible(part.name)}};
}

Json jsonOf(const Fault& fault) {
    return {{"kind", nameOf(fault.kind)},
            {"line", fault.line},
            {"what", visible(fault.text)},
            {"consequence", visible(fault.consequence)}};
}

template <typename Items>
Json listOf(const Items& items) {
    Json list = Json::array();
    for (const auto& item : items) list.push_back(jsonOf(item));
    return list;
}

}  // namespace

void addFindings(Json& json, const Device& device) {
    if (!device.unused.empty()) json["left"] = listOf(device.unused);
    if (!device.faults.empty()) json["faults"] = listOf(device.faults);
    for (const std::string& note : device.notes) json["notes"].push_back(visible(note));
}

}  // namespace qzcam
