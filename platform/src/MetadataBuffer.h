// How a metadata buffer lies in memory, and the changes that take the element type from the caller.
#pragma once

#include <system/camera_metadata.h>

#include <cstddef>
#include <cstdint>

// At the start of a buffer; the entries follow it, the data area follows them.
struct camera_metadata {
    uint32_t size;  // bytes of the whole buffer
    uint32_t version;
    uint32_t flags;  // none defined
    uint32_t entryCount;
    uint32_t entryCapacity;
    uint32_t dataStart;  // of the data area, a multiple of 8 from the buffer's start
    uint32_t dataCount;  // bytes used of the data area, a multiple of 8
    uint32_t dataCapacity;
};

namespace qz::host {

// Status as in <system/camera_metadata.h>; here the caller vouches for tag and type.
int addEntry(camera_metadata_t* dst, uint32_t tag, uint8_t type, const void* data, size_t count);
int updateEntry(camera_metadata_t* dst, size_t index, uint8_t type, const void* data, size_t count);

// Copies all entries into an empty buffer that has room for them.
void copyEntries(camera_metadata_t* dst, const camera_metadata_t* src);

}  // namespace qz::host
