// SPDX-License-Identifier: Apache-2.0
// Units of entries whose single number is a quantity.
#pragma once

#include <string_view>

namespace qzcam {

// "ns"; empty for an entry without a unit, or whose unit is not known.
const char* unitOf(std::string_view fullName);

}  // namespace qzcam
