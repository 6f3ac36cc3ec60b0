#include <camera/CameraMetadata.h>

#include <android/log.h>

#include <algorithm>
#include <utility>

#include "MetadataBuffer.h"

namespace android {
namespace {

constexpr char kLogTag[] = "CameraMetadata";

// A capacity that holds `needed` and, when it has to grow, grows often enough by doubling to make adding
// cheap.
size_t grownCapacity(size_t capacity, size_t needed, size_t least) {
    return needed <= capacity ? capacity : std::max({needed, 2 * capacity, least});
}

}  // namespace

CameraMetadata::CameraMetadata(camera_metadata_t* buffer) : mBuffer(buffer) {}

CameraMetadata::CameraMetadata(const CameraMetadata& other) : mBuffer(clone_camera_metadata(other.mBuffer)) {}

CameraMetadata::CameraMetadata(CameraMetadata&& other) noexcept
    : mBuffer(other.mLocked ? clone_camera_metadata(other.mBuffer) : std::exchange(other.mBuffer, nullptr)) {}

CameraMetadata& CameraMetadata::operator=(const CameraMetadata& other) {
    if (this != &other && !refuseLocked("assign")) replaceBuffer(clone_camera_metadata(other.mBuffer));
    return *this;
}

CameraMetadata& CameraMetadata::operator=(CameraMetadata&& other) noexcept {
    if (this == &other || refuseLocked("assign")) return *this;
    CameraMetadata moved(std::move(other));
    std::swap(mBuffer, moved.mBuffer);
    return *this;
}

CameraMetadata::~CameraMetadata() { free_camera_metadata(mBuffer); }

bool CameraMetadata::refuseLocked(const char* operation) const {
    if (mLocked) __android_log_print(ANDROID_LOG_ERROR, kLogTag, "%s: the metadata is locked", operation);
    return mLocked;
}

void CameraMetadata::replaceBuffer(camera_metadata_t* buffer) {
    if (buffer != mBuffer) free_camera_metadata(std::exchange(mBuffer, buffer));
}

const camera_metadata_t* CameraMetadata::getAndLock() const {
    mLocked = true;
    return mBuffer;
}

status_t CameraMetadata::unlock(const camera_metadata_t* buffer) const {
    if (!mLocked) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "unlock: the metadata is not locked");
        return INVALID_OPERATION;
    }
    if (buffer != mBuffer) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "unlock: not the buffer that was locked");
        return BAD_VALUE;
    }
    mLocked = false;
    return OK;
}

size_t CameraMetadata::entryCount() const { return get_camera_metadata_entry_count(mBuffer); }

bool CameraMetadata::isEmpty() const { return entryCount() == 0; }

void CameraMetadata::clear() {
    if (!refuseLocked("clear")) replaceBuffer(nullptr);
}

status_t CameraMetadata::erase(uint32_t tag) {
    if (refuseLocked("erase")) return INVALID_OPERATION;
    camera_metadata_ro_entry_t entry = {};
    if (find_camera_metadata_ro_entry(mBuffer, tag, &entry) != OK) return OK;
    return delete_camera_metadata_entry(mBuffer, entry.index);
}

// The buffer itself when it has the room, otherwise a larger copy; null when there is no memory for one.
camera_metadata_t* CameraMetadata::grown(size_t extraEntries, size_t extraData) const {
    const size_t entries = get_camera_metadata_entry_capacity(mBuffer);
    const size_t data = get_camera_metadata_data_capacity(mBuffer);
    const size_t neededEntries = entryCount() + extraEntries;
    const size_t neededData = get_camera_metadata_data_count(mBuffer) + extraData;
    if (mBuffer != nullptr && neededEntries <= entries && neededData <= data) return mBuffer;
    constexpr size_t kFirstEntries = 16;
    constexpr size_t kFirstData = 256;
    camera_metadata_t* larger = allocate_camera_metadata(grownCapacity(entries, neededEntries, kFirstEntries),
                                                         grownCapacity(data, neededData, kFirstData));
    if (larger == nullptr) larger = allocate_camera_metadata(neededEntries, neededData);
    if (larger != nullptr && mBuffer != nullptr) qz::host::copyEntries(larger, mBuffer);
    return larger;
}

status_t CameraMetadata::put(uint32_t tag, uint8_t type, const void* data, size_t count) {
    const size_t size = calculate_camera_metadata_entry_data_size(type, count);
    if (size == SIZE_MAX) return NO_MEMORY;
    camera_metadata_ro_entry_t present = {};
    const bool isPresent = find_camera_metadata_ro_entry(mBuffer, tag, &present) == OK;
    const size_t oldSize =
        isPresent ? calculate_camera_metadata_entry_data_size(present.type, present.count) : 0;
    camera_metadata_t* const target = grown(isPresent ? 0 : 1, size - std::min(size, oldSize));
    if (target == nullptr) return NO_MEMORY;
    // The old buffer lives until the elements are copied: `data` may lie in it.
    const status_t status = isPresent ? qz::host::updateEntry(target, present.index, type, data, count)
                                      : qz::host::addEntry(target, tag, type, data, count);
    replaceBuffer(target);
    return status;
}

status_t CameraMetadata::append(const CameraMetadata& other) {
    if (refuseLocked("append")) return INVALID_OPERATION;
    if (this == &other || other.isEmpty()) return OK;
    camera_metadata_t* const target =
        grown(other.entryCount(), get_camera_metadata_data_count(other.mBuffer));
    if (target == nullptr) return NO_MEMORY;
    replaceBuffer(target);
    for (size_t i = 0; i < other.entryCount(); ++i) {
        camera_metadata_ro_entry_t entry = {};
        get_camera_metadata_ro_entry(other.mBuffer, i, &entry);
        if (const status_t status = put(entry.tag, entry.type, entry.data.u8, entry.count); status != OK) {
            return status;
        }
    }
    return OK;
}

status_t CameraMetadata::updateChecked(uint32_t tag, uint8_t type, const void* data, size_t count) {
    if (refuseLocked("update")) return INVALID_OPERATION;
    const int declared = get_camera_metadata_tag_type(tag);
    if (declared < 0) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "update: unknown tag %#x", tag);
        return INVALID_OPERATION;
    }
    if (declared != type) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "update: tag %#x is declared %s, not %s", tag,
                            camera_metadata_type_names[declared], camera_metadata_type_names[type]);
        return INVALID_OPERATION;
    }
    if (data == nullptr && count > 0) return BAD_VALUE;
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
