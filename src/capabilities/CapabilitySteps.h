// The functions of the rows that are more than a row. Each is the algorithm of one getter.
#pragma once

#include "CCameraQzParam.h"

namespace qz {

// A friend of the translator, in which some capabilities are kept.
struct CapabilitySteps {
#define PLAIN(...)
#define OWN(getter, ...) static void getter(CCameraQzParam& camera);
#include "capabilities/capabilities.inc"
#undef PLAIN
#undef OWN
};

}  // namespace qz
