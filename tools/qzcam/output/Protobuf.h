// SPDX-License-Identifier: Apache-2.0
// Writes the wire format of protocol buffers, with the parts that track events need.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace qzcam {

// Builds one message, field by field. Fields may come in any order, and repeated ones several times.
class ProtoMessage {
  public:
    ProtoMessage& number(uint32_t field, uint64_t value) {
        key(field, kVarint);
        varint(value);
        return *this;
    }
    ProtoMessage& real(uint32_t field, double value) {
        key(field, kFixed64);
        uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof(bits));
        for (int byte = 0; byte < 8; ++byte, bits >>= 8U) mBytes += static_cast<char>(bits & 0xffU);
        return *this;
    }
    ProtoMessage& text(uint32_t field, std::string_view value) {
        key(field, kBytes);
        varint(value.size());
        mBytes += value;
        return *this;
    }
    ProtoMessage& message(uint32_t field, const ProtoMessage& value) { return text(field, value.mBytes); }

    const std::string& bytes() const { return mBytes; }

  private:
    static constexpr uint32_t kVarint = 0;
    static constexpr uint32_t kFixed64 = 1;
    static constexpr uint32_t kBytes = 2;

    void key(uint32_t field, uint32_t type) { varint((uint64_t{field} << 3U) | type); }
    void varint(uint64_t value) {
        for (; value > 0x7fU; value >>= 7U) mBytes += static_cast<char>((value & 0x7fU) | 0x80U);
        mBytes += static_cast<char>(value);
    }

    std::string mBytes;
};

}  // namespace qzcam
