// SPDX-License-Identifier: Apache-2.0
// A metadata buffer that grows as needed.
#pragma once

#include <system/camera_metadata.h>
#include <utils/Errors.h>
#include <utils/String8.h>

#include <cstddef>
#include <cstdint>

namespace android {

// Owns one buffer of <system/camera_metadata.h>, created by the first update at the latest. Only one thread
// may change it, and none may read it meanwhile. Several threads may read it. An entry that find() returns
// points into the buffer and is valid until the next change. Errors are logged with the tag
// "Camera2-Metadata".
//
// The raw buffer is only available from a locked object. Until it is unlocked every change is refused, so
// that the raw pointer stays valid. The lock is a flag that detects mistakes, not a mutex.
//
// Operations return OK, INVALID_OPERATION if the object is locked, or the status of the function of
// <system/camera_metadata.h> that failed. A failed operation changes nothing.
class CameraMetadata {
  public:
    CameraMetadata() = default;
    explicit CameraMetadata(size_t entryCapacity, size_t dataCapacity = 10);
    CameraMetadata(camera_metadata_t* buffer);    // like acquire(). NOLINT(google-explicit-constructor)
    CameraMetadata(const CameraMetadata& other);  // the copy is not locked
    ~CameraMetadata();

    // Copies, with the smallest capacities. A locked object refuses it, also for itself. There is no move:
    // the source of std::move() keeps its entries.
    CameraMetadata& operator=(const CameraMetadata& other);
    CameraMetadata& operator=(const camera_metadata_t* buffer);

    // getAndLock() returns the buffer, or null if there is none. Pass the same pointer to unlock(). Any other
    // pointer leaves the object locked and logs an error.
    const camera_metadata_t* getAndLock() const;
    status_t unlock(const camera_metadata_t* buffer) const;

    // Gives the buffer to the caller, who frees it. This object then has none. Returns null if locked.
    camera_metadata_t* release();

    // Take ownership of a buffer, or of another object's buffer, and free the own one. If this object is
    // locked, the caller keeps the buffer. A buffer that validate_camera_metadata_structure() rejects is
    // freed, and an error is logged.
    void acquire(camera_metadata_t* buffer);
    void acquire(CameraMetadata& other);

    // Exchanges the buffers, unless one of the objects is locked.
    void swap(CameraMetadata& other);

    size_t entryCount() const;
    bool isEmpty() const;
    void clear();

    // Returns OK also if the tag is absent, and 1 if there is no buffer.
    status_t erase(uint32_t tag);

    // Sorts the entries by tag. Returns 1 if there is no buffer.
    status_t sort();

    // Appends every entry of the other object. A tag present in both then has two entries, and find() returns
    // the older one. An object without a buffer (1) and the object itself (INVALID_OPERATION) are refused.
    status_t append(const CameraMetadata& other);

    // Copy `count` elements. With count 0 the entry is present and empty. A present entry keeps its place.
    // Return INVALID_OPERATION if the tag is unknown or declared with another type, `data` points into this
    // object's own buffer, or the object is locked; 1 if `data` is null and `count` is not 0; NO_MEMORY also
    // for a count that no buffer can hold.
    status_t update(uint32_t tag, const uint8_t* data, size_t count);
    status_t update(uint32_t tag, const int32_t* data, size_t count);
    status_t update(uint32_t tag, const float* data, size_t count);
    status_t update(uint32_t tag, const int64_t* data, size_t count);
    status_t update(uint32_t tag, const double* data, size_t count);
    status_t update(uint32_t tag, const camera_metadata_rational_t* data, size_t count);
    status_t update(uint32_t tag, const String8& text);  // bytes, the terminator included
    status_t update(const camera_metadata_ro_entry& entry);

    bool exists(uint32_t tag) const;

    // Return the first entry of the tag; if it is absent, an entry with count 0 and null data. The writable
    // form finds nothing in a locked object.
    camera_metadata_entry_t find(uint32_t tag);
    camera_metadata_ro_entry_t find(uint32_t tag) const;

    // Like dump_indented_camera_metadata().
    void dump(int fd, int verbosity = 1, int indentation = 0) const;

  private:
    bool refuseLocked(const char* operation) const;
    status_t updateChecked(uint32_t tag, uint8_t type, const void* data, size_t count);
    status_t put(uint32_t tag, uint8_t type, const void* data, size_t count);
    status_t grow(size_t extraEntries, size_t extraData);
    void replaceBuffer(camera_metadata_t* buffer);

    camera_metadata_t* mBuffer = nullptr;
    mutable bool mLocked = false;
};

}  // namespace android
