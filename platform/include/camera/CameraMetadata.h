// A metadata buffer that grows as needed.
#pragma once

#include <system/camera_metadata.h>
#include <utils/Errors.h>
#include <utils/String8.h>

#include <cstddef>
#include <cstdint>

namespace android {

// Owns one buffer of <system/camera_metadata.h>, made at the first update, in which each tag stands once at
// most. One thread at a time; several may read while none changes it. Entries found point into the buffer and
// are valid until the next change.
//
// Whoever wants the raw buffer locks the object: until it is unlocked every change is refused, so that the
// raw pointer stays good. The lock is a flag against mistakes, not a mutex.
class CameraMetadata {
  public:
    CameraMetadata() = default;
    explicit CameraMetadata(camera_metadata_t* buffer);  // takes the buffer over; it must be a valid one
    CameraMetadata(const CameraMetadata& other);         // the copy is not locked
    CameraMetadata(CameraMetadata&& other) noexcept;     // a locked object keeps its buffer: it is copied
    CameraMetadata& operator=(const CameraMetadata& other);
    CameraMetadata& operator=(CameraMetadata&& other) noexcept;
    ~CameraMetadata();

    // The buffer, null as long as there is none. Give the same pointer back to unlock(); any other leaves the
    // object locked and logs an error.
    const camera_metadata_t* getAndLock() const;
    status_t unlock(const camera_metadata_t* buffer) const;

    size_t entryCount() const;
    bool isEmpty() const;
    void clear();

    // INVALID_OPERATION when locked, otherwise OK, also when there is no such tag.
    status_t erase(uint32_t tag);

    // Updates this object with every entry of the other, in the other's order: a tag present in both gets the
    // other's elements and keeps its place. INVALID_OPERATION when locked; NO_MEMORY changes nothing.
    status_t append(const CameraMetadata& other);

    // `count` elements are copied; none is allowed and makes an entry that is present and empty. A present
    // entry keeps its place. `data` may point into this object's own buffer. INVALID_OPERATION: the tag is
    // unknown or declared with another type, or the object is locked; BAD_VALUE: `data` is null but `count`
    // is not 0; NO_MEMORY: also for a count that no buffer can hold. Failures change nothing.
    status_t update(uint32_t tag, const uint8_t* data, size_t count);
    status_t update(uint32_t tag, const int32_t* data, size_t count);
    status_t update(uint32_t tag, const float* data, size_t count);
    status_t update(uint32_t tag, const int64_t* data, size_t count);
    status_t update(uint32_t tag, const double* data, size_t count);
    status_t update(uint32_t tag, const camera_metadata_rational_t* data, size_t count);
    status_t update(uint32_t tag, const String8& text);  // bytes, the terminator included

    bool exists(uint32_t tag) const;

    // Absent: count 0 and null data. The writable form finds nothing in a locked object.
    camera_metadata_entry_t find(uint32_t tag);
    camera_metadata_ro_entry_t find(uint32_t tag) const;

    // As dump_indented_camera_metadata().
    void dump(int fd, int verbosity = 1, int indentation = 0) const;

  private:
    bool refuseLocked(const char* operation) const;
    status_t updateChecked(uint32_t tag, uint8_t type, const void* data, size_t count);
    status_t put(uint32_t tag, uint8_t type, const void* data, size_t count);
    camera_metadata_t* grown(size_t extraEntries, size_t extraData) const;
    void replaceBuffer(camera_metadata_t* buffer);

    camera_metadata_t* mBuffer = nullptr;
    mutable bool mLocked = false;
};

}  // namespace android
