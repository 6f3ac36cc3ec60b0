// A bound on what a HAL may claim.
#pragma once

namespace qz::host {

// So many vendor tags a descriptor takes at most; a count above it is taken for a lie. The host platform's
// own bound: a device believes the HAL, and may run out of memory.
constexpr int kMaxVendorTags = 65536;

}  // namespace qz::host
