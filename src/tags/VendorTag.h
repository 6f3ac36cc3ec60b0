// The way of every setter, getter and handler to its tag.
#pragma once

#include "QzName2Tag.h"

#include <string_view>

namespace qz {

constexpr uint32_t kNoTag = QzName2Tag::INVALID_TAG;

// What QzName2Tag finds for a vendor tag's full name; kNoTag when no device would understand it. The name has
// a terminator.
uint32_t findVendorTag(std::string_view name);

// The same of a literal, for functions that deviate from their rows: the length is taken here, not at each of
// them.
uint32_t vendorTagOf(const char* name);

}  // namespace qz
