// The measured passes, and what each is measured against.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace qz::bench {

struct Case {
    std::string name;
    std::function<void()> prepare;  // before either side, whenever another case has run
    std::function<void()> floor;
    std::function<void()> library;
    bool marked = false;            // bench/measure has a limit for what the library takes beside the floor
    bool allocatesNothing = false;  // beyond what the floor does

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

// Passes over more and more parameters, vendor sections and vendor tags: "sections 10".
std::vector<Case> growingCases();

}  // namespace qz::bench
