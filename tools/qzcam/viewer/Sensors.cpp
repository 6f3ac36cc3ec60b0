// SPDX-License-Identifier: Apache-2.0
#include "viewer/Sensors.h"

#include "input/Parts.h"
#include "output/JsonPrinter.h"

#include <string>

namespace qzcam {

namespace {

using Json = nlohmann::ordered_json;

Json sensorJson(const MetadataArray& array) {
    Json json = Json::object();
    for (const auto& [member, tag] : kSensorEntries) {
        for (const ArrayEntry& entry : array.entries) {
            const EntryValues values = readValues(entry);
            if (entry.name == tag && values.wrong.empty()) json[member] = jsonOf(values.values);
        }
    }
    return json;
}

}  // namespace

void SensorData::add(const Report& report) {
    for (const MetadataArray& array : report.arrays) {
        const std::string camera(array.camera);
        if (array.place == Place::Static && !mCameras.contains(camera)) mCameras[camera] = sensorJson(array);
    }
}

void SensorData::addDumps(std::string_view text) {
    for (const Part& part : partsOf(text)) {
        if (part.kind == Part::Kind::Dump) add(readDump(part.text, part.firstLine));
    }
}

PageData SensorData::data() const {
    return {"sensors", mCameras.dump(2, ' ', true, Json::error_handler_t::replace) + "\n"};
}

}  // namespace qzcam
