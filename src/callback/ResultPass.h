// The result pass, step by step.
#pragma once

#include "CameraQzCallBack.h"

namespace qz {

// False, after an error line in the caller's name, without a host interface.
bool hasHost(const ExtCallBackInterface* host, const char* caller);

// Runs one handler by its name. Returns its status; -2 (NAME_NOT_FOUND) for a name that no row has.
status_t runHandler(CameraQzCallBack& callBack, const char* handler, const android::CameraMetadata& result);

}  // namespace qz
