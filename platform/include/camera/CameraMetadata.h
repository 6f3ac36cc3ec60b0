// A metadata buffer that grows as needed.
#pragma once

#include <system/camera_metadata.h>
#include <utils/Errors.h>
#include <utils/String8.h>

#include <cstddef>
#include <cstdint>

namespace android {

// Owns one buffer of <system/camera_metadata.h>, made at the first update at the latest. One thread at a
// time; several may read while none changes it. Entries found point into the buffer and are valid until the
// next change. An error is a line under the log tag "Camera2-Metadata".
//
// Whoever wants the raw buffer locks the object: until it is unlocked every change is refused, so that the
// raw pointer stays good. The lock is a flag against mistakes, not a mutex.
//
// Operations return OK, INVALID_OPERATION when the object is locked, or else the status of the function of
// <system/camera_metadata.h> that refuses. Failures change nothing.
class CameraMetadata {
  public:
    CameraMetadata() = default;
    explicit CameraMetadata(size_t entryCapacity, size_t dataCapacity = 10);
    CameraMetadata(camera_metadata_t* buffer);    // as acquire(). NOLINT(google-explicit-constructor)
    CameraMetadata(const CameraMetadata& other);  // the copy is not locked
    ~CameraMetadata();

    // Copies, with just the capacities needed; refused when this object is locked, also for itself. There is
    // no move: the source of std::move() keeps its entries.
    CameraMetadata& operator=(const CameraMetadata& other);
    CameraMetadata& operator=(const camera_metadata_t* buffer);

    // The buffer, null as long as there is none. Give the same pointer back to unlock(); any other leaves the
    // object locked and logs an error.
    const camera_metadata_t* getAndLock() const;
    status_t unlock(const camera_metadata_t* buffer) const;

    // Gives the buffer away; the caller frees it, and this object has none. Null when locked.
    camera_metadata_t* release();

    // Takes a buffer over, or another object's, in place of its own. When locked it stays the caller's. A
    // buffer that is not sound (validate_camera_metadata_structure) is freed with an error.
    void acquire(camera_metadata_t* buffer);
    void acquire(CameraMetadata& other);

    // Exchanges the buffers, unless one of the two is locked.
    void swap(CameraMetadata& other);

    size_t entryCount() const;
    bool isEmpty() const;
    void clear();

    // OK also when there is no such tag; 1 when there is no buffer.
    status_t erase(uint32_t tag);

    // Puts the entries in the order of their tags. 1 when there is no buffer.
    status_t sort();

    // Adds every entry of the other behind the own ones. A tag present in both then has two entries, and the
    // older is found. Refused are an object without a buffer (1) and the object itself (INVALID_OPERATION).
    status_t append(const CameraMetadata& other);

    // `count` elements are copied; none is allowed and makes an entry that is present and empty. A present
    // entry keeps its place. INVALID_OPERATION: the tag is unknown or declared with another type, `data` lies
    // in this object's own buffer, or the object is locked; 1: `data` is null but `count` is not 0;
    // NO_MEMORY: also for a count that no buffer can hold.
    status_t update(uint32_t tag, const uint8_t* data, size_t count);
    status_t update(uint32_t tag, const int32_t* data, size_t count);
    status_t update(uint32_t tag, const float* data, size_t count);
    status_t update(uint32_t tag, const int64_t* data, size_t count);
    status_t update(uint32_t tag, const double* data, size_t count);
    status_t update(uint32_t tag, const camera_metadata_rational_t* data, size_t count);
    status_t update(uint32_t tag, const String8& text);  // bytes, the terminator included
    status_t update(const camera_metadata_ro_entry& entry);

    bool exists(uint32_t tag) const;

    // The first entry of the tag; absent: count 0 and null data. The writable form finds nothing in a locked
    // object.
    camera_metadata_entry_t find(uint32_t tag);
    camera_metadata_ro_entry_t find(uint32_t tag) const;

    // As dump_indented_camera_metadata().
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
