// From the text of a dump to a device.
#pragma once

#include "base/Text.h"
#include "device/Device.h"

#include <string_view>

namespace qzcam {

// `camera` chooses one by its name or the end of it, empty the first. What the platform tables and the dump's
// own vendor section do not know is counted in Device::passedOver; what is malformed is a problem, and the
// rest is used.
Device parseDump(std::string_view text, std::string_view file, std::string_view camera, Problems& problems);

}  // namespace qzcam
