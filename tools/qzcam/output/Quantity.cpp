// SPDX-License-Identifier: Apache-2.0
#include "output/Quantity.h"

#include <host/StandardTags.h>

#include <cmath>
#include <cstring>

namespace qzcam {

namespace {

template <typename T>
T first(const Values& values) {
    T element{};
    std::memcpy(&element, values.bytes.data(), sizeof(element));
    return element;
}

double firstNumber(const Values& values) {
    switch (values.type) {
        case TYPE_INT32:
            return first<int32_t>(values);
        case TYPE_INT64:
            return static_cast<double>(first<int64_t>(values));
        case TYPE_FLOAT:
            return static_cast<double>(first<float>(values));
        case TYPE_DOUBLE:
            return first<double>(values);
        case TYPE_RATIONAL: {
            const auto ratio = first<camera_metadata_rational_t>(values);
            return static_cast<double>(ratio.numerator) / ratio.denominator;
        }
        default:  // a mode
            return std::nan("");
    }
}

}  // namespace

std::optional<double> quantityOf(const Values& values, uint32_t tag) {
    if (values.count != 1) return std::nullopt;
    const double number = firstNumber(values);
    const bool isWord =
        values.type == TYPE_INT32 && qz::host::nameOfValue(tag, first<int32_t>(values)) != nullptr;
    return isWord || !std::isfinite(number) ? std::nullopt : std::optional(number);
}

}  // namespace qzcam
