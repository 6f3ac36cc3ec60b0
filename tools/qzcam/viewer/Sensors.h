// SPDX-License-Identifier: Apache-2.0
// The sizes of the sensors in dumps. Areas and crops are drawn on them.
#pragma once

#include "device/Device.h"
#include "viewer/Page.h"

#include <nlohmann/json.hpp>

#include <string>

namespace qzcam {

class SensorData {
  public:
    // Returns false, and changes nothing, for a camera that is already known.
    bool add(const std::string& camera, const Device& device);

    PageData data() const;

  private:
    nlohmann::ordered_json mCameras = nlohmann::ordered_json::object();  // by their ids
};

}  // namespace qzcam
