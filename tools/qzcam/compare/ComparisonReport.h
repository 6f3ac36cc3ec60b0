// SPDX-License-Identifier: Apache-2.0
// Prints a comparison as text and as JSON.
#pragma once

#include "compare/Comparison.h"

#include <string>

namespace qzcam {

// The two sides of a comparison.
struct ComparedSides {
    std::string file;
    std::string camera;
    std::string array;  // "last request sent"
    size_t line = 0;    // line of the array
    std::string here;   // "session x.qzs", "parameters of the log (line 12)"
    std::vector<std::string> otherArrays;
};

std::string comparisonText(const ComparedSides& sides, const ArrayComparison& comparison);
std::string comparisonJson(const ComparedSides& sides, const ArrayComparison& comparison);

}  // namespace qzcam
