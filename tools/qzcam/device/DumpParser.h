// SPDX-License-Identifier: Apache-2.0
// Makes a device from one camera of a report or of the text of a dump.
#pragma once

#include "base/Text.h"
#include "device/Device.h"
#include "device/Report.h"

#include <string_view>

namespace qzcam {

// Returns the camera's vendor tags and static entries. Without a camera it returns only vendor tags. Damage
// in the entries is reported as a problem; unused parts are in Device::unused.
Device deviceOf(const Report& report, const ReportedCamera* camera, Problems& problems);

// Does the same for a camera's name or id; an empty text means the first camera. A missing camera is a
// problem.
Device deviceOf(const Report& report, std::string_view camera, Problems& problems);

// Reports the damage of the whole text, even without a camera: places where it was cut, lists with another
// number of items than announced, garbled lines.
void addDamage(const Report& report, Problems& problems);

// Calls readDump(), addDamage() and deviceOf().
Device parseDump(std::string_view text, std::string_view file, std::string_view camera, Problems& problems);

}  // namespace qzcam
