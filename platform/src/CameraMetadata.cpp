// SPDX-License-Identifier: Apache-2.0
#include <camera/CameraMetadata.h>

#include <android/log.h>

#include <utility>

#include "MetadataBuffer.h"

// A macro, so that the compiler checks formats against arguments.
#define LOGE(...) __android_log_print(ANDROID_LOG_ERROR, "Camera2-Metadata", __VA_ARGS__)

namespace android {
namespace {

using qz::host::kError;

// Returns twice the needed capacity: appending is cheap, and dumps show the same numbers as on a device.
// Returns SIZE_MAX, which cannot be allocated, if that is too large.
size_t grownCapacity(size_t capacity, size_t count, size_t extra) {
    if (extra <= capacity - count) return capacity;
    constexpr size_t kMost = qz::host::kMaxSize / 2;
    return count <= kMost && extra <= kMost - count ? 2 * (count + extra) : SIZE_MAX;
}

bool isDeclaredAs(uint32_t tag, uint8_t type) {
    const int declared = get_camera_metadata_tag_type(tag);
    if (declared < 0) LOGE("update: unknown tag %#x", tag);
    if (declared >= 0 && declared != type) {
        LOGE("update: tag %#x is declared %s, not %s", tag, camera_metadata_type_names[declared],
             type < NUM_TYPES ? camera_metadata_type_names[type] : "(no type)");
    }
    return declared == type;
}

}  // namespace

CameraMetadata::CameraMetadata(size_t entryCapacity, size_t dataCapacity)
    : mBuffer(allocate_camera_metadata(entryCapacity, dataCapacity)) {}

CameraMetadata::CameraMetadata(camera_metadata_t* buffer) { acquire(buffer); }

CameraMetadata::CameraMetadata(const CameraMetadata& other) : mBuffer(clone_camera_metadata(other.mBuffer)) {}

CameraMetadata::~CameraMetadata() { free_camera_metadata(mBuffer); }

// The other assignment handles self-assignment.
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment,cert-oop54-cpp)
CameraMetadata& CameraMetadata::operator=(const CameraMetadata& other) { return *this = other.mBuffer; }

CameraMetadata& CameraMetadata::operator=(const camera_metadata_t* buffer) {
    if (!refuseLocked("assign") && buffer != mBuffer) replaceBuffer(clone_camera_metadata(buffer));
    return *this;
}

bool CameraMetadata::refuseLocked(const char* operation) const {
    if (mLocked) LOGE("%s: the metadata is locked", operation);
    return mLocked;
}

void CameraMetadata::replaceBuffer(camera_metadata_t* buffer) {
    free_camera_metadata(std::exchange(mBuffer, buffer));
}

const camera_metadata_t* CameraMetadata::getAndLock() const {
    mLocked = true;
    return mBuffer;
}

status_t CameraMetadata::unlock(const camera_metadata_t* buffer) const {
    if (!mLocked) {
        LOGE("unlock: the metadata is not locked");
        return INVALID_OPERATION;
    }
    if (buffer != mBuffer) {
        LOGE("unlock: not the buffer that was locked");
        return BAD_VALUE;
    }
    mLocked = false;
    return OK;
}

camera_metadata_t* CameraMetadata::release() {
    return refuseLocked("release") ? nullptr : std::exchange(mBuffer, nullptr);
}

void CameraMetadata::acquire(camera_metadata_t* buffer) {
    if (refuseLocked("acquire")) return;
    if (buffer != nullptr && validate_camera_metadata_structure(buffer, nullptr) != OK) {
        LOGE("acquire: the buffer fails validation");
        free_camera_metadata(std::exchange(buffer, nullptr));
    }
    replaceBuffer(buffer);
}

void CameraMetadata::acquire(CameraMetadata& other) {
    if (!refuseLocked("acquire")) acquire(other.release());
}

void CameraMetadata::swap(CameraMetadata& other) {
    if (!refuseLocked("swap") && !other.refuseLocked("swap")) std::swap(mBuffer, other.mBuffer);
}

size_t CameraMetadata::entryCount() const { return mBuffer != nullptr ? mBuffer->entryCount : 0; }

bool CameraMetadata::isEmpty() const { return entryCount() == 0; }

void CameraMetadata::clear() {
    if (!refuseLocked("clear")) replaceBuffer(nullptr);
}

status_t CameraMetadata::erase(uint32_t tag) {
    if (refuseLocked("erase")) return INVALID_OPERATION;
    camera_metadata_ro_entry_t entry = {};
    const status_t status = find_camera_metadata_ro_entry(mBuffer, tag, &entry);
    if (status == NAME_NOT_FOUND) return OK;
    if (status == OK) return delete_camera_metadata_entry(mBuffer, entry.index);
    LOGE("erase: tag %#x: there is no buffer", tag);
    return status;
}

status_t CameraMetadata::sort() {
    return refuseLocked("sort") ? INVALID_OPERATION : sort_camera_metadata(mBuffer);
}

