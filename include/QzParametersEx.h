// SPDX-License-Identifier: Apache-2.0
// The adapter: it gives the translator access to the host's parameters, static characteristics and requests.
//
// The host creates one for each opened camera, over its live parameter set, and holds it by a strong pointer:
//
//     sp<QzParametersEx> ex = new QzParametersEx(parameters, cameraId);
//     ex->mInfo = &staticCharacteristics;
//     ex->mCameraQzParam->metaDataToParam();          // capabilities -> parameters
//     ex->mCameraQzParam->paramToMetaData(&request);  // parameters -> each request
//
// It takes no lock: the host serialises its calls with every other use of the same parameter set.
#pragma once

#include "CCameraQzParam.h"
#include "QzHostInterfaces.h"

#include <camera/CameraParameters2.h>

namespace qz {

class QZ_API QzParametersEx : public ExtParamInterface {
  public:
    // `params` must outlive the adapter. Creates the translator of this camera.
    QzParametersEx(android::CameraParameters2& params, int cameraId);
    ~QzParametersEx() override;

    // ExtParamInterface, forwarded to the parameter set, to *mInfo and to the metadata passed in.
    void set(const char* key, const char* value) override;
    const char* get(const char* key) override;
    int getInt(const char* key) override;
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                           bool required) override;
    status_t update(android::CameraMetadata* metadata, uint32_t tag, const uint8_t* data,
                    size_t count) override;
    status_t update(android::CameraMetadata* metadata, uint32_t tag, const int32_t* data,
                    size_t count) override;
    status_t update(android::CameraMetadata* metadata, uint32_t tag, const camera_metadata_rational* data,
                    size_t count) override;
    status_t update(android::CameraMetadata* metadata, uint32_t tag, const float* data,
                    size_t count) override;
    status_t update(android::CameraMetadata* metadata, uint32_t tag, const double* data,
                    size_t count) override;
    status_t update(android::CameraMetadata* metadata, uint32_t tag, const android::String8& value) override;

    // Removes a key from the parameter set. Null is ignored. It takes the slot after those of the interface.
    virtual void remove(const char* key);

    // Sets mShutterMute to true if "camera_sound_state" is exactly 0. An absent key means not muted.
    void setShutterMute(android::CameraParameters2& params);

    // Sets "super-resolution-picture-size-values": to the empty text if "qz-image-post-process" is "off", and
    // to the sizes of the capability pass for any other text. Without that key, and for camera 1 (front), it
    // does nothing.
    void modifySupportedPictureSize(android::CameraParameters2& params);

    // Sets "qz-otp-check" to the last OTP test result.
    void modifyOTPtestResult(android::CameraParameters2& params);

    // The translator, owned.
    android::sp<CCameraQzParam> mCameraQzParam;

  private:
    android::CameraParameters2& mParameters;

  public:
    // The host's static characteristics. The host assigns them before the first pass.
    const android::CameraMetadata* mInfo = nullptr;

  private:
    int mCameraId;

  public:
    // Result of the last setShutterMute().
    bool mShutterMute = false;
};

}  // namespace qz
