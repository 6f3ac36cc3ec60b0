// SPDX-License-Identifier: Apache-2.0
// The static entries that list the sizes of skipped buffers, in the order in which they are searched.
#pragma once

#include "rows/Entry.h"

namespace qz {

inline constexpr EntryRow kSizeLists[] = {
    atLeast(2, int32(CAPABILITY("qzSubSensorJpegSize"))),
    atLeast(2, int32(CAPABILITY("superResolutionPictureSize"))),
};

}  // namespace qz
