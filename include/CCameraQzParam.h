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
class Crossing {
  public:
    explicit Crossing(T initial) : mValue(initial) {
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
    friend class CameraQzCallBack;
    friend class CameraQzSendCmd;
    friend struct TestPeer;

    explicit CCameraQzParam(ExtParamInterface* paramIntf);
    ~CCameraQzParam() override;

    // Setters: one application parameter each, into one request. 0, -22 without a request, or the status of a
    // refused update. Grouped by the source that holds them; the pass has their order.
    using Setter = status_t (CCameraQzParam::*)(CameraMetadata* metaData);
    static const Setter sRequestPass[];  // core/RequestPass.cpp

    // request/ImageSetters.cpp
    status_t setIso(CameraMetadata* metaData);
    status_t setContrast(CameraMetadata* metaData);
    status_t setSaturation(CameraMetadata* metaData);
    status_t setBrightness(CameraMetadata* metaData);
    status_t setZslMode(CameraMetadata* metaData);
    status_t setSharpness(CameraMetadata* metaData);
    status_t setMeteringMode(CameraMetadata* metaData);
    status_t setBurstInterval(CameraMetadata* metaData);
    status_t setStopBurst(CameraMetadata* metaData);
    status_t setCaptureExposureBracketing(CameraMetadata* metaData);
    status_t setFaceOrientation(CameraMetadata* metaData);
    status_t setFaceDetection(CameraMetadata* metaData);
    status_t setSmileDetection(CameraMetadata* metaData);
    status_t setBlinkDetection(CameraMetadata* metaData);
    status_t setFaceBeauty(CameraMetadata* metaData);
    status_t setFaceMeiwo(CameraMetadata* metaData);
    status_t setImageProcessMode(CameraMetadata* metaData);
    status_t setFaceBeautyLevel(CameraMetadata* metaData);
    status_t setImageDenoise(CameraMetadata* metaData);
    status_t setScopeMode(CameraMetadata* metaData);
    status_t setBestShotMode(CameraMetadata* metaData);
    status_t setChatFaceBeauty(CameraMetadata* metaData);
    status_t setTargetTrackingMode(CameraMetadata* metaData);
    status_t setTargetTrackingCoord(CameraMetadata* metaData);
    status_t setHdrMovieMode(CameraMetadata* metaData);
    status_t setCaptureMirrorMode(CameraMetadata* metaData);
    status_t setMagnifierStep(CameraMetadata* metaData);
    status_t setpanoramaMode(CameraMetadata* metaData);
    status_t setpanorama2DMode(CameraMetadata* metaData);
    status_t setpanorama2DTinySize(CameraMetadata* metaData);
    status_t setpanorama2DCap(CameraMetadata* metaData);
    status_t setpanorama2DIndex(CameraMetadata* metaData);
    status_t setManualFocusMode(CameraMetadata* metaData);
    status_t setManualFocusStep(CameraMetadata* metaData);
    status_t setMirrorMode(CameraMetadata* metaData);
    status_t setMirrorPoint(CameraMetadata* metaData);
    status_t setColorEffect(CameraMetadata* metaData);
    status_t setExposureTime(CameraMetadata* metaData);
    status_t setDualPrimaryMode(CameraMetadata* metaData);

    // request/FactoryTestSetters.cpp
    status_t setMMICameraPdafVerify(CameraMetadata* metaData);
    status_t setDualCameraVerify(CameraMetadata* metaData);
    status_t setMMIAFCVerify(CameraMetadata* metaData);
    status_t setMMIOisVcmCalibVerify(CameraMetadata* metaData);
    status_t setMMILaserCalibration(CameraMetadata* metaData);
    status_t setMmiEnable(CameraMetadata* metaData);
    status_t setMmiIVPEnable(CameraMetadata* metaData);
    status_t setVcmAgingEnable(CameraMetadata* metaData);
    status_t setMMIAFTestMode(CameraMetadata* metaData);
    status_t setMMILowLightSensor(CameraMetadata* metaData);
    status_t setEquipMMIAFTestMode(CameraMetadata* metaData);
    status_t setMmiGammaMode(CameraMetadata* metaData);
    status_t setMmiRawRegion(CameraMetadata* metaData);
    status_t setMmiSubRawRegion(CameraMetadata* metaData);
    status_t setHdcCalib(CameraMetadata* metaData);
    status_t setMmiCaptureDualMode(CameraMetadata* metaData);

    // request/StabilisationSetters.cpp
    status_t setOisEnable(CameraMetadata* metaData);
    status_t setOisMagnetismCheck(CameraMetadata* metaData);
    status_t setOisRunning(CameraMetadata* metaData);
    status_t setOisCheck(CameraMetadata* metaData);
    status_t setOisDegreeMode(CameraMetadata* metaData);
    status_t setOisOTParam(CameraMetadata* metaData);

    // request/ProfessionalSetters.cpp
    status_t setExposureMode(CameraMetadata* metaData);
    status_t setExposureTryAe(CameraMetadata* metaData);
    status_t setRelayoutMode(CameraMetadata* metaData);
    status_t setQzExposureCompValue(CameraMetadata* metaData);
    status_t setManualIso(CameraMetadata* metaData);
    status_t setManualExposure(CameraMetadata* metaData);
    status_t setSensorWb(CameraMetadata* metaData);
    status_t setSensorExposureTime(CameraMetadata* metaData);
    status_t setSensorIso(CameraMetadata* metaData);
    status_t setProfessionalMode(CameraMetadata* metaData);
    status_t setExposureHintMode(CameraMetadata* metaData);
    status_t setDynamicIsoRange(CameraMetadata* metaData);
    status_t setProFocusMode(CameraMetadata* metaData);
    status_t setFocusAssistFlashMode(CameraMetadata* metaData);
    status_t setDarkRaiderModeEnable(CameraMetadata* metaData);

    // request/GeometrySetters.cpp
    status_t setExtSceneMode(CameraMetadata* metaData);
    status_t setZoom(CameraMetadata* metaData);
    status_t setFocusAreas(CameraMetadata* metaData);
    status_t setMeteringAreas(CameraMetadata* metaData);
    status_t setRotation(CameraMetadata* metaData);
    status_t setJpegThumbnailSize(CameraMetadata* metaData);
    status_t setJpegQuality(CameraMetadata* metaData);
    status_t setPictureSize(CameraMetadata* metaData);
    status_t setSubPictureSize(CameraMetadata* metaData);
    status_t resetSubCropRegion(CameraMetadata* metaData);
    status_t setPostJpegFileName(CameraMetadata* metaData);
    status_t setRawImgSaveSwitch(CameraMetadata* metaData);
    status_t setRawImgPathName(CameraMetadata* metaData);

    // request/ModeSetters.cpp
    status_t setApertureMode(CameraMetadata* metaData);
    status_t setApertureValue(CameraMetadata* metaData);
    status_t setFastSnapshotMode(CameraMetadata* metaData);
    status_t setRecordingHint(CameraMetadata* metaData);
    status_t setDualFlashMode(CameraMetadata* metaData);
    status_t setDualFlashCurrentIndex(CameraMetadata* metaData);
    status_t setDualFlashPictureIndex(CameraMetadata* metaData);
    status_t setAllFocuseMode(CameraMetadata* metaData);
    status_t setFaceBeautyForChat(CameraMetadata* metaData);
    status_t setNiceFood(CameraMetadata* metaData);
    status_t setQzcameraFlag(CameraMetadata* metaData);
    status_t setPrepareCaptureFlag(CameraMetadata* metaData);
    status_t setQzVideoFPS(CameraMetadata* metaData);
    status_t setFocusMeteringSeparation(CameraMetadata* metaData);
    status_t setFrontFlashLevel(CameraMetadata* metaData);
    status_t setManualFlash(CameraMetadata* metaData);
    status_t setColorEffectLevel(CameraMetadata* metaData);
    status_t setMakeUpEffect(CameraMetadata* metaData);
    status_t setFaceMakeUp(CameraMetadata* metaData);
    status_t setColorMode(CameraMetadata* metaData);
    status_t setDmWaterMarkMode(CameraMetadata* metaData);
    status_t resetVideoStabilization(CameraMetadata* metaData);

    // core/RequestPass.cpp: the two steps of the pass that write nothing.
    status_t readFaceAeArea(CameraMetadata* metaData);
    status_t takeBurstCapture(CameraMetadata* metaData);

    // Getters: one static capability each, into parameters or a member. Always 0.
    using Getter = int32_t (CCameraQzParam::*)();
    static const Getter sCapabilityPass[];  // capabilities/CapabilityPass.cpp

    // capabilities/ImageQuality.cpp
    int32_t getSupportedIso();
    int32_t getSupportedContrast();
    int32_t getSupportedSaturation();
    int32_t getSupportedBrightness();
    int32_t getSupportedSharpness();
    int32_t getSupportedMetering();

    // capabilities/Flags.cpp
    int32_t getBurstSupported();
    int32_t getFaceBeautySupported();
    int32_t getVideoBeautySupported();
    int32_t getZslSupported();
    int32_t getBestShotSupported();
    int32_t getAllFocusSupported();
    int32_t getHdrMovieSupported();
    int32_t getCaptureMirrorSupported();
    int32_t getMagnifierSupported();
    int32_t getManualFocusSupported();
    int32_t getSmileDetectionSupported();
    int32_t getScopeSupported();
    int32_t getPostProcessSupported();
    int32_t getDenoiseSupported();
    int32_t getTargetTrackingSupported();
    int32_t getBigApertureSupported();
    int32_t getVideoCallbackSupported();
    int32_t getExposureCompensationSupported();
    int32_t getAfMmiControlSupported();
    int32_t getOisSupported();
    int32_t getNiceFoodSupported();
    int32_t getBeauty1080pSupported();
    int32_t getProfessionalModeSupported();
    int32_t getRawImageSupported();
    int32_t getExposureHintSupported();
    int32_t getDynamicIsoRangeSupported();
    int32_t getVideoSmoothAfSupported();
    int32_t getFrameworkZslSupported();
    int32_t getSlowMotionNoZoomSupported();
    int32_t getDmWaterMarkSupported();
    int32_t getDualPrimarySingleReprocess();
    int32_t getAfSecondAvailableModes();
    int32_t getMirrorZoomDragSupported();

    // capabilities/Values.cpp
    int32_t getQuickThumbnailSize();
    int32_t getSlowJpegModeThreshold();
    int32_t getInsertPreviewCount();
    int32_t getRequireVideoStatus();
    int32_t getPreShutterSupported();
    int32_t getManualVcmStartValue();
    int32_t getManualVcmEndValue();
    int32_t getBurstSupportCount();
    int32_t getBurstJpegQuality();
    int32_t getAfMmiFarThreshold();
    int32_t getAfMmiNearThreshold();
    int32_t getHighVideoCallbackThreshold();
    int32_t getDarkRaiderModeSupported();
    int32_t getQzExposureCompStep();
    int32_t getLcdCompensateSupported();
    int32_t getSupportedApertureValue();
    int32_t getMmiTestFeatureSupported();
    int32_t getOisDefaultGryoGain();

    // capabilities/Ranges.cpp
    int32_t getFaceBeautyRange();
    int32_t getExposureLevelRange();
    int32_t getSensorExposureTimeRange();
    int32_t getSensorWbRange();
    int32_t getSensorISORange();
    int32_t getColorEffectRange();
    int32_t getHdcAvailabeJpegSize();

    // capabilities/Lists.cpp
    int32_t getSupportedDualPrimary();
    int32_t getSupportedExtScene();
    int32_t getSupportedColorEffect();
    int32_t getSupportedExposureModes();
    int32_t getSupportedRelayoutModes();
    int32_t getSupernightSupportedIso();
    int32_t getSupernightSupportedExposure();
    int32_t getSupportedMakeUpEffect();
    int32_t getFocusAssistFlashModes();
    int32_t getSupportedColorModes();
    int32_t getSupportedVideoFps();
    int32_t getFrontFlashLevels();
    int32_t getSensorBinningSizes();
    int32_t getSupportedSuperPictureSizes();
    int32_t getSubSupportedPictureSizes();

    ExtParamInterface* mExtParam;             // the host's side; not owned
    int mBurstCapture = -1;                   // "burst-capture"
    bool mImagePostProcess = false;           // "qz-image-post-process" is on, and no panorama is
    bool mAllFocusMode = false;               // "qz-refocus-mode" is on
    Crossing<bool> mProfessionalMode{false};  // "qz-professional-mode" is on; result thread reads
    android::String8 mSuperResPicSizes;       // "4000x3000,2000x1500": sizes of the capability pass
    android::String8 mSubPicSizes;            // the same for the secondary sensor
    Crossing<uint8_t> mLcdCompensate{0};      // result thread writes; kept for the host, no pass reads it
    Crossing<uint8_t> mOtpTestResult{0};      // result thread writes, parameter thread reads
    Crossing<int32_t> mFocusVcmValue{0};  // focus motor position; result thread writes, command thread reads
    uint8_t mLightPaintingMode = 0;       // last written light-painting mode, 0 none
    Crossing<int32_t> mFocusContrastValue{-1};  // rolling counter in bits 30-31, contrast below; result
                                                // thread writes, command thread reads
    int mVideoFps = 0;                          // last written "qz-video-fps"
    int mInsertPreviewCount = 0;                // preview frames inserted in a burst, never negative
    bool mVideoCallbackSupported = false;       // capability is exactly 1
    uint8_t mHighVideoCallbackThreshold = 0;    // capability as read
    uint32_t mCallBackFlag = 0;                 // setCallBackFlag()
    int mSensorExposureTime = 0;                // microseconds, once both exposure-time entries are written
    bool mFwkZslSupported = false;              // capability is exactly 1
    bool mIsQzCamera = false;                   // "qz-qzcamera-flag" is on
    bool mRequireVideoStatus = false;           // capability is exactly 1
    bool mRecording = false;                    // qzUpdateRecordingState()
    bool mPreShutterSupported = false;          // capability is exactly 1
    bool mPreShutterDone = false;               // written by no pass: answers as if always false
    bool mPanorama2DMode = false;               // last requested 2D-panorama mode
    int mMaxQuickThumbnailSize = 0;             // capability as read
    int64_t mSlowJpegModeThreshold = 0;         // capability as read
    android::String16 mClientName;              // setClientName()
};

// Null, after an error line, for a null interface, which must outlive the translator.
QZ_API android::sp<CCameraQzParam> CreateCameraQzParam(ExtParamInterface* paramIntf);

}  // namespace qz
