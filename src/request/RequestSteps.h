// The functions of the rows that are more than a row. Each is the algorithm of one setter: it returns 0, -22 without a
// request, or the status of a refused update.
#pragma once

#include "CCameraQzParam.h"

namespace qz {

// A friend of the translator, whose state the functions read and leave.
struct RequestSteps {
    using CameraMetadata = android::CameraMetadata;

#define PLAIN(...)
#define OWN(setter, ...) static status_t setter(CCameraQzParam& camera, CameraMetadata* metaData);
#define STEP(step, ...) static status_t step(CCameraQzParam& camera, CameraMetadata* metaData);
#include "request/parameters.inc"
#undef PLAIN
#undef OWN
#undef STEP
};

}  // namespace qz
