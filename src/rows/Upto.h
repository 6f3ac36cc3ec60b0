// SPDX-License-Identifier: Apache-2.0
// A short list in a row: at most N items, known at compile time, as in {"a", "b"}.
#pragma once

#include <cstddef>

namespace qz {

template <typename T, size_t N>
struct Upto {
    T items[N]{};
    size_t count = 0;

    constexpr Upto() = default;
    template <typename... Items>
    constexpr Upto(const T& first, const Items&... others)
        : items{first, others...}, count(1 + sizeof...(others)) {}

    constexpr void add(const T& item) { items[count++] = item; }
    constexpr bool has(const T& wanted) const {
        for (const T& item : *this) {
            if (item == wanted) return true;
        }
        return false;
    }
    constexpr bool empty() const { return count == 0; }
    constexpr const T& operator[](size_t i) const { return items[i]; }
    constexpr const T* begin() const { return items; }
    constexpr const T* end() const { return items + count; }
};

}  // namespace qz
