// SPDX-License-Identifier: Apache-2.0
// The functions of the rows that need one. Each is the algorithm of one setter. It returns 0, -22 without a
// request, or the status of a refused update.
#pragma once

#include "CCameraQzParam.h"

namespace qz {

// One call of a setter: the request that it writes into, and the value of the row's first key.
struct Setting {
    CCameraQzParam& camera;
    ExtParamInterface* host;
    android::CameraMetadata* metaData;
    const char* setter;
    const char* text = nullptr;  // value of a key that is read as a text
    int number = 0;              // value of a key that is read as an integer
};

// A friend of the translator: the functions read and write its members.
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
