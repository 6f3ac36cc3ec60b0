// The translator's log: one tag for the many sources that hold CCameraQzParam.
#pragma once

#include "text/Log.h"

namespace qz {
constexpr char kLogTag[] = "CameraQzParam";
}  // namespace qz
