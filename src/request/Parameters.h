// SPDX-License-Identifier: Apache-2.0
// Table of all parameters in the order of the pass: kParameters.
#pragma once

#include "request/Parameter.h"
#include "text/Log.h"
#include "text/Vocabularies.h"

#include <iterator>

namespace qz {

namespace parameter {

inline constexpr Parameter kParameters[] = {
#define PLAIN(setter, feature, ...) plain(#setter, Feature::feature, __VA_ARGS__),
#define OWN(setter, feature, ...) own(#setter, Feature::feature, __VA_ARGS__),
#define FREE(setter, feature, ...) free(#setter, Feature::feature, __VA_ARGS__),
#define STEP(step, feature, ...) free(#step, Feature::feature, __VA_ARGS__),
#include "request/parameters.inc"
#undef PLAIN
#undef OWN
#undef FREE
#undef STEP
};

}  // namespace parameter

using parameter::kParameters;

constexpr size_t kParameterCount = std::size(kParameters);

// Returns the index of a row in the pass, or kParameterCount if no row has the name.
constexpr size_t placeOf(const char* setter) {
    size_t place = 0;
    while (place < kParameterCount && !sameText(kParameters[place].setter, setter)) ++place;
    return place;
}

constexpr bool distinctParameters() {
    for (size_t i = 0; i < kParameterCount; ++i) {
        if (placeOf(kParameters[i].setter) != i) return false;
        for (size_t j = 0; j < i && kParameters[i].plain; ++j) {
            if (kParameters[j].plain && sameText(kParameters[i].keys[0].name, kParameters[j].keys[0].name))
                return false;
        }
    }
    return true;
}

constexpr bool soundParameters() {
    for (const Parameter& row : kParameters) {
        if (!soundTexts(row)) return false;
    }
    return true;
}

static_assert(kParameterCount == 111 + 2, "111 setters, and two steps that write nothing");
static_assert(placeOf("readFaceAeArea") == placeOf("setSharpness") + 1);
static_assert(placeOf("takeBurstCapture") == placeOf("setMeteringMode") + 1);
static_assert(distinctParameters(), "each setter has one row, and each plain one a key of its own");
static_assert(soundParameters(), "texts of plain rows take what they are printed with");

}  // namespace qz
