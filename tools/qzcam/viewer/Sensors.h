// SPDX-License-Identifier: Apache-2.0
// The sizes of the sensors that dumps state: what areas and crops are drawn on.
#pragma once

#include "device/Report.h"
#include "viewer/Page.h"

#include <nlohmann/json.hpp>

#include <string_view>

namespace qzcam {

class SensorData {
  public:
    // Takes the static entries of each camera; of a camera that is there already it takes nothing.
    void add(const Report& report);

    // Takes those of all dumps in a text.
    void addDumps(std::string_view text);

    PageData data() const;

  private:
    nlohmann::ordered_json mCameras = nlohmann::ordered_json::object();  // by the id
};

}  // namespace qzcam
