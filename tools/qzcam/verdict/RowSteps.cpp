// SPDX-License-Identifier: Apache-2.0
#include "verdict/RowSteps.h"

#include <algorithm>
#include <iterator>

namespace qzcam {

namespace {

using Kind = PassStep::Kind;
using qz::kParameters;

bool looksUp(const qz::Parameter& row, const std::string& tag) {
    const auto is = [&](const qz::EntryRow& entry) { return tag == entry.tag; };
    return std::any_of(row.entries.begin(), row.entries.end(), is) ||
           std::any_of(row.uses.begin(), row.uses.end(), is);
}

bool canTake(const qz::Parameter& row, const PassStep& step) {
    if (step.kind == Kind::Read) return keyIn(row, step.name) != nullptr;
    return step.kind != Kind::Missing || looksUp(row, step.name);
}

// Returns true if the row has already read the key: a row reads a key only once.
bool hasRead(const PassSteps& steps, const PassStep& read) {
    return std::any_of(steps.begin(), steps.end(), [&](const PassStep& step) {
        return step.kind == Kind::Read && step.name == read.name && step.asInteger == read.asInteger;
    });
}

}  // namespace

RowSteps stepsByRow(const PassSteps& pass) {
    RowSteps steps;
    const qz::Parameter* row = std::begin(kParameters);
    for (const PassStep& step : pass) {
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

}  // namespace qzcam
