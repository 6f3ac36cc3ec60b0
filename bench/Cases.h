// What is measured, against what, and what it may cost.
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
    double mark = 0;   // instructions of the library for one of the floor: what is aimed at, or 0
    double limit = 0;  // and what must not be exceeded, a little above what is reached; 0: none
    bool allocatesNothing = false;  // beyond what the floor does

    Case marked(double aim, double most) && {
        mark = aim;
        limit = most;
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
