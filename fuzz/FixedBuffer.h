// SPDX-License-Identifier: Apache-2.0
// A buffer that does not grow, and its model.
#pragma once

#include "MetadataModel.h"

#include <cstdlib>
#include <numeric>
#include <utility>

namespace qz::fuzz {

// The C functions, which do not check for a tag that is already present.
class FixedBuffer {
  public:
    FixedBuffer(size_t entries, size_t data)
        : mBuffer(allocate_camera_metadata(entries, data)), mEntries(entries), mData(data) {}
    ~FixedBuffer() { free_camera_metadata(mBuffer); }
    FixedBuffer(const FixedBuffer&) = delete;
    FixedBuffer& operator=(const FixedBuffer&) = delete;

    size_t count() const { return mModel.entries.size(); }
    uint32_t tagAt(size_t index) const { return mModel.entries[index].tag; }

    void add(const Entry& entry) {
        const bool fits = hasRoom(1, roomOf(entry));
        const int status =
            add_camera_metadata_entry(mBuffer, entry.tag, entry.bytes.data(), elementsOf(entry));
        require(status == (fits ? android::OK : kRefused), "an entry is added when there is room");
        if (fits) mModel.entries.push_back(entry);
    }

    void update(size_t index, const Entry& entry) {
        const bool fits = index < count() && used() - roomOf(mModel.entries[index]) + roomOf(entry) <= mData;
        camera_metadata_entry_t updated{};
        const int status =
            update_camera_metadata_entry(mBuffer, index, entry.bytes.data(), elementsOf(entry), &updated);
        require(status == (fits ? android::OK : kRefused), "an entry is updated when there is room");
        require(!fits || (updated.index == index && updated.count == elementsOf(entry)), "and shown");
        if (fits) mModel.entries[index] = entry;
    }

    void erase(size_t index) {
        const bool present = index < count();
        require(delete_camera_metadata_entry(mBuffer, index) == (present ? android::OK : kRefused),
                "what is there is deleted");
        if (present) mModel.entries.erase(mModel.entries.begin() + static_cast<std::ptrdiff_t>(index));
    }

    void sort() {
        require(sort_camera_metadata(mBuffer) == android::OK, "a buffer is sorted");
        mModel.sort();
    }

    void appendItself() {
        const bool fits = hasRoom(count(), used());
        require(append_camera_metadata(mBuffer, mBuffer) == (fits ? android::OK : kRefused),
                "entries are appended when there is room");
        if (fits) mModel.append(Model(mModel));
    }

    // A copy has no room left.
    void becomeCopy(size_t how) {
        const size_t size = get_camera_metadata_compact_size(mBuffer);
        if (how == 0) {
            take(clone_camera_metadata(mBuffer));
        } else {
            void* const memory = std::malloc(size);
            require(copy_camera_metadata(memory, size - 1, mBuffer) == nullptr, "a copy needs its size");
            take(copy_camera_metadata(memory, size, mBuffer));
        }
        mEntries = count();
        mData = used();
        require(get_camera_metadata_size(mBuffer) == size, "a copy has the size that it needs");
    }

    void becomeLarger(size_t entries, size_t data) {
        mEntries = count() + entries;
        mData = used() + data;
        camera_metadata_t* const larger = allocate_camera_metadata(mEntries, mData);
        require(append_camera_metadata(larger, mBuffer) == android::OK, "there is room for all");
        take(larger);
    }

    void requireSame() const {
        require(isSound(mBuffer), "the structure is valid");
        for (size_t i = 0; i < count(); ++i) {
            camera_metadata_ro_entry_t view{};
            require(get_camera_metadata_ro_entry(mBuffer, i, &view) == android::OK, "no entry is missing");
            requireEntry(view, mModel.entries[i], mBuffer);
        }
        require(get_camera_metadata_entry_count(mBuffer) == count(), "no entry too many");
        require(get_camera_metadata_data_count(mBuffer) == used(), "the data area has no gaps");
    }

  private:
    static size_t roomOf(const Entry& entry) {
        return calculate_camera_metadata_entry_data_size(entry.type, elementsOf(entry));
    }
    size_t used() const {
        return std::accumulate(mModel.entries.begin(), mModel.entries.end(), size_t{0},
                               [](size_t sum, const Entry& entry) { return sum + roomOf(entry); });
    }
    bool hasRoom(size_t entries, size_t data) const {
        return count() + entries <= mEntries && used() + data <= mData;
    }
    void take(camera_metadata_t* buffer) { free_camera_metadata(std::exchange(mBuffer, buffer)); }

    camera_metadata_t* mBuffer;
    size_t mEntries;
    size_t mData;
    Model mModel;
};

}  // namespace qz::fuzz
