// SPDX-License-Identifier: Apache-2.0
// Memory layout of a metadata buffer, for the sources that work on one.
#pragma once

#include <system/camera_metadata.h>

#include <cstddef>
#include <cstdint>

// Header of a buffer. The entries follow it, and the data area follows the entries.
struct camera_metadata {
    uint32_t size;  // bytes of the whole buffer
    uint32_t version;
    uint32_t flags;
    uint32_t entryCount;
    uint32_t entryCapacity;
    uint32_t dataStart;  // offset of the data area, a multiple of 8
    uint32_t dataCount;  // used bytes of the data area, a multiple of 8
    uint32_t dataCapacity;
};

namespace qz::host {

struct BufferEntry {
    uint32_t tag;
    uint32_t count;
    union {
        uint32_t offset;   // offset in the data area, a multiple of 8, if the elements do not fit here
        uint8_t bytes[4];  // the elements themselves
    } content;
    uint8_t type;
    uint8_t reserved[3];
};

constexpr int kError = 1;               // status of every refusal
constexpr uint32_t kSorted = 1;         // a flag: the entries are in the order of their tags
constexpr size_t kAlignment = 8;        // alignment of a buffer and of everything in its data area
constexpr size_t kMaxSize = INT32_MAX;  // largest buffer; a sum of two sizes stays within 32 bits

static_assert(sizeof(BufferEntry) == 16);
static_assert(sizeof(camera_metadata) % alignof(BufferEntry) == 0);

constexpr size_t aligned(size_t size) { return (size + kAlignment - 1) / kAlignment * kAlignment; }

inline BufferEntry* entriesOf(camera_metadata_t* metadata) {
    return reinterpret_cast<BufferEntry*>(metadata + 1);
}
inline const BufferEntry* entriesOf(const camera_metadata_t* metadata) {
    return reinterpret_cast<const BufferEntry*>(metadata + 1);
}

inline uint8_t* dataOf(camera_metadata_t* metadata) {
    return reinterpret_cast<uint8_t*>(metadata) + metadata->dataStart;
}
inline const uint8_t* dataOf(const camera_metadata_t* metadata) {
    return reinterpret_cast<const uint8_t*>(metadata) + metadata->dataStart;
}

// Returns the bytes of data area that an entry of a valid buffer uses.
inline uint32_t dataSizeOf(const BufferEntry& entry) {
    return static_cast<uint32_t>(calculate_camera_metadata_entry_data_size(entry.type, entry.count));
}

// Returns true if the address is inside the buffer; a null buffer contains none.
bool liesIn(const camera_metadata_t* metadata, const void* address);

// Like add_camera_metadata_entry(), but the caller guarantees that tag and type are correct.
int addEntry(camera_metadata_t* dst, uint32_t tag, uint8_t type, const void* data, size_t count);

// Logs an error and returns kError.
int refuse(const char* function, const char* reason);

}  // namespace qz::host
