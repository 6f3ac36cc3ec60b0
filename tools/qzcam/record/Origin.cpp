// SPDX-License-Identifier: Apache-2.0
#include "record/Origin.h"

#include "facts/Lookup.h"
#include "facts/Tags.h"
#include "session/Player.h"

#include <algorithm>
#include <set>
#include <utility>

namespace qzcam {

std::vector<Candidate> originOf(const std::string& tag, const EntryTexts& entries) {
    std::vector<Candidate> origin = candidatesFor(tag, entries);
    std::set<std::string> keys;
    std::set<const qz::Parameter*> rows;
    for (const Candidate& each : origin) {
        keys.insert(each.key);
        for (const qz::Parameter* row : rowsWriting(tag)) {
            if (keyIn(*row, each.key) != nullptr) rows.insert(row);
        }
    }
    const bool isCertain = keys.size() == origin.size() && rows.size() == 1;
    return isCertain ? origin : std::vector<Candidate>();
}

EntryTexts entriesWithoutParameters(const Device& device) {
    Problems none("");
    EntryTexts entries;
    Player player(device, [&](const Event& event) {
        const auto* request = std::get_if<RequestEvent>(&event);
        if (request == nullptr) return;
        for (const EntryRow& row : request->entries) entries.emplace(row.name, row.values);
    });
    player.play(parseSession("open 0\nrequest\n", "", none));
    return entries;
}

}  // namespace qzcam
