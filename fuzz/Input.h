// SPDX-License-Identifier: Apache-2.0
// The bytes of one execution, read from front to back. At the end every read returns 0. So seeds stay
// readable, and a longer input begins with the same steps.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace qz::fuzz {

class Input {
  public:
    Input(const uint8_t* data, size_t size) : mData(data), mSize(size) {}

    bool atEnd() const { return mSize == 0; }

    template <typename T = uint8_t>
    T number() {
        T value{};
        take(&value, sizeof(value));
        return value;
    }

    bool flag() { return (number() & 1) != 0; }

    // Returns a number from 0 to `bound` - 1; `bound` is at most 65536.
    size_t below(size_t bound) {
        if (bound <= 1) return 0;
        return (bound <= 256 ? number<uint8_t>() : number<uint16_t>()) % bound;
    }

    template <typename Container>
    const auto& oneOf(const Container& choices) {
        return choices[below(std::size(choices))];
    }

    // Reads a length of one byte, then up to that many bytes.
    std::string bytes(size_t most = 255) {
        std::string bytes(std::min({size_t{number()}, most, mSize}), '\0');
        take(bytes.data(), bytes.size());
        return bytes;
    }

    std::string_view rest() {
        const std::string_view all(reinterpret_cast<const char*>(mData), mSize);
        mSize = 0;
        return all;
    }

  private:
    void take(void* to, size_t size) {
        const size_t taken = std::min(size, mSize);
        if (taken == 0) return;
        memcpy(to, mData, taken);
        mData += taken;
        mSize -= taken;
    }

    const uint8_t* mData;
    size_t mSize;
};

}  // namespace qz::fuzz
