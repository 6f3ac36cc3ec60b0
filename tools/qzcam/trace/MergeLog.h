// SPDX-License-Identifier: Apache-2.0
// Puts the facts of a log and those of frames in one order.
#pragma once

#include "trace/Item.h"

#include <optional>
#include <string>
#include <vector>

namespace qzcam {

struct MergedFacts {
    std::vector<TraceItem> items;
    std::string note;  // says what the order is based on
};

// Merges by the clock if both have the same. Otherwise it uses the frame numbers in log lines, and the values
// in lines of request passes: a pass comes before the request that has its values. Returns nothing if the log
// has none of these.
std::optional<MergedFacts> mergeLog(const std::vector<TraceItem>& frames, const std::vector<TraceItem>& log);

}  // namespace qzcam
