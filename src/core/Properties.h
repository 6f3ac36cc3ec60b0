// System properties that work as switches.
#pragma once

namespace qz {

// Whether the property, or `fallback` when it is unset, begins with '1'; what follows does not count.
bool propertyIsOn(const char* name, const char* fallback);

}  // namespace qz
