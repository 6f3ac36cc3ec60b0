// SPDX-License-Identifier: Apache-2.0
// The check of all cameras of a dump: a row for each feature, a column for each camera.
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
