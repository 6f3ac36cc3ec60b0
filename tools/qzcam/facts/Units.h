// SPDX-License-Identifier: Apache-2.0
// Units of entries whose single number is a quantity.
#pragma once

#include <string_view>

namespace qzcam {

// Returns a unit such as "ns". Returns an empty text for an entry without a known unit.
const char* unitOf(std::string_view fullName);

}  // namespace qzcam
