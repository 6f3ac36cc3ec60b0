#include "core/Properties.h"

#include <cutils/properties.h>

namespace qz {

bool propertyIsOn(const char* name, const char* fallback) {
    char value[PROPERTY_VALUE_MAX] = {};
    property_get(name, value, fallback);
    return value[0] == '1';
}

}  // namespace qz
