// How a metadata buffer lies in memory, for the sources that work on one.
#pragma once

#include <system/camera_metadata.h>

#include <cstddef>
#include <cstdint>

// At the start of a buffer; the entries follow it, the data area follows them.
struct camera_metadata {
    uint32_t size;  // bytes of the whole buffer
    uint32_t version;
    uint32_t flags;
    uint32_t entryCount;
    uint32_t entryCapacity;
    uint32_t dataStart;  // of the data area, a multiple of 8 from the buffer's start
    uint32_t dataCount;  // bytes used of the data area, a multiple of 8
    uint32_t dataCapacity;
};

namespace qz::host {

struct BufferEntry {
    uint32_t tag;
    uint32_t count;
    union {
        uint32_t offset;   // into the data area, a multiple of 8, when the elements do not fit here
        uint8_t bytes[4];  // the elements themselves
    } content;
    uint8_t type;
    uint8_t reserved[3];
};

constexpr int kError = 1;               // the status of all that is refused
constexpr uint32_t kSorted = 1;         // a flag: the entries are in the order of their tags
constexpr size_t kAlignment = 8;        // of a buffer and of everything in its data area
constexpr size_t kMaxSize = INT32_MAX;  // of a buffer; keeps every sum of two sizes inside 32 bits

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

// Bytes of the data area that an entry of a sound buffer takes.
inline uint32_t dataSizeOf(const BufferEntry& entry) {
    return static_cast<uint32_t>(calculate_camera_metadata_entry_data_size(entry.type, entry.count));
}

// Whether the address is one of the buffer's own; of a null buffer none is.
bool liesIn(const camera_metadata_t* metadata, const void* address);

// As add_camera_metadata_entry(), but the caller vouches for tag and type.
int addEntry(camera_metadata_t* dst, uint32_t tag, uint8_t type, const void* data, size_t count);

// Writes an error line and returns kError.
int refuse(const char* function, const char* reason);

}  // namespace qz::host
