// SPDX-License-Identifier: Apache-2.0
// Faults of a HAL that its list of vendor tags shows.
#pragma once

#include "device/Report.h"

namespace qzcam {

// Adds one name with two element types, and one number with two names, of each block.
void findVendorFaults(Report& report);

}  // namespace qzcam
