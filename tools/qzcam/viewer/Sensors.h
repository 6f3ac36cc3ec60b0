// SPDX-License-Identifier: Apache-2.0
// The sizes of the sensors that dumps state: areas and crops are drawn on them.
#pragma once

#include "device/Device.h"
#include "viewer/Page.h"

#include <nlohmann/json.hpp>

#include <string>

namespace qzcam {

class SensorData {
  public:
    // False for a camera that is there already: it stays as it is.
    bool add(const std::string& camera, const Device& device);

    PageData data() const;

  private:
    nlohmann::ordered_json mCameras = nlohmann::ordered_json::object();  // by their ids
};

}  // namespace qzcam
