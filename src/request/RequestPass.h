// The request pass, step by step.
#pragma once

#include "CCameraQzParam.h"

namespace qz {

// Runs one setter, or step of the pass, by its name. Returns its status; -2 (NAME_NOT_FOUND) for a name that
// no row has.
status_t runSetter(CCameraQzParam& camera, const char* setter, android::CameraMetadata* metaData);

}  // namespace qz
