// What a camera engineer calls the things that tags belong to.
#pragma once

#include <cstddef>
#include <string_view>

namespace qzcam {

// In the order of a table of contents; the last one takes what no word tells.
constexpr size_t kFeatures = 15;
const char* featureName(size_t feature);

// By the words in the tag's name, with or without its section.
size_t featureOf(std::string_view tag);

}  // namespace qzcam
