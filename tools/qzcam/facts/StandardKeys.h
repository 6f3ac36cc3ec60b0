// SPDX-License-Identifier: Apache-2.0
// Parameters of the plain platform, which the camera service handles itself.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct StandardKey {
    const char* key = "";
    const char* words = "";  // words of its value, separated by blanks; empty if the value is not a word
};

const std::vector<StandardKey>& standardKeys();

// Returns null for any other key.
const StandardKey* findStandardKey(std::string_view key);

}  // namespace qzcam
