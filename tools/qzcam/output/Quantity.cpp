// SPDX-License-Identifier: Apache-2.0
#include "output/Quantity.h"

#include <host/StandardTags.h>

#include <cmath>
#include <type_traits>

namespace qzcam {

std::optional<double> quantityOf(const Values& values, uint32_t tag) {
    if (values.count != 1 || values.type == TYPE_BYTE || values.type >= NUM_TYPES) return std::nullopt;
    const double number = withElementType(values.type, [&](auto zero) {
        const auto element = elementAt<decltype(zero)>(values, 0);
        if constexpr (std::is_same_v<decltype(zero), camera_metadata_rational_t>) {
            return static_cast<double>(element.numerator) / element.denominator;
        } else {
            return static_cast<double>(element);
        }
    });
    const bool isWord =
        values.type == TYPE_INT32 && qz::host::nameOfValue(tag, elementAt<int32_t>(values, 0)) != nullptr;
    return isWord || !std::isfinite(number) ? std::nullopt : std::optional(number);
}

}  // namespace qzcam
