// SPDX-License-Identifier: Apache-2.0
// Counts the allocations of the process.
#pragma once

#include <cstddef>

namespace qz::bench {

size_t allocations();

}  // namespace qz::bench
