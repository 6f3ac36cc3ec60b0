// SPDX-License-Identifier: Apache-2.0
// The functions of the rows that need one. Each is the algorithm of one getter.
#pragma once

#include "CCameraQzParam.h"

namespace qz {

// A friend of the translator, which stores some capabilities in its members.
struct CapabilitySteps {
#define PLAIN(...)
#define OWN(getter, ...) static void getter(CCameraQzParam& camera);
#include "capabilities/capabilities.inc"
#undef PLAIN
#undef OWN
};

}  // namespace qz
