// SPDX-License-Identifier: Apache-2.0
#include "facts/StandardKeys.h"

#include "base/Lists.h"

namespace qzcam {

const std::vector<StandardKey>& standardKeys() {
    static const std::vector<StandardKey> keys{
#include "facts/standard_keys.inc"
    };
    return keys;
}

const StandardKey* findStandardKey(std::string_view key) {
    return findIf(standardKeys(), [&](const StandardKey& each) { return key == each.key; });
}

}  // namespace qzcam
