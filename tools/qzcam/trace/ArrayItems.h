// SPDX-License-Identifier: Apache-2.0
// From requests and results that a dump shows as whole arrays ("Last request sent", "Latest received frame")
// to facts of the session.
#pragma once

#include "device/Device.h"
#include "device/Report.h"
#include "trace/Evidence.h"
#include "trace/Item.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace qzcam {

// True for an array that the phone has sent or received; default requests of the HAL and static arrays are
// none.
bool tellsOfSession(const MetadataArray& array);

// The array, and its entries. Entries that are none of the library's, and those of the library that a whole
// request or result lacks, are there for those who ask for them. A result tells its frame and its time
// itself.
std::vector<TraceItem> itemsOf(const MetadataArray& array, const MonitorPlace& place, size_t input,
                               const TagNames& names);

}  // namespace qzcam
