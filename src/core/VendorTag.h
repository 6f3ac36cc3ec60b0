// The way of every setter, getter and handler to its tag.
#pragma once

#include "QzName2Tag.h"

#include <string_view>

namespace qz {

constexpr uint32_t kNoTag = QzName2Tag::INVALID_TAG;

// What QzName2Tag finds for a vendor tag's full name; kNoTag when no device would understand it. Callers hand
// on literals, the length of which compilers see; the name has a terminator.
uint32_t findVendorTag(std::string_view name);

// The same out of line, for the many places that a pass seldom comes by.
[[gnu::noinline]] uint32_t vendorTagOf(std::string_view name);

}  // namespace qz
