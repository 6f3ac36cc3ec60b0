// SPDX-License-Identifier: Apache-2.0
// All cameras of a dump held against the library: features down, cameras across.
#pragma once

#include "verdict/Check.h"

#include <string>
#include <vector>

namespace qzcam {

struct CheckedCamera {
    Device device;
    DeviceCheck check;
};

std::string camerasText(const std::vector<CheckedCamera>& cameras, bool colour);
std::string camerasJson(const std::vector<CheckedCamera>& cameras);

}  // namespace qzcam
