// The translator of one camera: application parameters into requests, static capabilities into parameters.
//
// QzParametersEx creates and owns it. The host reaches it through QzParametersEx::mCameraQzParam and calls
// passes and queries on its parameter thread, serialised with every other use of that camera's parameters.
// State that passes leave here lives until the next pass finds its key or capability again; the
// light-painting mode and the camera application's flag go with their keys.
#pragma once

#include "QzHostInterfaces.h"

#include <utils/String16.h>
#include <utils/String8.h>
#include <utils/StrongPointer.h>

#include <atomic>

namespace qz {

// A number that one thread writes and another reads without a lock. Relaxed order: a reader may see it late,
// never torn; on the target a plain load or store.
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
    // Writes every parameter that the application has set and the device declares a tag for into one request.
    // Returns 0, or -22 for a null request; a parameter that cannot be written is logged and passed over.
    QZ_API status_t paramToMetaData(android::CameraMetadata* metaData);

    // Publishes the device's static capabilities as "...-supported", "...-values" and range parameters. May
    // run again; a capability that is empty then keeps the key of the last run. Always 0.
    QZ_API int32_t metaDataToParam();

    // What the host alone knows of the client. The package name decides which applications record without
    // video stabilisation; bit 0 of the flag word lets chat applications have face beauty.
    QZ_API void setClientName(const android::String16& packageName);
    QZ_API void setCallBackFlag(uint32_t flag);

    // Whether "scene-mode" `extScene` is one of the extended ones.
    QZ_API bool isExtSceneMode(const char* extScene) const;

    // Keys and sizes behind super resolution: its switch, where its sizes are listed, and the published
    // sizes. Keys given out here and below are constants of the library, valid for ever.
    QZ_API void getSupportedSuperResPicSizes(const char*& switchKey, const char*& listKey,
                                             android::String8& sizes) const;

    // The keys of post-processing in general: which one the application sets, and which one marks its camera.
    QZ_API void getQzPostKey(const char*& postKey, const char*& flagKey) const;

    // The last OTP test result as text, and the key that it is published under; publishes it, too.
    QZ_API void getOTPtestResult(const char*& key, android::String8& value);

    // Whether a size in pixels is among the published sizes. "200x1500" is found inside "1200x1500".
    QZ_API bool isSuperResolution(int width, int height) const;
    QZ_API bool isSubSensorResolution(int width, int height) const;

    // The recording state, on devices whose capabilities ask for it; false on all others.
    QZ_API void qzUpdateRecordingState(bool recording);
    QZ_API bool qzIsRecording() const;

    // Whether the last request that changed the 2D panorama switched it on.
    QZ_API bool getPanorama2DMode() const;

    // Whether the next capture takes long: professional mode with over a second, or any light-painting mode.
    QZ_API bool checkLongExpoMode();

    // Whether the vendor's camera application wants its own zero-shutter-lag: outside professional mode,
    // unless property "camera.ignore.qz.customized.zsl" begins with '1'.
    QZ_API bool needQzCustomizedZsl();

    // Whether the host should open the shutter early for the vendor's camera application.
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
    bool mPreShutterDone = false;        // written by no pass: answers as if always false
    bool mPanorama2DMode = false;        // last requested 2D-panorama mode
    int mMaxQuickThumbnailSize = 0;      // capability as read
    int64_t mSlowJpegModeThreshold = 0;  // capability as read
    android::String16 mClientName;       // setClientName()
};

// Null, after an error line, for a null interface, which must outlive the translator.
QZ_API android::sp<CCameraQzParam> CreateCameraQzParam(ExtParamInterface* paramIntf);

}  // namespace qz
