// SPDX-License-Identifier: Apache-2.0
// Findings of a dump in JSON.
#pragma once

#include "device/Device.h"

#include <nlohmann/json_fwd.hpp>

namespace qzcam {

// Adds the members "left", "faults" and "notes", each if there is anything in it.
void addFindings(nlohmann::ordered_json& json, const Device& device);

}  // namespace qzcam
