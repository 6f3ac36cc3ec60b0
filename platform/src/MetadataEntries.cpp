// SPDX-License-Identifier: Apache-2.0
// Finds and changes the entries of one buffer.
#include "MetadataBuffer.h"

#include <utils/Errors.h>

#include <algorithm>
#include <cstring>
#include <vector>

using android::NAME_NOT_FOUND;
using qz::host::aligned;
using qz::host::BufferEntry;
using qz::host::dataOf;
using qz::host::dataSizeOf;
using qz::host::entriesOf;
using qz::host::kError;
using qz::host::kMaxSize;
using qz::host::kSorted;
using qz::host::liesIn;
using qz::host::refuse;

namespace {

constexpr size_t kInlineSize = sizeof(BufferEntry::content);

static_assert(sizeof(void*) != 4 || sizeof(camera_metadata_ro_entry) == 20, "as the target's code has it");

template <typename Metadata, typename View>
int view(Metadata* metadata, size_t index, View* out) {
    if (metadata == nullptr || out == nullptr || index >= metadata->entryCount) return kError;
    auto& entry = entriesOf(metadata)[index];
    out->index = index;
    out->tag = entry.tag;
    out->type = entry.type;
    out->count = entry.count;
    out->data.u8 = dataSizeOf(entry) > 0 ? dataOf(metadata) + entry.content.offset : entry.content.bytes;
    return 0;
}

template <typename Metadata, typename View>
int findView(Metadata* metadata, uint32_t tag, View* out) {
    if (metadata == nullptr) return kError;
    const BufferEntry* const first = entriesOf(metadata);
    const BufferEntry* const end = first + metadata->entryCount;
    const BufferEntry* const found =
        std::find_if(first, end, [tag](const BufferEntry& entry) { return entry.tag == tag; });
    return found != end ? view(metadata, static_cast<size_t>(found - first), out) : NAME_NOT_FOUND;
}

bool fits(uint8_t type, size_t count, size_t room) {
    const size_t size = calculate_camera_metadata_entry_data_size(type, count);
    return size != SIZE_MAX && size <= room;
}

// The bytes between the end of the elements and the next multiple of 8 are zero, so that equal contents have
// equal bytes.
void copyElements(uint8_t* dst, const void* data, size_t size, size_t room) {
    if (size > 0 && data != nullptr) std::memmove(dst, data, size);
    std::memset(dst + size, 0, room - size);
}

// Stores new elements, in the entry itself or at the end of the data area.
void storeContent(camera_metadata_t* metadata, BufferEntry& entry, const void* data, size_t count) {
    entry.count = static_cast<uint32_t>(count);
    const size_t size = count * camera_metadata_type_size[entry.type];
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
void dropData(camera_metadata_t* metadata, const BufferEntry& entry) {
    const uint32_t size = dataSizeOf(entry);
    if (size == 0) return;
    const uint32_t start = entry.content.offset;
    uint8_t* const gap = dataOf(metadata) + start;
    std::memmove(gap, gap + size, metadata->dataCount - start - size);
    metadata->dataCount -= size;
    BufferEntry* const first = entriesOf(metadata);
    std::for_each(first, first + metadata->entryCount, [start, size](BufferEntry& other) {
        if (dataSizeOf(other) > 0 && other.content.offset > start) other.content.offset -= size;
    });
}

void replaceContent(camera_metadata_t* metadata, BufferEntry& entry, const void* data, size_t count) {
    std::vector<uint8_t> copy;
    if (liesIn(metadata, data)) {  // closing the gap would move these elements
        const auto* const bytes = static_cast<const uint8_t*>(data);
        copy.assign(bytes, bytes + count * camera_metadata_type_size[entry.type]);
        data = copy.data();
    }
    dropData(metadata, entry);
    storeContent(metadata, entry, data, count);
}

// Elements of the same size as the old ones are stored in the same place.
void changeContent(camera_metadata_t* metadata, BufferEntry& entry, const void* data, size_t count) {
    const size_t room = calculate_camera_metadata_entry_data_size(entry.type, count);
    if (room == 0 || room != dataSizeOf(entry)) return replaceContent(metadata, entry, data, count);
    copyElements(dataOf(metadata) + entry.content.offset, data, count * camera_metadata_type_size[entry.type],
                 room);
    entry.count = static_cast<uint32_t>(count);
}

}  // namespace

int qz::host::addEntry(camera_metadata_t* dst, uint32_t tag, uint8_t type, const void* data, size_t count) {
    if (dst == nullptr || type >= NUM_TYPES || (data == nullptr && count > 0)) return kError;
    if (dst->entryCount == dst->entryCapacity || !fits(type, count, dst->dataCapacity - dst->dataCount)) {
        return kError;
    }
    BufferEntry entry = {};
    entry.tag = tag;
    entry.type = type;
    storeContent(dst, entry, data, count);
    entriesOf(dst)[dst->entryCount++] = entry;
    dst->flags &= ~kSorted;
    return 0;
}

size_t calculate_camera_metadata_entry_data_size(uint8_t type, size_t count) {
    if (type >= NUM_TYPES) return 0;
    if (count > kMaxSize / camera_metadata_type_size[type]) return SIZE_MAX;
    const size_t size = count * camera_metadata_type_size[type];
    return size <= kInlineSize ? 0 : aligned(size);
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
    if (type < 0) return kError;
    return qz::host::addEntry(dst, tag, static_cast<uint8_t>(type), data, data_count);
}

int update_camera_metadata_entry(camera_metadata_t* dst, size_t index, const void* data, size_t data_count,
                                 camera_metadata_entry_t* updated_entry) {
    if (dst == nullptr || index >= dst->entryCount) return kError;
    if (data == nullptr && data_count > 0) return refuse(__func__, "there are no data");
    BufferEntry& entry = entriesOf(dst)[index];
    if (!fits(entry.type, data_count, dst->dataCapacity - (dst->dataCount - dataSizeOf(entry))))
        return kError;
    changeContent(dst, entry, data, data_count);
    return updated_entry != nullptr ? view(dst, index, updated_entry) : 0;
}

int delete_camera_metadata_entry(camera_metadata_t* dst, size_t index) {
    if (dst == nullptr || index >= dst->entryCount) return kError;
    BufferEntry* const entry = entriesOf(dst) + index;
    dropData(dst, *entry);
    std::memmove(entry, entry + 1, (dst->entryCount - index - 1) * sizeof(BufferEntry));
    --dst->entryCount;
    return 0;
}

int sort_camera_metadata(camera_metadata_t* dst) {
    if (dst == nullptr) return kError;
    BufferEntry* const first = entriesOf(dst);
    std::stable_sort(first, first + dst->entryCount,
                     [](const BufferEntry& a, const BufferEntry& b) { return a.tag < b.tag; });
    dst->flags |= kSorted;
    return 0;
}
