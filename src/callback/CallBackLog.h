// The callback processor's log: one tag for the sources that hold CameraQzCallBack.
#pragma once

#include "core/Log.h"

namespace qz {
constexpr char kLogTag[] = "CameraQzCallBack";
}  // namespace qz
