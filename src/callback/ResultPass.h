// SPDX-License-Identifier: Apache-2.0
// The result pass, step by step.
#pragma once

#include "CameraQzCallBack.h"

namespace qz {

// Returns true if there is a host interface. Otherwise logs an error under the caller's name.
bool hasHost(const ExtCallBackInterface* host, const char* caller);

// Runs one handler by its name. Returns its status, or -2 (NAME_NOT_FOUND) if no row has the name.
status_t runHandler(CameraQzCallBack& callBack, const char* handler, const android::CameraMetadata& result);

}  // namespace qz
