// SPDX-License-Identifier: Apache-2.0
// Creates, copies, joins and checks whole buffers. MetadataEntries.cpp works on their entries.
#include "MetadataBuffer.h"

#include <android/log.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

using qz::host::aligned;
using qz::host::BufferEntry;
using qz::host::dataOf;
using qz::host::dataSizeOf;
using qz::host::entriesOf;
using qz::host::kAlignment;
using qz::host::kError;
using qz::host::kMaxSize;
using qz::host::kSorted;
using qz::host::refuse;

namespace {

constexpr uint32_t kVersion = 1;

bool isAligned(const void* address) { return reinterpret_cast<uintptr_t>(address) % kAlignment == 0; }

constexpr size_t dataStartOf(size_t entryCapacity) {
    return aligned(sizeof(camera_metadata) + entryCapacity * sizeof(BufferEntry));
}

size_t read(const camera_metadata_t* metadata, uint32_t camera_metadata::*member, const char* function) {
    if (metadata != nullptr) return metadata->*member;
    refuse(function, "the buffer is null");
    return 0;
}

// The elements of the appended entries are stored after the earlier data.
void shiftData(BufferEntry* first, size_t count, uint32_t offset) {
    std::for_each(first, first + count, [offset](BufferEntry& entry) {
        if (dataSizeOf(entry) > 0) entry.content.offset += offset;
    });
}

bool isHeaderSound(const camera_metadata& header, size_t size) {
    const uint64_t entriesEnd = sizeof header + uint64_t{header.entryCapacity} * sizeof(BufferEntry);
    return header.version == kVersion && header.size <= size && header.size <= kMaxSize &&
           header.entryCount <= header.entryCapacity && header.dataCount <= header.dataCapacity &&
           header.dataStart % kAlignment == 0 && header.dataStart >= entriesEnd &&
           uint64_t{header.dataStart} + header.dataCapacity <= header.size;
}

// The type of a vendor tag is not looked up: its descriptor may not be set yet.
bool isTypeSound(const BufferEntry& entry) {
    if (entry.type >= NUM_TYPES) return false;
    return entry.tag >= CAMERA_METADATA_VENDOR_TAG_BOUNDARY ||
           get_camera_metadata_tag_type(entry.tag) == entry.type;
}

using Extent = std::pair<uint64_t, uint64_t>;  // offset and size

bool areTiles(std::vector<Extent>& extents, uint64_t end) {
    std::sort(extents.begin(), extents.end());
    uint64_t next = 0;
    for (const auto& [offset, size] : extents) {
        if (offset != next) return false;
        next += size;
    }
    return next == end;
}

}  // namespace

namespace qz::host {

int refuse(const char* function, const char* reason) {
    __android_log_print(ANDROID_LOG_ERROR, "camera_metadata", "%s: %s", function, reason);
    return kError;
}

bool liesIn(const camera_metadata_t* metadata, const void* address) {
    const auto start = reinterpret_cast<uintptr_t>(metadata);
    const auto wanted = reinterpret_cast<uintptr_t>(address);
    return metadata != nullptr && wanted >= start && wanted - start < metadata->size;
}

}  // namespace qz::host

size_t calculate_camera_metadata_size(size_t entry_capacity, size_t data_capacity) {
    if (entry_capacity > kMaxSize / sizeof(BufferEntry) || data_capacity > kMaxSize) return SIZE_MAX;
    const size_t size = dataStartOf(entry_capacity) + aligned(data_capacity);
    return size <= kMaxSize ? size : SIZE_MAX;
}

camera_metadata_t* allocate_camera_metadata(size_t entry_capacity, size_t data_capacity) {
    const size_t size = calculate_camera_metadata_size(entry_capacity, data_capacity);
    void* const memory = size != SIZE_MAX ? std::malloc(size) : nullptr;
    return memory != nullptr ? place_camera_metadata(memory, size, entry_capacity, data_capacity) : nullptr;
}

void free_camera_metadata(camera_metadata_t* metadata) { std::free(metadata); }

camera_metadata_t* place_camera_metadata(void* dst, size_t dst_size, size_t entry_capacity,
                                         size_t data_capacity) {
    const size_t size = calculate_camera_metadata_size(entry_capacity, data_capacity);
    if (dst == nullptr || size > dst_size || size == SIZE_MAX) return nullptr;
    if (!isAligned(dst)) {
        refuse(__func__, "the memory does not start on 8 bytes");
        return nullptr;
    }
    auto* const metadata = static_cast<camera_metadata_t*>(std::memset(dst, 0, size));
    metadata->size = static_cast<uint32_t>(size);
    metadata->version = kVersion;
    metadata->entryCapacity = static_cast<uint32_t>(entry_capacity);
    metadata->dataStart = static_cast<uint32_t>(dataStartOf(entry_capacity));
    metadata->dataCapacity = static_cast<uint32_t>(data_capacity);
    return metadata;
}

