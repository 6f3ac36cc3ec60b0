// Parameter keys by the words that they are made of: lists of choices are called like the parameters that
// take them, and slips of the pen like what was meant.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace qzcam {

// "qz-sensor-iso-range" is about {sensor, iso}: words that say little are left out.
std::set<std::string> wordsOf(const std::string& key);

// Keys that setters read and that are called much like this one, the most alike first.
std::vector<std::string> similarKeys(const std::string& key);

}  // namespace qzcam
