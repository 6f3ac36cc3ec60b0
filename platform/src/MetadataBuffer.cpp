#include "MetadataBuffer.h"

#include <utils/Errors.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

using android::BAD_VALUE;
using android::NAME_NOT_FOUND;
using android::NO_MEMORY;
using android::OK;

namespace {

struct Entry {
    uint32_t tag;
    uint32_t count;
    union {
        uint32_t offset;   // into the data area, a multiple of 8, when the elements do not fit here
        uint8_t bytes[4];  // the elements themselves
    } content;
    uint8_t type;
    uint8_t reserved[3];
};

constexpr size_t kMaxSize = INT32_MAX;  // of a buffer; keeps every sum of two sizes inside 32 bits
constexpr size_t kInlineSize = sizeof(Entry::content);
constexpr size_t kAlignment = 8;
constexpr uint32_t kVersion = 1;

static_assert(sizeof(Entry) == 16);
static_assert(sizeof(camera_metadata) % alignof(Entry) == 0);
static_assert(sizeof(void*) != 4 || sizeof(camera_metadata_ro_entry) == 20, "as the target's code has it");

constexpr size_t aligned(size_t size) { return (size + kAlignment - 1) / kAlignment * kAlignment; }

Entry* entriesOf(camera_metadata_t* metadata) { return reinterpret_cast<Entry*>(metadata + 1); }
const Entry* entriesOf(const camera_metadata_t* metadata) {
    return reinterpret_cast<const Entry*>(metadata + 1);
}

uint8_t* dataOf(camera_metadata_t* metadata) {
    return reinterpret_cast<uint8_t*>(metadata) + metadata->dataStart;
}
const uint8_t* dataOf(const camera_metadata_t* metadata) {
    return reinterpret_cast<const uint8_t*>(metadata) + metadata->dataStart;
}

// Bytes of the data area that an entry of a valid buffer takes.
uint32_t dataSizeOf(const Entry& entry) {
    return static_cast<uint32_t>(calculate_camera_metadata_entry_data_size(entry.type, entry.count));
}

template <typename Metadata, typename View>
int view(Metadata* metadata, size_t index, View* out) {
    if (index >= get_camera_metadata_entry_count(metadata)) return NAME_NOT_FOUND;
    if (out == nullptr) return BAD_VALUE;
    auto& entry = entriesOf(metadata)[index];
    out->index = index;
    out->tag = entry.tag;
    out->type = entry.type;
    out->count = entry.count;
    out->data.u8 = dataSizeOf(entry) > 0 ? dataOf(metadata) + entry.content.offset : entry.content.bytes;
    return OK;
}

template <typename Metadata, typename View>
int findView(Metadata* metadata, uint32_t tag, View* out) {
    const size_t count = get_camera_metadata_entry_count(metadata);
    if (count == 0) return NAME_NOT_FOUND;
    const Entry* const first = entriesOf(metadata);
    const Entry* const found =
        std::find_if(first, first + count, [tag](const Entry& entry) { return entry.tag == tag; });
    return view(metadata, static_cast<size_t>(found - first), out);
}

int checkContent(uint8_t type, const void* data, size_t count) {
    if (type >= NUM_TYPES || (data == nullptr && count > 0)) return BAD_VALUE;
    return calculate_camera_metadata_entry_data_size(type, count) == SIZE_MAX ? NO_MEMORY : OK;
}

// The bytes between an element's end and the next multiple of 8 are kept zero, so that equal contents are
// equal bytes.
void copyElements(uint8_t* dst, const void* data, size_t size, size_t room) {
    if (size > 0) std::memmove(dst, data, size);
    std::memset(dst + size, 0, room - size);
}

// Stores new elements, those of the data area at its end.
void storeContent(camera_metadata_t* metadata, Entry& entry, uint8_t type, const void* data, size_t count) {
    entry.type = type;
    entry.count = static_cast<uint32_t>(count);
    const size_t size = count * camera_metadata_type_size[type];
    const uint32_t room = dataSizeOf(entry);
    if (room == 0) {
        copyElements(entry.content.bytes, data, size, kInlineSize);
        return;
    }
    entry.content.offset = metadata->dataCount;
    copyElements(dataOf(metadata) + entry.content.offset, data, size, room);
    metadata->dataCount += room;
}

// Closes the gap that the entry leaves in the data area.
void dropData(camera_metadata_t* metadata, const Entry& entry) {
    const uint32_t size = dataSizeOf(entry);
    if (size == 0) return;
    const uint32_t start = entry.content.offset;
    uint8_t* const gap = dataOf(metadata) + start;
    std::memmove(gap, gap + size, metadata->dataCount - start - size);
    metadata->dataCount -= size;
    Entry* const first = entriesOf(metadata);
    std::for_each(first, first + metadata->entryCount, [start, size](Entry& other) {
        if (dataSizeOf(other) > 0 && other.content.offset > start) other.content.offset -= size;
    });
}

bool liesIn(const camera_metadata_t* metadata, const void* data) {
    const auto start = reinterpret_cast<uintptr_t>(metadata);
    const auto address = reinterpret_cast<uintptr_t>(data);
    return address >= start && address - start < metadata->size;
}

void replaceContent(camera_metadata_t* metadata, Entry& entry, uint8_t type, const void* data, size_t count) {
    std::vector<uint8_t> copy;
    if (liesIn(metadata, data)) {  // closing the gap would move the elements away
        const auto* const bytes = static_cast<const uint8_t*>(data);
        copy.assign(bytes, bytes + count * camera_metadata_type_size[type]);
        data = copy.data();
    }
    dropData(metadata, entry);
    storeContent(metadata, entry, type, data, count);
}

bool isHeaderSound(const camera_metadata& header, size_t size) {
    const uint64_t entriesEnd = sizeof header + uint64_t{header.entryCapacity} * sizeof(Entry);
    return header.version == kVersion && header.size <= size && header.size <= kMaxSize &&
           header.entryCount <= header.entryCapacity && header.dataCount <= header.dataCapacity &&
           header.dataStart % kAlignment == 0 && header.dataStart >= entriesEnd &&
           uint64_t{header.dataStart} + header.dataCapacity <= header.size;
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

int addEntry(camera_metadata_t* dst, uint32_t tag, uint8_t type, const void* data, size_t count) {
    if (dst == nullptr) return BAD_VALUE;
    if (const int status = checkContent(type, data, count); status != OK) return status;
    if (dst->entryCount == dst->entryCapacity) return NO_MEMORY;
    if (calculate_camera_metadata_entry_data_size(type, count) > dst->dataCapacity - dst->dataCount) {
        return NO_MEMORY;
    }
    Entry entry = {};
    entry.tag = tag;
    storeContent(dst, entry, type, data, count);
    entriesOf(dst)[dst->entryCount++] = entry;
    return OK;
}

int updateEntry(camera_metadata_t* dst, size_t index, uint8_t type, const void* data, size_t count) {
    if (index >= get_camera_metadata_entry_count(dst)) return NAME_NOT_FOUND;
    if (const int status = checkContent(type, data, count); status != OK) return status;
    Entry& entry = entriesOf(dst)[index];
    const size_t oldSize = dataSizeOf(entry);
    const size_t newSize = calculate_camera_metadata_entry_data_size(type, count);
    if (newSize > dst->dataCapacity - (dst->dataCount - oldSize)) return NO_MEMORY;
    if (newSize > 0 && newSize == oldSize) {
        copyElements(dataOf(dst) + entry.content.offset, data, count * camera_metadata_type_size[type],
                     newSize);
        entry.type = type;
        entry.count = static_cast<uint32_t>(count);
    } else {
        replaceContent(dst, entry, type, data, count);
    }
    return OK;
}

void copyEntries(camera_metadata_t* dst, const camera_metadata_t* src) {
    std::memcpy(entriesOf(dst), entriesOf(src), src->entryCount * sizeof(Entry));
    std::memcpy(dataOf(dst), dataOf(src), src->dataCount);
    dst->entryCount = src->entryCount;
    dst->dataCount = src->dataCount;
}

}  // namespace qz::host

size_t calculate_camera_metadata_entry_data_size(uint8_t type, size_t count) {
    if (type >= NUM_TYPES || count > kMaxSize / camera_metadata_type_size[type]) return SIZE_MAX;
    const size_t size = count * camera_metadata_type_size[type];
    return size <= kInlineSize ? 0 : aligned(size);
}

camera_metadata_t* allocate_camera_metadata(size_t entry_capacity, size_t data_capacity) {
    if (entry_capacity > kMaxSize / sizeof(Entry) || data_capacity > kMaxSize) return nullptr;
    const size_t dataStart = aligned(sizeof(camera_metadata) + entry_capacity * sizeof(Entry));
    const size_t size = dataStart + data_capacity;
    if (size > kMaxSize) return nullptr;
    auto* const metadata = static_cast<camera_metadata_t*>(std::calloc(1, size));
    if (metadata == nullptr) return nullptr;
    metadata->size = static_cast<uint32_t>(size);
    metadata->version = kVersion;
    metadata->entryCapacity = static_cast<uint32_t>(entry_capacity);
    metadata->dataStart = static_cast<uint32_t>(dataStart);
    metadata->dataCapacity = static_cast<uint32_t>(data_capacity);
    return metadata;
}

void free_camera_metadata(camera_metadata_t* metadata) { std::free(metadata); }

camera_metadata_t* clone_camera_metadata(const camera_metadata_t* src) {
    if (src == nullptr) return nullptr;
    camera_metadata_t* const clone = allocate_camera_metadata(src->entryCapacity, src->dataCapacity);
    if (clone != nullptr) qz::host::copyEntries(clone, src);
    return clone;
}

size_t get_camera_metadata_entry_count(const camera_metadata_t* metadata) {
    return metadata != nullptr ? metadata->entryCount : 0;
}

size_t get_camera_metadata_entry_capacity(const camera_metadata_t* metadata) {
    return metadata != nullptr ? metadata->entryCapacity : 0;
}

size_t get_camera_metadata_data_count(const camera_metadata_t* metadata) {
    return metadata != nullptr ? metadata->dataCount : 0;
}

size_t get_camera_metadata_data_capacity(const camera_metadata_t* metadata) {
    return metadata != nullptr ? metadata->dataCapacity : 0;
}

size_t get_camera_metadata_size(const camera_metadata_t* metadata) {
    return metadata != nullptr ? metadata->size : 0;
}

int get_camera_metadata_entry(camera_metadata_t* src, size_t index, camera_metadata_entry_t* entry) {
    return view(src, index, entry);
}

int get_camera_metadata_ro_entry(const camera_metadata_t* src, size_t index,
                                 camera_metadata_ro_entry_t* entry) {
    return view(src, index, entry);
}

int find_camera_metadata_entry(camera_metadata_t* src, uint32_t tag, camera_metadata_entry_t* entry) {
    return findView(src, tag, entry);
}

int find_camera_metadata_ro_entry(const camera_metadata_t* src, uint32_t tag,
                                  camera_metadata_ro_entry_t* entry) {
    return findView(src, tag, entry);
}

int add_camera_metadata_entry(camera_metadata_t* dst, uint32_t tag, const void* data, size_t data_count) {
    const int type = get_camera_metadata_tag_type(tag);
    if (type < 0) return BAD_VALUE;
    return qz::host::addEntry(dst, tag, static_cast<uint8_t>(type), data, data_count);
}

int update_camera_metadata_entry(camera_metadata_t* dst, size_t index, const void* data, size_t data_count,
                                 camera_metadata_entry_t* updated_entry) {
    if (index >= get_camera_metadata_entry_count(dst)) return NAME_NOT_FOUND;
    const int status = qz::host::updateEntry(dst, index, entriesOf(dst)[index].type, data, data_count);
    return status != OK || updated_entry == nullptr ? status : view(dst, index, updated_entry);
}

int delete_camera_metadata_entry(camera_metadata_t* dst, size_t index) {
    if (index >= get_camera_metadata_entry_count(dst)) return NAME_NOT_FOUND;
    Entry* const entry = entriesOf(dst) + index;
    dropData(dst, *entry);
    std::memmove(entry, entry + 1, (dst->entryCount - index - 1) * sizeof(Entry));
    --dst->entryCount;
    return OK;
}

int validate_camera_metadata_structure(const camera_metadata_t* metadata, size_t size) {
    if (metadata == nullptr || reinterpret_cast<uintptr_t>(metadata) % kAlignment != 0) return BAD_VALUE;
    if (size < sizeof(camera_metadata) || !isHeaderSound(*metadata, size)) return BAD_VALUE;
    std::vector<Extent> extents;
    const Entry* const first = entriesOf(metadata);
    for (const Entry* entry = first; entry != first + metadata->entryCount; ++entry) {
        const size_t dataSize = calculate_camera_metadata_entry_data_size(entry->type, entry->count);
        if (dataSize == SIZE_MAX) return BAD_VALUE;
        if (dataSize > 0) extents.emplace_back(entry->content.offset, dataSize);
    }
    return areTiles(extents, metadata->dataCount) ? OK : BAD_VALUE;
}
