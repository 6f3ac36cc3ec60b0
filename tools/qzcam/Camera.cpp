#include "Camera.h"

#include "Text.h"

#include <utility>

namespace qzcam {

void WatchedParameters::set(const char* key, const char* value) {
    mPublished.push_back({key, mLastRead});
    QzParametersEx::set(key, value);
}

camera_metadata_ro_entry WatchedParameters::getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                                          bool required) {
    mLastRead = tag;
    return QzParametersEx::getStaticInfo(tag, minCount, maxCount, required);
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

// The flattened text is the platform's only way to list a parameter set; neither keys nor values hold its
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
