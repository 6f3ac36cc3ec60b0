// SPDX-License-Identifier: Apache-2.0
// Random numbers from a seed, the same in every run and on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace qz::compare {

// Mixes every bit of the input into the result.
constexpr uint64_t mix(uint64_t a, uint64_t b = 0) {
    uint64_t x = a + 0x9E3779B97F4A7C15 * (b + 1);
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EB;
    return x ^ (x >> 31);
}

constexpr uint64_t hashOf(std::string_view text) {
    uint64_t hash = 0xCBF29CE484222325;
    for (const char c : text) hash = (hash ^ static_cast<uint8_t>(c)) * 0x100000001B3;
    return hash;
}

class Random {
  public:
    explicit Random(uint64_t seed) : mState(seed) {}

    uint64_t next() { return mix(mState++); }
    size_t below(size_t bound) { return static_cast<size_t>(next() % bound); }
    bool percent(unsigned chance) { return below(100) < chance; }
    int32_t number() { return static_cast<int32_t>(static_cast<uint32_t>(next())); }
    template <typename List>
    auto& of(List& list) {
        return list[below(std::size(list))];
    }

  private:
    uint64_t mState;
};

}  // namespace qz::compare
