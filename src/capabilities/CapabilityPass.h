// SPDX-License-Identifier: Apache-2.0
// The capability pass, step by step.
#pragma once

#include "CCameraQzParam.h"

namespace qz {

// Runs one getter by its name. Returns 0, or -2 (NAME_NOT_FOUND) if no row has the name.
int32_t runGetter(CCameraQzParam& camera, const char* getter);

}  // namespace qz
