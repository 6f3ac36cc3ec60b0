// SPDX-License-Identifier: Apache-2.0
#include "text/Properties.h"

namespace qz {

std::array<char, PROPERTY_VALUE_MAX> valueOf(const Property& property) {
    std::array<char, PROPERTY_VALUE_MAX> value{};
    property_get(property.name, value.data(), property.unset);
    return value;
}

bool isOn(const Property& property) { return valueOf(property)[0] == '1'; }

}  // namespace qz
