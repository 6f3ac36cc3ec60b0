// SPDX-License-Identifier: Apache-2.0
#include "QzParametersEx.h"

#include "tags/TagLabels.h"
#include "text/Checked.h"

#include <cstring>

namespace qz {

namespace {

using android::CameraMetadata;
using android::CameraParameters2;
using android::String8;

camera_metadata_ro_entry noEntry() {
    LOG(line::InfoIsNull, "getStaticInfo");
    camera_metadata_ro_entry none;  // NOLINT(cppcoreguidelines-pro-type-member-init): cleared here
    succeeded<line::AdapterNotCleared>(memset_s(&none, sizeof(none), 0, sizeof(none)), "getStaticInfo");
    return none;
}

camera_metadata_ro_entry checkedEntry(const CameraMetadata& info, uint32_t tag, size_t minCount,
                                      size_t maxCount, bool required) {
    const camera_metadata_ro_entry entry = info.find(tag);
    if (entry.count == 0 && required) {
        const TagLabel label(tag);
        LOG(line::NoStaticEntry, label.section(), label.name(), tag);
    } else if (entry.count < minCount || (maxCount != 0 && entry.count > maxCount)) {
        // An absent entry that is not required but has a minimum is logged here too.
        const TagLabel label(tag);
        LOG(line::MalformedEntry, label.section(), label.name(), tag, minCount, maxCount, entry.count);
    }
    return entry;
}

}  // namespace

QzParametersEx::QzParametersEx(CameraParameters2& params, int cameraId)
    : mParameters(params), mCameraId(cameraId) {
    mCameraQzParam = CreateCameraQzParam(this);
}

QzParametersEx::~QzParametersEx() { mInfo = nullptr; }

void QzParametersEx::set(const char* key, const char* value) { mParameters.set(key, value); }

const char* QzParametersEx::get(const char* key) { return mParameters.get(key); }

int QzParametersEx::getInt(const char* key) { return mParameters.getInt(key); }

camera_metadata_ro_entry QzParametersEx::getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                                       bool required) {
    return mInfo != nullptr ? checkedEntry(*mInfo, tag, minCount, maxCount, required) : noEntry();
}

status_t QzParametersEx::update(CameraMetadata* metadata, uint32_t tag, const uint8_t* data, size_t count) {
    return metadata->update(tag, data, count);
}

status_t QzParametersEx::update(CameraMetadata* metadata, uint32_t tag, const int32_t* data, size_t count) {
    return metadata->update(tag, data, count);
}

status_t QzParametersEx::update(CameraMetadata* metadata, uint32_t tag, const camera_metadata_rational* data,
                                size_t count) {
    return metadata->update(tag, data, count);
}

status_t QzParametersEx::update(CameraMetadata* metadata, uint32_t tag, const float* data, size_t count) {
    return metadata->update(tag, data, count);
}

status_t QzParametersEx::update(CameraMetadata* metadata, uint32_t tag, const double* data, size_t count) {
    return metadata->update(tag, data, count);
}

status_t QzParametersEx::update(CameraMetadata* metadata, uint32_t tag, const String8& value) {
    return metadata->update(tag, value);
}

void QzParametersEx::remove(const char* key) {
    if (key != nullptr) mParameters.remove(String8(key));
}

void QzParametersEx::setShutterMute(CameraParameters2& params) {
    mShutterMute = params.getInt("camera_sound_state") == 0;
}

void QzParametersEx::modifySupportedPictureSize(CameraParameters2& params) {
    constexpr int frontCamera = 1;
    if (mCameraId == frontCamera) return;
    const char* switchKey = nullptr;
    const char* listKey = nullptr;
    String8 sizes;
    mCameraQzParam->getSupportedSuperResPicSizes(switchKey, listKey, sizes);
    if (switchKey == nullptr || listKey == nullptr) return;
    const char* postProcess = params.get(switchKey);
    if (postProcess == nullptr) return;
    params.set(listKey, strcmp(postProcess, "off") == 0 ? "" : sizes.c_str());
}

void QzParametersEx::modifyOTPtestResult(CameraParameters2& params) {
    const char* key = nullptr;
    String8 value;
    mCameraQzParam->getOTPtestResult(key, value);
    if (key != nullptr) params.set(key, value.c_str());
}

}  // namespace qz
