// SPDX-License-Identifier: Apache-2.0
#include "host/Camera.h"

#include "base/Text.h"

#include <fmt/format.h>

#include <utility>

namespace qzcam {

namespace {

std::string nameOf(uint32_t tag) {
    const char* section = get_camera_metadata_section_name(tag);
    const char* name = get_camera_metadata_tag_name(tag);
    return section && name ? fmt::format("{}.{}", section, name) : fmt::format("{:#x}", tag);
}

}  // namespace

void WatchedParameters::set(const char* key, const char* value) {
    mPublished.push_back({key, mLastRead});
    QzParametersEx::set(key, value);
}

camera_metadata_ro_entry WatchedParameters::getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                                          bool required) {
    mLastRead = tag;
    const auto entry = QzParametersEx::getStaticInfo(tag, minCount, maxCount, required);
    if (mSteps) mSteps->push_back({PassStep::Kind::Static, nameOf(tag), false, entry.count > 0});
    return entry;
}

const char* WatchedParameters::get(const char* key) {
    const char* value = QzParametersEx::get(key);
    if (mSteps) mSteps->push_back({PassStep::Kind::Read, key, false, value != nullptr});
    return value;
}

int WatchedParameters::getInt(const char* key) {
    if (mSteps) mSteps->push_back({PassStep::Kind::Read, key, true, QzParametersEx::get(key) != nullptr});
    return QzParametersEx::getInt(key);
}

template <typename T>
qz::status_t WatchedParameters::watchedUpdate(android::CameraMetadata* metadata, uint32_t tag, uint8_t type,
                                              const T* data, size_t count) {
    const qz::status_t status =
        mUpdateAnswer ? *mUpdateAnswer : QzParametersEx::update(metadata, tag, data, count);
    if (mSteps) {
        const auto* bytes = reinterpret_cast<const uint8_t*>(data);
        Values values{type, count, {bytes, bytes + count * sizeof(T)}};
        mSteps->push_back({PassStep::Kind::Update, nameOf(tag), false, false, std::move(values), status});
    }
    return status;
}

qz::status_t WatchedParameters::update(android::CameraMetadata* metadata, uint32_t tag, const uint8_t* data,
                                       size_t count) {
    return watchedUpdate(metadata, tag, TYPE_BYTE, data, count);
}

qz::status_t WatchedParameters::update(android::CameraMetadata* metadata, uint32_t tag, const int32_t* data,
                                       size_t count) {
    return watchedUpdate(metadata, tag, TYPE_INT32, data, count);
}

qz::status_t WatchedParameters::update(android::CameraMetadata* metadata, uint32_t tag,
                                       const camera_metadata_rational* data, size_t count) {
    return watchedUpdate(metadata, tag, TYPE_RATIONAL, data, count);
}

qz::status_t WatchedParameters::update(android::CameraMetadata* metadata, uint32_t tag, const float* data,
                                       size_t count) {
    return watchedUpdate(metadata, tag, TYPE_FLOAT, data, count);
}

std::vector<WatchedParameters::Published> WatchedParameters::takePublished() {
    return std::exchange(mPublished, {});
}

qz::status_t ResultHost::notifyCallback(int32_t msgType, int32_t ext1, int32_t ext2) {
    mSink(notification(msgType, ext1, ext2));
    return android::OK;
}

qz::status_t ResultHost::dataCallback(int32_t msgType, const void* data, uint32_t size) {
    mSink(dataBlock(msgType, data, size));
    return android::OK;
}

camera_metadata_ro_entry ResultHost::findResultEntry(const android::CameraMetadata& result, uint32_t tag) {
    return result.find(tag);
}

Camera::Camera(int32_t id, const android::CameraMetadata& characteristics, MessageSink sink)
    : mHost(new ResultHost(std::move(sink))), mAdapter(new WatchedParameters(mParameters, id)) {
    mAdapter->mInfo = &characteristics;
    mCallbacks = qz::CreateCameraQzCallBack(mHost.get(), mAdapter->mCameraQzParam.get());
    mCommands = qz::CreateCameraQzSendCmd(mAdapter->mCameraQzParam.get());
    mInspector = new qz::QzPerformEx(id);
    mInspector->setInfo(&characteristics);
}

// The platform lists a parameter set only as a flattened text. Neither keys nor values contain its
// separators.
std::vector<Parameter> allParameters(const android::CameraParameters2& parameters) {
    std::vector<Parameter> all;
    const android::String8 flattened = parameters.flatten();
    for (const std::string_view pair : split({flattened.c_str(), flattened.length()}, ';')) {
        const size_t equals = pair.find('=');
        if (equals == std::string_view::npos) continue;
        all.push_back({std::string(pair.substr(0, equals)), std::string(pair.substr(equals + 1))});
    }
    return all;
}

}  // namespace qzcam
