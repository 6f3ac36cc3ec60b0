// The way of every setter, getter and handler to its tag.
#pragma once

#include <cstdint>
#include <string_view>

namespace qz {

// What QzName2Tag finds for a vendor tag's full name. Callers hand on literals, the length of which compilers
// see; the name has a terminator. False when no device would understand the tag.
bool resolveVendorTag(std::string_view name, uint32_t* tag);

}  // namespace qz
