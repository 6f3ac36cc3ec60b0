// SPDX-License-Identifier: Apache-2.0
// The translator of one camera: it writes application parameters into requests, and publishes static
// capabilities as parameters.
//
// QzParametersEx creates and owns it. The host reaches it through QzParametersEx::mCameraQzParam. It calls
// passes and queries on its parameter thread, serialised with every other use of that camera's parameters.
// A member that a pass sets keeps its value until a later pass finds its key or capability again. The
// light-painting mode and the camera application's flag are also cleared when their key is removed. The
// slow-JPEG threshold becomes 0 if its tag is declared, but has no entry.
#pragma once

#include "QzHostInterfaces.h"

#include <utils/String16.h>
#include <utils/String8.h>
#include <utils/StrongPointer.h>

#include <atomic>

namespace qz {

// A number that one thread writes and another reads without a lock. The order is relaxed: a reader may see an
// old value, but never a half-written one. On the target an access is an ordinary load or store.
template <typename T>
class RelaxedAtomic {
  public:
    explicit RelaxedAtomic(T initial) : mValue(initial) {
        static_assert(std::atomic<T>::is_always_lock_free, "the result thread must never wait");
    }
    T get() const { return mValue.load(std::memory_order_relaxed); }
    void set(T value) { mValue.store(value, std::memory_order_relaxed); }

  private:
    std::atomic<T> mValue;
};

class CCameraQzParam : public virtual android::RefBase {
  public:
    // Writes every parameter that the application has set, and whose tag the device declares, into one
    // request. Returns 0, or -22 for a null request. A parameter that cannot be written is logged and
    // skipped.
    QZ_API status_t paramToMetaData(android::CameraMetadata* metaData);

    // Publishes the device's static capabilities as "...-supported", "...-values" and range parameters. It
    // may run again: a capability that has become empty keeps the value of the last run. Always returns 0.
    QZ_API int32_t metaDataToParam();

    // Set facts about the client that only the host knows. The package name decides which applications record
    // without video stabilisation. Bit 0 of the flags allows face beauty for chat applications.
    QZ_API void setClientName(const android::String16& packageName);
    QZ_API void setCallBackFlag(uint32_t flag);

    // Returns true if the value `extScene` of "scene-mode" is an extended scene mode.
    QZ_API bool isExtSceneMode(const char* extScene) const;

    // Returns the key that switches super resolution, the key that lists its sizes, and the published sizes.
    // Keys returned here and below are constants of the library and stay valid.
    QZ_API void getSupportedSuperResPicSizes(const char*& switchKey, const char*& listKey,
                                             android::String8& sizes) const;

    // Returns the key that an application sets for post-processing, and the key that marks the vendor's
    // camera application.
    QZ_API void getQzPostKey(const char*& postKey, const char*& flagKey) const;

    // Publishes the last OTP test result, and returns its text and its key.
    QZ_API void getOTPtestResult(const char*& key, android::String8& value);

    // Return true if the list of published sizes contains this size, in pixels. The list is searched as a
    // text: 200x1500 is also found in "1200x1500".
    QZ_API bool isSuperResolution(int width, int height) const;
    QZ_API bool isSubSensorResolution(int width, int height) const;

    // Keep the recording state on devices whose capabilities ask for it. It is false on all others.
    QZ_API void qzUpdateRecordingState(bool recording);
    QZ_API bool qzIsRecording() const;

    // Returns true if the last request that changed the 2D panorama switched it on.
    QZ_API bool getPanorama2DMode() const;

    // Returns true if the next capture takes long: in professional mode with more than a second of exposure,
    // or in any light-painting mode.
    QZ_API bool checkLongExpoMode();

    // Returns true if the vendor's camera application uses its own zero shutter lag: outside professional
    // mode, unless the property "camera.ignore.qz.customized.zsl" begins with '1'.
    QZ_API bool needQzCustomizedZsl();

    // Returns true if the host should open the shutter early for the vendor's camera application.
    QZ_API bool qzNeedPreShutter();

  private:
    using CameraMetadata = android::CameraMetadata;
    friend QZ_API android::sp<CCameraQzParam> CreateCameraQzParam(ExtParamInterface* paramIntf);
    friend class CameraQzSendCmd;
    friend struct CapabilityPass;
    friend struct CapabilitySteps;
    friend struct RequestPass;
    friend struct RequestSteps;
    friend struct ResultPass;
    friend struct ResultSteps;
    friend struct TestPeer;

    explicit CCameraQzParam(ExtParamInterface* paramIntf);
    ~CCameraQzParam() override;

    ExtParamInterface* mExtParam;                  // the host's side; not owned
    int mBurstCapture = -1;                        // "burst-capture"
    bool mImagePostProcess = false;                // "qz-image-post-process" is on, and no panorama is
    bool mAllFocusMode = false;                    // "qz-refocus-mode" is on
    RelaxedAtomic<bool> mProfessionalMode{false};  // "qz-professional-mode" is on; result thread reads
    android::String8 mSuperResPicSizes;            // "4000x3000,2000x1500": sizes of the capability pass
    android::String8 mSubPicSizes;                 // the same for the secondary sensor
    RelaxedAtomic<uint8_t> mLcdCompensate{0};  // result thread writes; kept for the host, no pass reads it
    RelaxedAtomic<uint8_t> mOtpTestResult{0};  // result thread writes, parameter thread reads
    RelaxedAtomic<int32_t> mFocusVcmValue{0};  // focus motor; result thread writes, command thread reads
    uint8_t mLightPaintingMode = 0;            // last written light-painting mode, 0 none
    RelaxedAtomic<int32_t> mFocusContrastValue{-1};  // rolling counter in bits 30-31, contrast below; result
                                                     // thread writes, command thread reads
    int mVideoFps = 0;                               // last written "qz-video-fps"
    int mInsertPreviewCount = 0;                     // preview frames inserted in a burst, never negative
    bool mVideoCallbackSupported = false;            // capability is exactly 1
    uint8_t mHighVideoCallbackThreshold = 0;         // capability as read
    uint32_t mCallBackFlag = 0;                      // setCallBackFlag()
    int mSensorExposureTime = 0;         // microseconds, once both exposure-time entries are written
    bool mFwkZslSupported = false;       // capability is exactly 1
    bool mIsQzCamera = false;            // "qz-qzcamera-flag" is on
    bool mRequireVideoStatus = false;    // capability is exactly 1
    bool mRecording = false;             // qzUpdateRecordingState()
    bool mPreShutterSupported = false;   // capability is exactly 1
    bool mPreShutterDone = false;        // no pass writes it: always false
    bool mPanorama2DMode = false;        // last requested 2D-panorama mode
    int mMaxQuickThumbnailSize = 0;      // capability as read
    int64_t mSlowJpegModeThreshold = 0;  // capability as read
    android::String16 mClientName;       // setClientName()
};

// Creates a translator. Logs an error and returns null for a null interface. The interface must outlive the
// translator.
QZ_API android::sp<CCameraQzParam> CreateCameraQzParam(ExtParamInterface* paramIntf);

}  // namespace qz
