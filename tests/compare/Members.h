// What the library's objects keep to themselves.
#pragma once

#include "CameraQzCallBack.h"
#include "CameraQzSendCmd.h"
#include "QzPerformEx.h"

#include <utils/StrongPointer.h>

namespace qz::compare {

// Every member but addresses, which are only told from null.
void recordMembers(const CCameraQzParam& translator);
void recordMembers(const CameraQzCallBack& callBack);
void recordMembers(const CameraQzSendCmd& command);
void recordMembers(const QzPerformEx& inspector);

// The host's side, taken away and given back: what the library answers without one.
ExtParamInterface* exchangeHost(CCameraQzParam* translator, ExtParamInterface* host);
ExtCallBackInterface* exchangeHost(CameraQzCallBack* callBack, ExtCallBackInterface* host);

// The member that no pass writes.
void setPreShutterDone(CCameraQzParam* translator, bool done);

}  // namespace qz::compare
