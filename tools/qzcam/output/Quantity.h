// SPDX-License-Identifier: Apache-2.0
// Entries whose values can be drawn as a curve.
#pragma once

#include "base/Values.h"

#include <cstdint>
#include <optional>

namespace qzcam {

// Returns true for a single number that is neither a mode nor the number of a word.
std::optional<double> quantityOf(const Values& values, uint32_t tag);

}  // namespace qzcam
