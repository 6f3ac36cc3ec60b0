// SPDX-License-Identifier: Apache-2.0
// A limit for the number of vendor tags.
#pragma once

namespace qz::host {

// Largest number of vendor tags in a descriptor. A larger count is refused as an error of the HAL. Only the
// host platform has this limit: a device accepts any count and may run out of memory.
constexpr int kMaxVendorTags = 65536;

}  // namespace qz::host
