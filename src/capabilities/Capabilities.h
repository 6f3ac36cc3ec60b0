// SPDX-License-Identifier: Apache-2.0
// Table of all capabilities in the order of the pass: kCapabilities.
#pragma once

#include "capabilities/Publication.h"
#include "text/Log.h"
#include "text/Vocabularies.h"

#include <iterator>

namespace qz {

namespace capability {

inline constexpr CapabilityRow kCapabilities[] = {
#define PLAIN(getter, feature, ...) plain(#getter, Feature::feature, __VA_ARGS__),
#define OWN(getter, feature, ...) own(#getter, Feature::feature, __VA_ARGS__),
#include "capabilities/capabilities.inc"
#undef PLAIN
#undef OWN
};

}  // namespace capability

using capability::kCapabilities;

constexpr size_t kCapabilityCount = std::size(kCapabilities);

constexpr bool distinctCapabilities() {
    for (size_t i = 0; i < kCapabilityCount; ++i) {
        for (size_t j = 0; j < i; ++j) {
            const CapabilityRow& a = kCapabilities[i];
            const CapabilityRow& b = kCapabilities[j];
            if (sameText(a.getter, b.getter)) return false;
            if (!a.publishes.empty() && !b.publishes.empty() &&
                sameText(a.publishes[0].key, b.publishes[0].key)) {
                return false;
            }
        }
    }
    return true;
}

constexpr bool soundCapabilities() {
    for (const CapabilityRow& row : kCapabilities) {
        if (row.plain && !soundTexts(row)) return false;
    }
    return true;
}

static_assert(kCapabilityCount == 79);
static_assert(distinctCapabilities(), "each getter has one row, and each key one getter");
static_assert(soundCapabilities(), "texts of plain rows take what they are printed with");

}  // namespace qz
