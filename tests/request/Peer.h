// The way to the translator's setters and to the state that they leave.
#pragma once

#include "CCameraQzParam.h"

#include <initializer_list>
#include <map>
#include <sstream>
#include <string>

namespace qz {

struct TestPeer {
    using C = CCameraQzParam;
    using Setter = status_t (C::*)(android::CameraMetadata*);

    // All 111 by name.
    static const std::map<std::string, Setter>& setters() {
#define NAMED(...) named(#__VA_ARGS__, {__VA_ARGS__})
        static const auto all = NAMED(
            &C::setIso, &C::setContrast, &C::setSaturation, &C::setBrightness, &C::setZslMode,
            &C::setSharpness, &C::setMeteringMode, &C::setBurstInterval, &C::setStopBurst,
            &C::setCaptureExposureBracketing, &C::setFaceOrientation, &C::setFaceDetection,
            &C::setSmileDetection, &C::setBlinkDetection, &C::setFaceBeauty, &C::setFaceMeiwo,
            &C::setImageProcessMode, &C::setFaceBeautyLevel, &C::setImageDenoise, &C::setScopeMode,
            &C::setBestShotMode, &C::setChatFaceBeauty, &C::setTargetTrackingMode, &C::setTargetTrackingCoord,
            &C::setHdrMovieMode, &C::setCaptureMirrorMode, &C::setMagnifierStep, &C::setpanoramaMode,
            &C::setpanorama2DCap, &C::setpanorama2DIndex, &C::setManualFocusMode, &C::setManualFocusStep,
            &C::setMirrorMode, &C::setMirrorPoint, &C::setColorEffect, &C::setExposureTime,
            &C::setMMICameraPdafVerify, &C::setDualCameraVerify, &C::setMMIAFCVerify,
            &C::setMMIOisVcmCalibVerify, &C::setMMILaserCalibration, &C::setMmiEnable, &C::setMmiIVPEnable,
            &C::setVcmAgingEnable, &C::setMMIAFTestMode, &C::setEquipMMIAFTestMode, &C::setMmiGammaMode,
            &C::setMmiRawRegion, &C::setMmiSubRawRegion, &C::setHdcCalib, &C::setMmiCaptureDualMode,
            &C::setOisEnable, &C::setOisMagnetismCheck, &C::setOisRunning, &C::setOisCheck,
            &C::setOisDegreeMode, &C::setExposureMode, &C::setExposureTryAe, &C::setRelayoutMode,
            &C::setManualIso, &C::setManualExposure, &C::setSensorWb, &C::setSensorIso,
            &C::setProfessionalMode, &C::setExposureHintMode, &C::setDynamicIsoRange, &C::setProFocusMode,
            &C::setFocusAssistFlashMode, &C::setDarkRaiderModeEnable, &C::setExtSceneMode, &C::setFocusAreas,
            &C::setMeteringAreas, &C::setRotation, &C::setSubPictureSize, &C::setPostJpegFileName,
            &C::setRawImgSaveSwitch, &C::setRawImgPathName, &C::setApertureMode, &C::setApertureValue,
            &C::setFastSnapshotMode, &C::setRecordingHint, &C::setDualFlashMode, &C::setDualFlashCurrentIndex,
            &C::setDualFlashPictureIndex, &C::setAllFocuseMode, &C::setNiceFood, &C::setQzcameraFlag,
            &C::setPrepareCaptureFlag, &C::setQzVideoFPS, &C::setFocusMeteringSeparation,
            &C::setFrontFlashLevel, &C::setManualFlash, &C::setColorEffectLevel, &C::setMakeUpEffect,
            &C::setFaceMakeUp, &C::setColorMode, &C::setDmWaterMarkMode, &C::setpanorama2DMode,
            &C::setpanorama2DTinySize, &C::setDualPrimaryMode, &C::setMMILowLightSensor, &C::setOisOTParam,
            &C::setQzExposureCompValue, &C::setSensorExposureTime, &C::setZoom, &C::setJpegThumbnailSize,
            &C::setJpegQuality, &C::setPictureSize, &C::resetSubCropRegion, &C::setFaceBeautyForChat,
            &C::resetVideoStabilization);
#undef NAMED
        return all;
    }

    // One of them, or the whole pass.
    static status_t call(C& of, const std::string& setter, android::CameraMetadata* request) {
        return setter == "paramToMetaData" ? of.paramToMetaData(request)
                                           : (of.*setters().at(setter))(request);
    }

    // What setters store.
    static std::map<std::string, int> state(const C& of) {
        return {{"mBurstCapture", of.mBurstCapture},
                {"mImagePostProcess", of.mImagePostProcess},
                {"mAllFocusMode", of.mAllFocusMode},
                {"mProfessionalMode", of.mProfessionalMode.get()},
                {"mLightPaintingMode", of.mLightPaintingMode},
                {"mVideoFps", of.mVideoFps},
                {"mSensorExposureTime", of.mSensorExposureTime},
                {"mIsQzCamera", of.mIsQzCamera},
                {"mPanorama2DMode", of.mPanorama2DMode}};
    }

    static void setLightPainting(C& of, uint8_t mode) { of.mLightPaintingMode = mode; }
    static void setQzCamera(C& of, bool is) { of.mIsQzCamera = is; }

  private:
    // "&C::setIso, &C::setContrast" and the same as pointers.
    static std::map<std::string, Setter> named(const char* list, std::initializer_list<Setter> setters) {
        std::map<std::string, Setter> all;
        std::istringstream names(list);
        for (const Setter setter : setters) {
            std::string name;
            names >> name;
            all[name.substr(4, name.find(',') - 4)] = setter;
        }
        return all;
    }
};

}  // namespace qz
