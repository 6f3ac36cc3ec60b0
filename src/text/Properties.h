// System properties. properties.inc holds them.
#pragma once

#include <cutils/properties.h>

#include <array>

namespace qz {

struct Property {
    const char* name;
    const char* unset;  // what counts while the property is not set
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

// True if the value begins with '1'; what follows does not count.
bool isOn(const Property& property);

}  // namespace qz
