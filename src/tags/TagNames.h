// The vendor's two sections, spelled once. Macros, because only literals join without a copy at run time.
#pragma once

#include <cstddef>
#include <string_view>

#define CAPTURE(name) "com.ambrix.capture.metadata." name        // requests and results
#define CAPABILITY(name) "com.ambrix.device.capabilities." name  // static characteristics

namespace qz {

// A tag's full name. The compiler takes the length of a literal, so that no lookup counts it.
struct TagName {
    template <size_t N>
    constexpr TagName(const char (&literal)[N]) : text(literal, N - 1) {}
    std::string_view text;
};

}  // namespace qz
