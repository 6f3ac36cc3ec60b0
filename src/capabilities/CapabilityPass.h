// The capability pass, step by step.
#pragma once

#include "CCameraQzParam.h"

namespace qz {

// Runs one getter by its name. Returns 0; -2 (NAME_NOT_FOUND) for a name that no row has.
int32_t runGetter(CCameraQzParam& camera, const char* getter);

}  // namespace qz
