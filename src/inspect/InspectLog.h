// The inspection's log: one tag for the sources that hold QzPerformEx.
#pragma once

#include "text/Log.h"

namespace qz {
constexpr char kLogTag[] = "QzPerformEx";
}  // namespace qz
