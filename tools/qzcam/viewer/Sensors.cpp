// SPDX-License-Identifier: Apache-2.0
#include "viewer/Sensors.h"

#include "output/JsonPrinter.h"

namespace qzcam {

void SensorData::add(const std::string& camera, const Device& device) {
    if (!mCameras.contains(camera)) mCameras[camera] = sensorJson(device);
}

PageData SensorData::data() const {
    return {"sensors", mCameras.dump(2, ' ', true, nlohmann::json::error_handler_t::replace) + "\n"};
}

}  // namespace qzcam
