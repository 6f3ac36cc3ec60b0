// The translator's log: one tag for the many sources that hold CCameraQzParam.
#pragma once

#include "core/Log.h"

namespace qz {
inline constexpr char kLogTag[] = "CameraQzParam";
}  // namespace qz
