// SPDX-License-Identifier: Apache-2.0
// Vendor tag lookup.
#pragma once

#include "QzName2Tag.h"
#include "tags/TagNames.h"

#include <string_view>

namespace qz {

constexpr uint32_t kNoTag = QzName2Tag::INVALID_TAG;

// Returns the number of a vendor tag by its full name, or kNoTag if the device does not declare it. The name
// must be terminated by NUL.
uint32_t findVendorTag(std::string_view name);

inline uint32_t vendorTagOf(TagName name) { return findVendorTag(name.text); }

}  // namespace qz
