// SPDX-License-Identifier: Apache-2.0
// The measured passes and their floors.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace qz::bench {

struct Case {
    std::string name;
    std::function<void()> prepare;  // runs before both sides if another case has run
    std::function<void()> floor;
    std::function<void()> library;
    bool marked = false;            // bench/measure has a limit for the ratio to the floor
    bool allocatesNothing = false;  // more than the floor does

    Case withMark() && {
        marked = true;
        return std::move(*this);
    }
    Case withoutAllocation() && {
        allocatesNothing = true;
        return std::move(*this);
    }
};

std::vector<Case> markedCases();

// Passes with growing numbers of parameters, vendor sections and vendor tags: "sections 10".
std::vector<Case> growingCases();

}  // namespace qz::bench
