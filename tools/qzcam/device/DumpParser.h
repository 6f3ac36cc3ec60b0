// SPDX-License-Identifier: Apache-2.0
// From a report, or the text of a dump, to one camera as a device.
#pragma once

#include "base/Text.h"
#include "device/Device.h"
#include "device/Report.h"

#include <string_view>

namespace qzcam {

// The camera's vendor tags and static entries. No camera gives vendor tags alone. What is damaged in its
// entries is a problem, what is not used stands in Device::left.
Device deviceOf(const Report& report, const ReportedCamera* camera, Problems& problems);

// The same for a camera's name or id, the first for an empty text. A camera that is not there is a problem.
Device deviceOf(const Report& report, std::string_view camera, Problems& problems);

// Adds the damage of the whole text, camera or not: where it was cut, lists that do not have what they
// announce, lines that nobody understands.
void addDamage(const Report& report, Problems& problems);

// readDump(), addDamage() and deviceOf() in one.
Device parseDump(std::string_view text, std::string_view file, std::string_view camera, Problems& problems);

}  // namespace qzcam
