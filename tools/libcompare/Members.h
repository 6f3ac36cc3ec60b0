// SPDX-License-Identifier: Apache-2.0
// Private members of the library's objects.
#pragma once

#include "CameraQzCallBack.h"
#include "CameraQzSendCmd.h"
#include "QzPerformEx.h"

#include <utils/StrongPointer.h>

namespace qz::compare {

// Writes every member. For an address it writes only whether it is null.
void recordMembers(const CCameraQzParam& translator);
void recordMembers(const CameraQzCallBack& callBack);
void recordMembers(const CameraQzSendCmd& command);
void recordMembers(const QzPerformEx& inspector);

// Remove and restore the host interface, to see the library's answers without one.
ExtParamInterface* exchangeHost(CCameraQzParam* translator, ExtParamInterface* host);
ExtCallBackInterface* exchangeHost(CameraQzCallBack* callBack, ExtCallBackInterface* host);

// Sets the member that no pass writes.
void setPreShutterDone(CCameraQzParam* translator, bool done);

}  // namespace qz::compare
