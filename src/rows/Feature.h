// SPDX-License-Identifier: Apache-2.0
// Groups of camera features, in the order in which reports list them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace qz {

enum class Feature : uint8_t {
    stabilisation,
    factory,
    flash,
    panorama,
    faces,
    twoSensors,
    mirror,
    lightPainting,
    professional,
    night,
    focus,
    shots,
    video,
    pictures,
    image,
};

constexpr const char* kFeatureNames[] = {
    "stabilisation",      "factory tests", "flash",          "panorama",     "faces and beauty",
    "two sensors",        "mirror",        "light painting", "professional", "night",
    "focus and metering", "shots",         "video",          "pictures",     "image",
};
constexpr size_t kFeatureCount = std::size(kFeatureNames);
static_assert(kFeatureCount == static_cast<size_t>(Feature::image) + 1);

}  // namespace qz
