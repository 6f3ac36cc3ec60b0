// SPDX-License-Identifier: Apache-2.0
#include "viewer/Sensors.h"

#include "output/JsonPrinter.h"

namespace qzcam {

bool SensorData::add(const std::string& camera, const Device& device) {
    if (mCameras.contains(camera)) return false;
    mCameras[camera] = sensorJson(device);
    return true;
}

PageData SensorData::data() const {
    return {"sensors", mCameras.dump(2, ' ', true, nlohmann::json::error_handler_t::replace) + "\n"};
}

}  // namespace qzcam
