// SPDX-License-Identifier: Apache-2.0
// The vendor's two sections. They are macros, because only literals can be joined without a copy at run time.
#pragma once

#include <cstddef>
#include <string_view>

#define CAPTURE(name) "com.ambrix.capture.metadata." name        // requests and results
#define CAPABILITY(name) "com.ambrix.device.capabilities." name  // static characteristics

namespace qz {

// Full name of a tag. The length of a literal is computed at compile time, so that no lookup has to count it.
struct TagName {
    template <size_t N>
    constexpr TagName(const char (&literal)[N]) : text(literal, N - 1) {}
    std::string_view text;
};

}  // namespace qz
