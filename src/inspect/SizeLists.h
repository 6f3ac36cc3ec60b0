// The static entries that list sizes of buffers which are skipped for a round, in the order of the
// inspection.
#pragma once

#include "rows/Entry.h"

namespace qz {

inline constexpr EntryRow kSizeLists[] = {
    atLeast(2, int32(CAPABILITY("qzSubSensorJpegSize"))),
    atLeast(2, int32(CAPABILITY("superResolutionPictureSize"))),
};

}  // namespace qz
