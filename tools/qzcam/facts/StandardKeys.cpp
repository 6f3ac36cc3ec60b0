// SPDX-License-Identifier: Apache-2.0
#include "facts/StandardKeys.h"

#include <algorithm>

namespace qzcam {

const std::vector<StandardKey>& standardKeys() {
    static const std::vector<StandardKey> keys{
#include "facts/standard_keys.inc"
    };
    return keys;
}

const StandardKey* findStandardKey(std::string_view key) {
    const auto& keys = standardKeys();
    const auto found =
        std::find_if(keys.begin(), keys.end(), [&](const StandardKey& each) { return key == each.key; });
    return found == keys.end() ? nullptr : &*found;
}

}  // namespace qzcam
