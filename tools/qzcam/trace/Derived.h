// SPDX-License-Identifier: Apache-2.0
// Finds messages that no line of the log has. The library makes them again from the results in the input.
#pragma once

#include "device/Device.h"
#include "trace/Item.h"

#include <set>
#include <string>
#include <vector>

namespace qzcam {

struct Derived {
    std::vector<TraceItem> messages;  // each with the frame and place of its result
    std::vector<std::string> notes;   // unknown messages, with the reason
};

// `items`: entries of requests and results of one session, by frame. `monitored`: names of the tags that were
// monitored; empty if unknown. `isWhole`: none of the events before the first one was lost.
Derived messagesOf(const std::vector<TraceItem>& items, const std::vector<Tag>& vendorTags,
                   const std::set<std::string>& monitored, bool isWhole);

}  // namespace qzcam