camera_metadata_t* clone_camera_metadata(const camera_metadata_t* src) {
    if (src == nullptr) return nullptr;
    camera_metadata_t* const clone = allocate_camera_metadata(src->entryCount, src->dataCount);
    if (clone != nullptr) append_camera_metadata(clone, src);
    return clone;
}

camera_metadata_t* copy_camera_metadata(void* dst, size_t dst_size, const camera_metadata_t* src) {
    if (src == nullptr) {
        refuse(__func__, "the buffer is null");
        return nullptr;
    }
    camera_metadata_t* const copy = place_camera_metadata(dst, dst_size, src->entryCount, src->dataCount);
    if (copy != nullptr) append_camera_metadata(copy, src);
    return copy;
}

camera_metadata_t* allocate_copy_camera_metadata_checked(const camera_metadata_t* src, size_t src_size) {
    if (src == nullptr || src_size < sizeof(camera_metadata)) return nullptr;
    void* const memory = std::malloc(src_size);
    if (memory == nullptr) return nullptr;
    auto* const copy = static_cast<camera_metadata_t*>(std::memcpy(memory, src, src_size));
    if (validate_camera_metadata_structure(copy, &src_size) == 0) return copy;
    std::free(memory);
    return nullptr;
}

int append_camera_metadata(camera_metadata_t* dst, const camera_metadata_t* src) {
    if (dst == nullptr || src == nullptr) return kError;
    const uint32_t entries = src->entryCount;  // both may be one buffer
    const uint32_t data = src->dataCount;
    if (entries > dst->entryCapacity - dst->entryCount || data > dst->dataCapacity - dst->dataCount) {
        return kError;
    }
    if (entries > 0) dst->flags = dst->entryCount == 0 ? src->flags & kSorted : dst->flags & ~kSorted;
    BufferEntry* const first = entriesOf(dst) + dst->entryCount;
    std::copy_n(entriesOf(src), entries, first);
    std::copy_n(dataOf(src), data, dataOf(dst) + dst->dataCount);
    shiftData(first, entries, dst->dataCount);
    dst->entryCount += entries;
    dst->dataCount += data;
    return 0;
}

size_t get_camera_metadata_entry_count(const camera_metadata_t* metadata) {
    return read(metadata, &camera_metadata::entryCount, __func__);
}

size_t get_camera_metadata_entry_capacity(const camera_metadata_t* metadata) {
    return read(metadata, &camera_metadata::entryCapacity, __func__);
}

size_t get_camera_metadata_data_count(const camera_metadata_t* metadata) {
    return read(metadata, &camera_metadata::dataCount, __func__);
}

size_t get_camera_metadata_data_capacity(const camera_metadata_t* metadata) {
    return read(metadata, &camera_metadata::dataCapacity, __func__);
}

// For a null buffer these two functions return the status 1; the functions above return 0.
size_t get_camera_metadata_size(const camera_metadata_t* metadata) {
    return metadata != nullptr ? metadata->size : size_t{kError};
}

size_t get_camera_metadata_compact_size(const camera_metadata_t* metadata) {
    if (metadata == nullptr) return size_t{kError};
    return calculate_camera_metadata_size(metadata->entryCount, metadata->dataCount);
}

int validate_camera_metadata_structure(const camera_metadata_t* metadata, const size_t* expected_size) {
    if (metadata == nullptr || !isAligned(metadata)) return kError;
    const size_t size = expected_size != nullptr ? *expected_size : kMaxSize;
    if (size < sizeof(camera_metadata) || !isHeaderSound(*metadata, size)) return kError;
    std::vector<Extent> extents;
    const BufferEntry* const first = entriesOf(metadata);
    for (const BufferEntry* entry = first; entry != first + metadata->entryCount; ++entry) {
        const size_t dataSize = calculate_camera_metadata_entry_data_size(entry->type, entry->count);
        if (!isTypeSound(*entry) || dataSize == SIZE_MAX) return kError;
        if (dataSize > 0) extents.emplace_back(entry->content.offset, dataSize);
    }
    return areTiles(extents, metadata->dataCount) ? 0 : kError;
}
