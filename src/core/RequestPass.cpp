#include "CCameraQzParam.h"
#include "core/InOrder.h"
#include "core/TranslatorLog.h"

namespace qz {

// The order matters: setters leave state that later ones read, and where two write one tag (manualFocusValue,
// faceBeautyMode, faceBeautyLevel), the later has the last word.
constexpr CCameraQzParam::Setter CCameraQzParam::sRequestPass[] = {
    &CCameraQzParam::setIso,
    &CCameraQzParam::setContrast,
    &CCameraQzParam::setSaturation,
    &CCameraQzParam::setBrightness,
    &CCameraQzParam::setZslMode,
    &CCameraQzParam::setSharpness,
    &CCameraQzParam::readFaceAeArea,
    &CCameraQzParam::setMeteringMode,
    &CCameraQzParam::takeBurstCapture,
    &CCameraQzParam::setBurstInterval,
    &CCameraQzParam::setStopBurst,
    &CCameraQzParam::setCaptureExposureBracketing,
    &CCameraQzParam::setFaceOrientation,
    &CCameraQzParam::setFaceDetection,
    &CCameraQzParam::setSmileDetection,
    &CCameraQzParam::setBlinkDetection,
    &CCameraQzParam::setFaceBeauty,
    &CCameraQzParam::setFaceMeiwo,
    &CCameraQzParam::setImageProcessMode,
    &CCameraQzParam::setFaceBeautyLevel,
    &CCameraQzParam::setImageDenoise,
    &CCameraQzParam::setScopeMode,
    &CCameraQzParam::setBestShotMode,
    &CCameraQzParam::setChatFaceBeauty,
    &CCameraQzParam::setTargetTrackingMode,
    &CCameraQzParam::setTargetTrackingCoord,
    &CCameraQzParam::setHdrMovieMode,
    &CCameraQzParam::setCaptureMirrorMode,
    &CCameraQzParam::setMagnifierStep,
    &CCameraQzParam::setpanoramaMode,
    &CCameraQzParam::setpanorama2DMode,
    &CCameraQzParam::setpanorama2DTinySize,
    &CCameraQzParam::setpanorama2DCap,
    &CCameraQzParam::setpanorama2DIndex,
    &CCameraQzParam::setManualFocusMode,
    &CCameraQzParam::setManualFocusStep,
    &CCameraQzParam::setMirrorMode,
    &CCameraQzParam::setMirrorPoint,
    &CCameraQzParam::setColorEffect,
    &CCameraQzParam::setExposureTime,
    &CCameraQzParam::setDualPrimaryMode,

    &CCameraQzParam::setMMICameraPdafVerify,
    &CCameraQzParam::setExtSceneMode,
    &CCameraQzParam::setZoom,
    &CCameraQzParam::setDualCameraVerify,
    &CCameraQzParam::setMMIAFCVerify,
    &CCameraQzParam::setMMIOisVcmCalibVerify,
    &CCameraQzParam::setMMILaserCalibration,
    &CCameraQzParam::setApertureMode,
    &CCameraQzParam::setApertureValue,
    &CCameraQzParam::setFocusAreas,
    &CCameraQzParam::setMeteringAreas,
    &CCameraQzParam::setPostJpegFileName,
    &CCameraQzParam::setFastSnapshotMode,
    &CCameraQzParam::setRecordingHint,
    &CCameraQzParam::setExposureMode,
    &CCameraQzParam::setExposureTryAe,
    &CCameraQzParam::setRelayoutMode,
    &CCameraQzParam::setRotation,
    &CCameraQzParam::setJpegThumbnailSize,
    &CCameraQzParam::setJpegQuality,
    &CCameraQzParam::setOisEnable,
    &CCameraQzParam::setOisMagnetismCheck,
    &CCameraQzParam::setMmiEnable,
    &CCameraQzParam::setMmiIVPEnable,
    &CCameraQzParam::setVcmAgingEnable,
    &CCameraQzParam::setOisRunning,
    &CCameraQzParam::setOisCheck,
    &CCameraQzParam::setOisDegreeMode,
    &CCameraQzParam::setDualFlashMode,
    &CCameraQzParam::setDualFlashCurrentIndex,
    &CCameraQzParam::setDualFlashPictureIndex,
    &CCameraQzParam::setMMIAFTestMode,
    &CCameraQzParam::setMMILowLightSensor,
    &CCameraQzParam::setQzExposureCompValue,
    &CCameraQzParam::setManualIso,
    &CCameraQzParam::setManualExposure,
    &CCameraQzParam::setPictureSize,
    &CCameraQzParam::setAllFocuseMode,
    &CCameraQzParam::setFaceBeautyForChat,
    &CCameraQzParam::setNiceFood,
    &CCameraQzParam::setQzcameraFlag,
    &CCameraQzParam::setPrepareCaptureFlag,
    &CCameraQzParam::setQzVideoFPS,
    &CCameraQzParam::setFocusMeteringSeparation,
    &CCameraQzParam::setFrontFlashLevel,
    &CCameraQzParam::setManualFlash,
    &CCameraQzParam::setSensorWb,
    &CCameraQzParam::setSensorExposureTime,
    &CCameraQzParam::setSensorIso,
    &CCameraQzParam::setProfessionalMode,
    &CCameraQzParam::setColorEffectLevel,
    &CCameraQzParam::setRawImgSaveSwitch,
    &CCameraQzParam::setRawImgPathName,
    &CCameraQzParam::setExposureHintMode,
    &CCameraQzParam::setDynamicIsoRange,
    &CCameraQzParam::setEquipMMIAFTestMode,
    &CCameraQzParam::setMmiGammaMode,
    &CCameraQzParam::setMmiRawRegion,
    &CCameraQzParam::setMmiSubRawRegion,
    &CCameraQzParam::setProFocusMode,
    &CCameraQzParam::setMakeUpEffect,
    &CCameraQzParam::setFaceMakeUp,
    &CCameraQzParam::setFocusAssistFlashMode,
    &CCameraQzParam::setHdcCalib,
    &CCameraQzParam::setDarkRaiderModeEnable,
    &CCameraQzParam::setColorMode,
    &CCameraQzParam::setDmWaterMarkMode,
    &CCameraQzParam::setMmiCaptureDualMode,
    &CCameraQzParam::setOisOTParam,
    &CCameraQzParam::setSubPictureSize,
    &CCameraQzParam::resetVideoStabilization,
    &CCameraQzParam::resetSubCropRegion,
};

[[gnu::flatten]] status_t CCameraQzParam::paramToMetaData(CameraMetadata* metaData) {
    if (metaData == nullptr) {
        LOGE("%s(%d) Invalid metadata!", __func__, 84);
        return android::BAD_VALUE;
    }
    callInOrder<sRequestPass>(placesOf(sRequestPass), this, metaData);
    return android::OK;
}

status_t CCameraQzParam::readFaceAeArea(CameraMetadata* /*metaData*/) {
    // Read and left: no entry carries it, but hosts may count on seeing the key asked for.
    static_cast<void>(mExtParam->get("qz-face-ae-area"));
    return android::OK;
}

status_t CCameraQzParam::takeBurstCapture(CameraMetadata* /*metaData*/) {
    if (mExtParam->get("burst-capture") != nullptr) mBurstCapture = mExtParam->getInt("burst-capture");
    return android::OK;
}

}  // namespace qz
