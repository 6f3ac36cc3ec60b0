// SPDX-License-Identifier: Apache-2.0
// Sizes of a system property, terminator included, for <cutils/properties.h>.
#ifndef QZ_HOST_SYS_SYSTEM_PROPERTIES_H
#define QZ_HOST_SYS_SYSTEM_PROPERTIES_H

#define PROP_NAME_MAX 32
#define PROP_VALUE_MAX 92

#endif
