// SPDX-License-Identifier: Apache-2.0
// Makes facts of the requests and results that a dump shows as whole arrays ("Last request sent", "Latest
// received frame").
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

// Returns true for an array that the phone has sent or received, and false for default requests of the HAL
// and static arrays.
bool isFromSession(const MetadataArray& array);

// Returns a fact for the array, and one for each of its entries. Entries that are not the library's, and
// entries of the library that a whole request or result lacks, are marked as shown only on request. A result
// contains its frame and its time.
std::vector<TraceItem> itemsOf(const MetadataArray& array, const MonitorPlace& place, size_t input,
                               const TagNames& names);

}  // namespace qzcam
