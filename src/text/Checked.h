// SPDX-License-Identifier: Apache-2.0
// Logs failures of bounded memory functions, by a line that takes the caller's name.
//
//     if (!succeeded<line::BlockNotCleared>(memset_s(block, sizeof(block), 0xFF, sizeof(block)), __func__))
//     return;
#pragma once

#include "text/BoundedMemory.h"
#include "text/Log.h"

namespace qz {

// For memset_s and memcpy_s.
template <typename Line>
bool succeeded(int status, const char* caller) {
    if (status == 0) return true;
    LOG(Line, caller);
    return false;
}

// For snprintf_s.
template <typename Line>
void printed(int length, const char* caller) {
    if (length == -1) LOG(Line, caller);
}

}  // namespace qz