// Makes room for more entries and data.
status_t CameraMetadata::grow(size_t extraEntries, size_t extraData) {
    const camera_metadata_t none = {};
    const camera_metadata_t& now = mBuffer != nullptr ? *mBuffer : none;
    const size_t entries = grownCapacity(now.entryCapacity, now.entryCount, extraEntries);
    const size_t data = grownCapacity(now.dataCapacity, now.dataCount, extraData);
    if (mBuffer != nullptr && entries == now.entryCapacity && data == now.dataCapacity) return OK;
    camera_metadata_t* const larger = allocate_camera_metadata(entries, data);
    if (larger == nullptr) {
        LOGE("no memory for a larger buffer");
        return NO_MEMORY;
    }
    if (mBuffer != nullptr) append_camera_metadata(larger, mBuffer);
    replaceBuffer(larger);
    return OK;
}

status_t CameraMetadata::append(const CameraMetadata& other) {
    if (refuseLocked("append")) return INVALID_OPERATION;
    if (other.mBuffer == nullptr) {
        LOGE("append: the other object has no buffer");
        return kError;
    }
    if (&other == this) {
        LOGE("append: an object cannot be appended to itself");
        return INVALID_OPERATION;
    }
    const status_t status = grow(other.entryCount(), other.mBuffer->dataCount);
    return status == OK ? append_camera_metadata(mBuffer, other.mBuffer) : status;
}

status_t CameraMetadata::put(uint32_t tag, uint8_t type, const void* data, size_t count) {
    const size_t size = calculate_camera_metadata_entry_data_size(type, count);
    if (const status_t status = grow(1, size); status != OK) return status;
    camera_metadata_ro_entry_t present = {};
    if (find_camera_metadata_ro_entry(mBuffer, tag, &present) != OK) {
        return qz::host::addEntry(mBuffer, tag, type, data, count);
    }
    if (present.type != type) {  // from a time when the tag was declared with another type
        LOGE("update: the entry of tag %#x is %s", tag, camera_metadata_type_names[present.type]);
        return INVALID_OPERATION;
    }
    return update_camera_metadata_entry(mBuffer, present.index, data, count, nullptr);
}

status_t CameraMetadata::updateChecked(uint32_t tag, uint8_t type, const void* data, size_t count) {
    if (refuseLocked("update") || !isDeclaredAs(tag, type)) return INVALID_OPERATION;
    if (qz::host::liesIn(mBuffer, data)) {
        LOGE("update: the data for tag %#x lie in the object's own buffer", tag);
        return INVALID_OPERATION;
    }
    if (data == nullptr && count > 0) {
        LOGE("update: the data for tag %#x are null", tag);
        return kError;
    }
    return put(tag, type, data, count);
}

status_t CameraMetadata::update(uint32_t tag, const uint8_t* data, size_t count) {
    return updateChecked(tag, TYPE_BYTE, data, count);
}

status_t CameraMetadata::update(uint32_t tag, const int32_t* data, size_t count) {
    return updateChecked(tag, TYPE_INT32, data, count);
}

status_t CameraMetadata::update(uint32_t tag, const float* data, size_t count) {
    return updateChecked(tag, TYPE_FLOAT, data, count);
}

status_t CameraMetadata::update(uint32_t tag, const int64_t* data, size_t count) {
    return updateChecked(tag, TYPE_INT64, data, count);
}

status_t CameraMetadata::update(uint32_t tag, const double* data, size_t count) {
    return updateChecked(tag, TYPE_DOUBLE, data, count);
}

status_t CameraMetadata::update(uint32_t tag, const camera_metadata_rational_t* data, size_t count) {
    return updateChecked(tag, TYPE_RATIONAL, data, count);
}

status_t CameraMetadata::update(uint32_t tag, const String8& text) {
    return updateChecked(tag, TYPE_BYTE, text.c_str(), text.size() + 1);
}

status_t CameraMetadata::update(const camera_metadata_ro_entry& entry) {
    return updateChecked(entry.tag, entry.type, entry.data.u8, entry.count);
}

bool CameraMetadata::exists(uint32_t tag) const {
    camera_metadata_ro_entry_t entry = {};
    return find_camera_metadata_ro_entry(mBuffer, tag, &entry) == OK;
}

camera_metadata_entry_t CameraMetadata::find(uint32_t tag) {
    camera_metadata_entry_t entry = {};
    if (!refuseLocked("find")) find_camera_metadata_entry(mBuffer, tag, &entry);
    return entry;
}

camera_metadata_ro_entry_t CameraMetadata::find(uint32_t tag) const {
    camera_metadata_ro_entry_t entry = {};
    find_camera_metadata_ro_entry(mBuffer, tag, &entry);
    return entry;
}

void CameraMetadata::dump(int fd, int verbosity, int indentation) const {
    dump_indented_camera_metadata(mBuffer, fd, verbosity, indentation);
}

}  // namespace android
