// SPDX-License-Identifier: Apache-2.0
// System properties; properties.inc lists them.
#pragma once

#include <cutils/properties.h>

#include <array>

namespace qz {

struct Property {
    const char* name;
    const char* unset;  // value while the property is not set
};

namespace property {

#define PROPERTY(constant, name, unset, effect) inline constexpr Property constant{name, unset};
#include "text/properties.inc"
#undef PROPERTY

}  // namespace property

// For the reference.
struct PropertyRow {
    Property property;
    const char* effect;
};

inline constexpr PropertyRow kProperties[] = {
#define PROPERTY(constant, name, unset, effect) {property::constant, effect},
#include "text/properties.inc"
#undef PROPERTY
};

std::array<char, PROPERTY_VALUE_MAX> valueOf(const Property& property);

// Returns true if the value begins with '1', whatever follows.
bool isOn(const Property& property);

}  // namespace qz
