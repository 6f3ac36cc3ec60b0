// SPDX-License-Identifier: Apache-2.0
// The request pass, step by step.
#pragma once

#include "CCameraQzParam.h"

namespace qz {

// Runs one setter, or step of the pass, by its name. Returns its status, or -2 (NAME_NOT_FOUND) if no row has
// the name.
status_t runSetter(CCameraQzParam& camera, const char* setter, android::CameraMetadata* metaData);

}  // namespace qz
