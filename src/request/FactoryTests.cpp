// SPDX-License-Identifier: Apache-2.0
// Factory tests that need more than a switch.
#include "request/RequestSteps.h"

#include "request/Entry.h"
#include "text/Log.h"
#include "text/Numbers.h"
#include "text/Parsers.h"

namespace qz {

// The entry is written in every pass if the device declares the tag. The number of an absent key is -1.
status_t RequestSteps::setMMILowLightSensor(const Setting& set) {
    Entry<int32_t, 2> param(set);
    param.tag(CAPTURE("mmtest-lowlight-param"));
    if (!param.open()) return param.status();
    const int mode = set.host->getInt("mmitest-lowlight-sensor-mode");
    const int gain = set.host->getInt("mmitest-lowlight-sensor-gain");
    param.value = {mode, wrapMultiply(gain, 100)};
    return WRITE(param, line::MMILowLightSensorRefused, mode, gain);
}

// Regions are written for any text. Numbers that cannot be parsed are 0, so that a test station sees its
// mistake in the image instead of the region of the previous shot.
status_t RequestSteps::setMmiRawRegion(const Setting& set) {
    Entry<int32_t, 4> region(set);
    region.tag(CAPTURE("qz-mmi-raw-region"));
    if (region.open()) parseIntTuples(region.text, region.value.data(), region.value.size());
    return WRITE(region, line::MmiRawRegionRefused, region.text);
}

status_t RequestSteps::setMmiSubRawRegion(const Setting& set) {
    Entry<int32_t, 4> region(set);
    region.tag(CAPTURE("qz-mmi-sub-raw-region"));
    if (region.open()) parseIntTuples(region.text, region.value.data(), region.value.size());
    return WRITE(region, line::MmiSubRawRegionRefused, region.text);
}

}  // namespace qz
