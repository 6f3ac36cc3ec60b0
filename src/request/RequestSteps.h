// The functions of the rows that are more than a row. Each is the algorithm of one setter: it returns 0, -22
// without a request, or the status of a refused update.
#pragma once

#include "CCameraQzParam.h"

namespace qz {

// One setter at work: the request that it writes into, and the value of the row's first key.
struct Setting {
    CCameraQzParam& camera;
    ExtParamInterface* host;
    android::CameraMetadata* metaData;
    const char* setter;
    const char* text = nullptr;  // of a key that is read as a text
    int number = 0;              // of a key that is read as an integer
};

// A friend of the translator, whose state the functions read and leave.
struct RequestSteps {
#define PLAIN(...)
#define OWN(setter, ...) static status_t setter(const Setting& set);
#define FREE(setter, ...) static status_t setter(const Setting& set);
#define STEP(step, ...) static status_t step(const Setting& set);
#include "request/parameters.inc"
#undef PLAIN
#undef OWN
#undef FREE
#undef STEP
};

}  // namespace qz
