// Sizes of a system property, terminator included, as <cutils/properties.h> wants them.
#ifndef QZ_HOST_SYS_SYSTEM_PROPERTIES_H
#define QZ_HOST_SYS_SYSTEM_PROPERTIES_H

#define PROP_NAME_MAX 32
#define PROP_VALUE_MAX 92

#endif
