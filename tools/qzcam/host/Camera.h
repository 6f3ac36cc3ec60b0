// SPDX-License-Identifier: Apache-2.0
// One opened camera with all objects of the library that a camera service creates for it. The tool takes the
// place of the service.
#pragma once

#include "host/Messages.h"
#include "host/PassSteps.h"

#include <CCameraQzParam.h>
#include <CameraQzCallBack.h>
#include <CameraQzSendCmd.h>
#include <QzParametersEx.h>
#include <QzPerformEx.h>
#include <camera/CameraMetadata.h>
#include <camera/CameraParameters2.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// An adapter that records its calls. Their order shows which key was published from which capability, and
// which parameter became which entry.
class WatchedParameters : public qz::QzParametersEx {
  public:
    struct Published {
        std::string key;
        uint32_t capability;  // the static entry that was read last
    };

    using QzParametersEx::QzParametersEx;

    void set(const char* key, const char* value) override;
    const char* get(const char* key) override;
    int getInt(const char* key) override;
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                           bool required) override;
    using QzParametersEx::update;  // the library writes no double and no String8
    qz::status_t update(android::CameraMetadata* metadata, uint32_t tag, const uint8_t* data,
                        size_t count) override;
    qz::status_t update(android::CameraMetadata* metadata, uint32_t tag, const int32_t* data,
                        size_t count) override;
    qz::status_t update(android::CameraMetadata* metadata, uint32_t tag, const camera_metadata_rational* data,
                        size_t count) override;
    qz::status_t update(android::CameraMetadata* metadata, uint32_t tag, const float* data,
                        size_t count) override;

    // Returns the parameters published since the last call.
    std::vector<Published> takePublished();

    // Records the following steps in `steps`, until it is set to null.
    void watch(PassSteps* steps) { mSteps = steps; }

    // Makes all later updates return this status, whatever the type of their tag, without changing the
    // request.
    void answerUpdates(qz::status_t status) { mUpdateAnswer = status; }

  private:
    template <typename T>
    qz::status_t watchedUpdate(android::CameraMetadata* metadata, uint32_t tag, uint8_t type, const T* data,
                               size_t count);

    PassSteps* mSteps = nullptr;
    std::optional<qz::status_t> mUpdateAnswer;
    uint32_t mLastRead = 0;
    std::vector<Published> mPublished;
};

using MessageSink = std::function<void(Message)>;

// The host that receives the messages of results.
class ResultHost : public qz::ExtCallBackInterface {
  public:
    explicit ResultHost(MessageSink sink) : mSink(std::move(sink)) {}

    qz::status_t notifyCallback(int32_t msgType, int32_t ext1, int32_t ext2) override;
    qz::status_t dataCallback(int32_t msgType, const void* data, uint32_t size) override;
    camera_metadata_ro_entry findResultEntry(const android::CameraMetadata& result, uint32_t tag) override;

  private:
    MessageSink mSink;
};

class Camera {
  public:
    // `characteristics` must outlive the camera.
    Camera(int32_t id, const android::CameraMetadata& characteristics, MessageSink sink);

    android::CameraParameters2& parameters() { return mParameters; }
    WatchedParameters& adapter() { return *mAdapter; }
    qz::CCameraQzParam& translator() { return *mAdapter->mCameraQzParam; }
    qz::CameraQzCallBack& callbacks() { return *mCallbacks; }
    qz::CameraQzSendCmd& commands() { return *mCommands; }
    qz::QzPerformEx& inspector() { return *mInspector; }

  private:
    android::CameraParameters2 mParameters;
    android::sp<ResultHost> mHost;
    android::sp<WatchedParameters> mAdapter;
    android::sp<qz::CameraQzCallBack> mCallbacks;
    android::sp<qz::CameraQzSendCmd> mCommands;
    android::sp<qz::QzPerformEx> mInspector;
};

struct Parameter {
    std::string key;
    std::string value;
};
std::vector<Parameter> allParameters(const android::CameraParameters2& parameters);

}  // namespace qzcam
