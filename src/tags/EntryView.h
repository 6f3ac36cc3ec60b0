// SPDX-License-Identifier: Apache-2.0
// A typed view of a metadata entry that never reads outside the entry's own bytes. An entry whose elements
// have another type than the expected one counts as empty, whatever the vendor's HAL has declared.
#pragma once

#include <system/camera_metadata.h>

#include <cstddef>
#include <cstdint>

namespace qz {

template <typename T>
struct ElementType;
template <>
struct ElementType<uint8_t> {
    static constexpr uint8_t code = TYPE_BYTE;
    static const uint8_t* data(const camera_metadata_ro_entry& entry) { return entry.data.u8; }
};
template <>
struct ElementType<int32_t> {
    static constexpr uint8_t code = TYPE_INT32;
    static const int32_t* data(const camera_metadata_ro_entry& entry) { return entry.data.i32; }
};
template <>
struct ElementType<int64_t> {
    static constexpr uint8_t code = TYPE_INT64;
    static const int64_t* data(const camera_metadata_ro_entry& entry) { return entry.data.i64; }
};
template <>
struct ElementType<float> {
    static constexpr uint8_t code = TYPE_FLOAT;
    static const float* data(const camera_metadata_ro_entry& entry) { return entry.data.f; }
};

template <typename T>
class EntryView {
  public:
    EntryView() = default;
    explicit EntryView(const camera_metadata_ro_entry& entry) {
        // The other fields of an absent entry are undefined.
        if (entry.count == 0 || entry.type != ElementType<T>::code) return;
        mData = ElementType<T>::data(entry);
        mCount = entry.count;
    }

    size_t count() const { return mCount; }
    const T& operator[](size_t index) const { return mData[index]; }
    const T* begin() const { return mData; }
    const T* end() const { return mData + mCount; }

  private:
    const T* mData = nullptr;
    size_t mCount = 0;
};

}  // namespace qz
