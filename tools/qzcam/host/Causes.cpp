// SPDX-License-Identifier: Apache-2.0
#include "host/Causes.h"

#include <callback/Results.h>

namespace qzcam {

std::vector<std::string> resultEntriesOf(const Message& message) {
    std::vector<std::string> names;
    for (const qz::ResultRow& row : qz::kResults) {
        if (row.message == 0 || static_cast<uint32_t>(row.message) != message.code) continue;
        const bool isKind =
            row.kind == 0 || (!message.numbers.empty() && message.numbers.front() == row.kind);
        if (!isKind) continue;
        for (const qz::EntryRow& entry : row.entries) names.emplace_back(entry.tag);
    }
    return names;
}

}  // namespace qzcam
