// SPDX-License-Identifier: Apache-2.0
// Prints findings of a dump as JSON.
#pragma once

#include "device/Device.h"

#include <nlohmann/json_fwd.hpp>

namespace qzcam {

// Adds the members "left", "faults" and "notes", each if it is not empty.
void addFindings(nlohmann::ordered_json& json, const Device& device);

}  // namespace qzcam
