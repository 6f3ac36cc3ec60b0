// Which vendor tags the library looks for, on whatever device. The library itself is asked: there is no
// second list.
#pragma once

#include "device/Device.h"

namespace qzcam {

// Their numbers and types mean nothing. Takes a moment when it is wanted first.
const TagNames& libraryTags();

}  // namespace qzcam
