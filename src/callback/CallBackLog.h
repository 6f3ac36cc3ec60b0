// The callback processor's log: one tag for the sources that hold CameraQzCallBack.
#pragma once

#include "text/Log.h"

namespace qz {
constexpr char kLogTag[] = "CameraQzCallBack";
}  // namespace qz
