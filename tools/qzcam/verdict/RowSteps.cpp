#include "verdict/RowSteps.h"

#include <algorithm>
#include <iterator>

namespace qzcam {

namespace {

using Kind = TraceStep::Kind;
using qz::kParameters;

bool looksUp(const qz::Parameter& row, const std::string& tag) {
    const auto is = [&](const qz::EntryRow& entry) { return tag == entry.tag; };
    return std::any_of(row.entries.begin(), row.entries.end(), is) ||
           std::any_of(row.uses.begin(), row.uses.end(), is);
}

bool canTake(const qz::Parameter& row, const TraceStep& step) {
    if (step.kind == Kind::Read) return keyIn(row, step.name) != nullptr;
    return step.kind != Kind::Missing || looksUp(row, step.name);
}

// True if the row has read the key before, which it does not do twice.
bool hasRead(const Trace& steps, const TraceStep& read) {
    return std::find(steps.begin(), steps.end(), read) != steps.end();
}

}  // namespace

RowSteps stepsByRow(const Trace& trace) {
    RowSteps steps;
    const qz::Parameter* row = std::begin(kParameters);
    for (const TraceStep& step : trace) {
        const bool stays = canTake(*row, step) && !(step.kind == Kind::Read && hasRead(steps[row], step));
        if (!stays) {
            const auto next = std::find_if(row + 1, std::end(kParameters),
                                           [&](const qz::Parameter& each) { return canTake(each, step); });
            if (next != std::end(kParameters)) row = next;
        }
        steps[row].push_back(step);
    }
    return steps;
}

std::vector<const qz::Parameter*> rowsOf(const std::string& key) {
    std::vector<const qz::Parameter*> rows;
    for (const qz::Parameter& row : kParameters) {
        if (keyIn(row, key) != nullptr) rows.push_back(&row);
    }
    return rows;
}

const qz::KeyRow* keyIn(const qz::Parameter& row, const std::string& key) {
    const auto found = std::find_if(row.keys.begin(), row.keys.end(),
                                    [&](const qz::KeyRow& each) { return key == each.name; });
    return found == row.keys.end() ? nullptr : found;
}

// As many keys as entries: one for each. Otherwise each key decides about all entries.
bool ownsEntry(const qz::Parameter& row, const qz::KeyRow& key, size_t index) {
    if (key.condition) return false;
    std::vector<const qz::KeyRow*> own;
    for (const qz::KeyRow& each : row.keys) {
        if (!each.condition) own.push_back(&each);
    }
    return own.size() != row.entries.count || own[index] == &key;
}

}  // namespace qzcam
