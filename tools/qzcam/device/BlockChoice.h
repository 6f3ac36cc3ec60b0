// SPDX-License-Identifier: Apache-2.0
// Several providers have a block of vendor tags each, and a dump does not say which camera belongs to which.
// Entries print name and number side by side, so that the camera's own arrays tell.
#pragma once

#include "device/Report.h"

#include <string>

namespace qzcam {

struct BlockChoice {
    const VendorBlock* block = nullptr;  // null when the report has none
    std::string note;                    // empty unless several agree with the camera
};

// `camera` may be null.
BlockChoice chooseBlock(const Report& report, const ReportedCamera* camera);

// The vendor tags that entries of the camera name, for a text without a vendor section.
std::vector<VendorTag> tagsOfEntries(const Report& report, const ReportedCamera& camera);

}  // namespace qzcam
