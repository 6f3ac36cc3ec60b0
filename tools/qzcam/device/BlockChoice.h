// SPDX-License-Identifier: Apache-2.0
// Finds the block of vendor tags of a camera. If several providers have a block each, a dump does not state
// which camera belongs to which. But entries print name and number together, so the camera's own arrays show
// the block.
#pragma once

#include "device/Report.h"

#include <string>

namespace qzcam {

struct BlockChoice {
    const VendorBlock* block = nullptr;  // null if the report has none
    std::string note;                    // empty unless several blocks fit the camera
};

// `camera` may be null.
BlockChoice chooseBlock(const Report& report, const ReportedCamera* camera);

// Returns the vendor tags of the camera's entries, for a text without a vendor section.
std::vector<VendorTag> tagsOfEntries(const Report& report, const ReportedCamera& camera);

}  // namespace qzcam
