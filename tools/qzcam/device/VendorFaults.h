// SPDX-License-Identifier: Apache-2.0
// Finds faults of a HAL in its list of vendor tags.
#pragma once

#include "device/Report.h"

namespace qzcam {

// Adds names with two element types, and numbers with two names, of each block.
void findVendorFaults(Report& report);

}  // namespace qzcam
