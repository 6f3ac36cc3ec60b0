// SPDX-License-Identifier: Apache-2.0
// The built-in device. A test program reads it only once.
#pragma once

#include "device/BuiltIn.h"
#include "device/DumpParser.h"

namespace qzcam::test {

inline const Device& builtIn() {
    static const Device built = [] {
        Problems problems("device");
        return parseDump(builtInDevice(), "device", "", problems);
    }();
    return built;
}

}  // namespace qzcam::test
