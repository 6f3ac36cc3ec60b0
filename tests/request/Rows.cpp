#include "Peer.h"

#include <system/camera_metadata.h>

namespace qz {

using test::Row;
using test::Words;

namespace {

constexpr Words kOnOff = {TYPE_BYTE, {{"on", {1}}, {"off", {0}}, {"yes", {255}}}};
constexpr Words kTrueFalse = {TYPE_BYTE, {{"true", {1}}, {"false", {0}}, {"yes", {255}}}};
constexpr Words kPercent = {TYPE_BYTE, {{"150", {3}}, {"0", {0}}, {"75", {255}}}};
constexpr Words kBrightness = {TYPE_BYTE, {{"75", {3}}, {"0", {0}}, {"150", {255}}}};
constexpr Words kIso = {TYPE_BYTE, {{"50", {1}}, {"1250", {6}}, {"300", {255}}}};
constexpr Words kSharpness = {TYPE_BYTE, {{"+5", {5}}, {"auto", {0}}, {"5", {255}}}};
constexpr Words kMetering = {TYPE_BYTE, {{"center-weighted", {2}}, {"matrix", {0}}, {"Spot", {255}}}};
constexpr Words kEffect = {TYPE_BYTE, {{"mt-kuai", {42}}, {"zy-rixi", {2}}, {"sepia", {255}}}};
constexpr Words kScene = {TYPE_BYTE, {{"qzauto", {33}}, {"hdr", {34}}, {"night", {0}}}};
constexpr Words kMakeUp = {TYPE_BYTE, {{"mode8", {8}}, {"none", {0}}, {"mode9", {255}}}};
constexpr Words kExposure = {TYPE_BYTE, {{"star", {5}}, {"super-night", {1}}, {"moon", {0}}}};
constexpr Words kRelayout = {TYPE_BYTE, {{"snapshot2preview", {1}}, {"none", {0}}, {"on", {0}}}};
constexpr Words kShutter = {TYPE_BYTE, {{"1/4000", {4}}, {"32", {25}}, {"1/3", {255}}}};
constexpr Words kProFocus = {TYPE_BYTE, {{"MF", {3}}, {"Auto", {0}}, {"auto", {255}}}};
constexpr Words kAssist = {TYPE_BYTE, {{"off", {3}}, {"on", {2}}, {"Auto", {0}}}};
constexpr Words kColor = {TYPE_BYTE, {{"soft", {2}}, {"bright", {1}}, {"hard", {0}}}};

// An integer key counts as absent at -1, and at no other number; a text with a number in it does not.
constexpr Words kInt = {TYPE_INT32, {{"7", {7}}, {"0", {0}}, {"-1", {}}, {"-2", {-2}}}};
constexpr Words kAutoOrInt = {TYPE_INT32, {{"5200", {5200}}, {"auto", {0}}, {"-1", {-1}}, {"cloudy", {0}}}};
constexpr Words kPoint = {TYPE_INT32, {{"-5", {0}}, {"0", {0}}, {"-1", {}}, {"26", {26}}}};
constexpr Words kOnOffInt = {TYPE_INT32, {{"on", {1}}, {"off", {0}}, {"yes", {-1}}}};
constexpr Words kEquipment = {
    TYPE_INT32, {{"mmi_equip_9302_middle", {6}}, {"mmi_equip_9300_far", {2}}, {"on", {1}}, {"yes", {-1}}}};
constexpr Words kMicroseconds = {
    TYPE_RATIONAL, {{"20000", {20000, 1000000}}, {"-1", {}}, {"0", {0, 1000000}}, {"-2", {-2, 1000000}}}};

// The last group of a list counts. Areas need a text that parses; regions and sizes take what they get.
constexpr Words kArea = {TYPE_INT32,
                         {{"(0,0,100,100,1),(200,201,300,301,2)", {200, 201, 300, 301, 2}},
                          {"(1,2,3,4,5)(6,7,8,9)", {}},
                          {"none", {0, 0, 0, 0, 0}},
                          {"(1,2,3,4,99999999999)", {}},
                          {"(-1000,-999,1000,999,1000)", {-1000, -999, 1000, 999, 1000}}}};
constexpr Words kRegion = {TYPE_INT32,
                           {{"(1,2,3,4)(5,6,7,8)", {5, 6, 7, 8}},
                            {"(10,20)", {10, 20, 0, 0}},
                            {"(1,99999999999,3,4)", {1, 0, 0, 0}},
                            {"abc", {0, 0, 0, 0}}}};
constexpr Words kSize = {
    TYPE_INT32,
    {{"(1,2)(4000x3000)", {4000, 3000}}, {"4000x3000", {0, 0}}, {"(", {0, 0}}, {"(7,x)", {7, 0}}}};
constexpr Words kUtf16 = {TYPE_BYTE,
                          {{"raw", {114, 0, 97, 0, 119, 0}},
                           {"\xC3\xA9\xE4\xB8\xAD", {0xE9, 0x00, 0x2D, 0x4E}},
                           {"\xF0\x9F\x98\x80", {0x3D, 0xD8, 0x00, 0xDE}}}};

}  // namespace

#define NAMED(setter) #setter, &CCameraQzParam::setter

const Row TestPeer::kRows[] = {
    // Image, capture, faces, panorama
    {NAMED(setIso), "iso", "iso", kIso, "%s(), failed to update iso: %u, return: %d"},
    {NAMED(setContrast), "contrast", "constrastValue", kPercent,
     "%s(), failed to update contrast: %s, %d, return: %d"},
    {NAMED(setSaturation), "saturation", "saturationValue", kPercent,
     "%s(), failed to update saturation mode: %s, %d, return: %d"},
    {NAMED(setBrightness), "brightness", "brightnessValue", kBrightness,
     "%s(), failed to update brightness mode: %s, %d, return: %d"},
    {NAMED(setZslMode), "zsl-mode", "qz-zsl-mode", kOnOff, "%s(), failed to update zslmode :  %d, return: %d",
     "%s(), set zslmode: %d"},
    {NAMED(setSharpness), "sharpness", "sharpnessValue", kSharpness,
     "%s(), failed to update sharpnessMode mode: %u, return: %d"},
    {NAMED(setMeteringMode), "metering-mode", "meteringMode", kMetering,
     "%s(), failed to update meteringMode mode: %u, return: %d"},
    {NAMED(setBurstInterval), "burst-delay-ms", "burst-delay-ms", kInt,
     "%s(), failed to update burstInterval: %d, return: %d"},
    {NAMED(setStopBurst), "burst-stop-command", "stopBurst", kTrueFalse,
     "%s(), failed to update stop burst: %u, return: %d"},
    {NAMED(setCaptureExposureBracketing), "exp-bracketing-range", "qz-capture-exporsure-bracketing", kInt,
     "%s(), failed to update captureExposureBracketing: %d, return: %d"},
    {NAMED(setFaceOrientation), "qz-face-orientation", "faceOrientation", kInt,
     "%s(), failed to update face orientation: %d, return: %d"},
    {NAMED(setFaceDetection), "qz-face-detection", "qz-face-detection", kOnOff,
     "%s(), failed to update face detection mode: %s, %d, return: %d"},
    {NAMED(setSmileDetection), "qz-smile-detection", "smileDetectionMode", kOnOff,
     "%s(), failed to update smile detection mode: %s, %u, return: %d"},
    {NAMED(setBlinkDetection), "qz-blink-detection", "blinkDetectionMode", kOnOff,
     "%s(), failed to update blink detection mode: %s, %d, return: %d"},
    {NAMED(setFaceBeauty), "qz-face-beauty", "faceBeautyMode", kOnOff,
     "%s(), failed to update face beauty mode: %s, %u, return: %d"},
    {NAMED(setFaceMeiwo), "qz-face-meiwo", "faceMeiwoMode", kOnOff,
     "%s(), failed to update face meiwo mode: %s, %u, return: %d"},
    {NAMED(setImageProcessMode), "qz-image-post-process", "imagePostProcessMode", kOnOff,
     "%s(), failed to update post process mode: %s, %u, return: %d"},
    {NAMED(setFaceBeautyLevel), "qz-omron-face-beauty-level", "faceBeautyLevel", kInt,
     "%s(), failed to update face beauty level: %d, return: %d"},
    {NAMED(setImageDenoise), "qz-image-denoise", "qz-image-denoise", kOnOff,
     "%s(), failed to update image denoise mode: %s, %u, return: %d"},
    {NAMED(setScopeMode), "key-ambrix-scope", "scopeMode", kOnOff,
     "%s(), failed to update scope mode: %s, %u, return: %d"},
    {NAMED(setBestShotMode), "qz-best-photo-mode", "bestShotMode", kTrueFalse,
     "%s(), failed to update best shot mode: %s, %u, return: %d"},
    {NAMED(setChatFaceBeauty), "qz-face-beauty-preview-only", "qz-face-beauty-preview-only", kOnOff,
     "%s(), failed to update face beauty for chat: %s, %u, return: %d"},
    {NAMED(setTargetTrackingMode), "norvale-target-tracking", "qz-device-target-tracking", kOnOff,
     "%s(), failed to update target tracking mode: %s, %u, return: %d"},
    {NAMED(setTargetTrackingCoord), "target-coordinates", "qz-device-target-tracking-coordinate", kCoordinate,
     "%s(), failed to update target tracking coordinate: %s (%d, %d), return: %d"},
    {NAMED(setHdrMovieMode), "key-hdr-movie", "hdrMovieMode", kOnOff,
     "%s(), failed to update HDR movie mode: %s, %u, return: %d"},
    {NAMED(setCaptureMirrorMode), "qz-capture-mirror-mode", "captureMirrorMode", kOnOff,
     "%s(), failed to update capture mirror mode: %s, %u, return: %d"},
    {NAMED(setMagnifierStep), "qz-magnifier-step-value", "manualFocusValue", kInt,
     "%s(), failed to update magnifier step: %d, return: %d"},
    {NAMED(setpanoramaMode), "key-qz-panorama", "panoramaMode", kOnOff,
     "%s(), failed to update panorama mode: %s, %u, return: %d"},
    {NAMED(setpanorama2DCap), "key-qz-2dpanorama-cap", "panorama2DCaptureMode", kInt,
     "%s(), failed to update pano2dCap %u, return: %d"},
    {NAMED(setpanorama2DIndex), "key-qz-2dpanorama-index", "panorama2DIndex", kInt,
     "%s(), failed to update pano2D index mode: %u, return: %d"},
    {NAMED(setManualFocusMode), "qz-manual-focus-mode", "manualFocusMode", kOnOff,
     "%s(), failed to update manual focus mode: %u, return: %d"},
    {NAMED(setManualFocusStep), "qz-manual-focus-step-value", "manualFocusValue", kInt,
     "%s(), failed to update manual focus step: %d, return: %d"},
    {NAMED(setMirrorMode), "face-mirror-supported", "mirrorMode", kInt,
     "%s(), failed to update mirror mode: %d, return: %d"},
    {NAMED(setMirrorPoint), "face-mirror-point", "mirrorPoint", kPoint,
     "%s(), failed to update mirror point: 0x%x, return: %d"},
    {NAMED(setColorEffect), "qz-effect", "colorEffectMode", kEffect,
     "%s(), failed to update qz effect mode: %u, return: %d"},
    {NAMED(setExposureTime), "key_exposure_time", "qz-exposure-time", kMicroseconds,
     "%s(), failed to update exposure time: %d/%d, return: %d"},

    // Factory tests and calibration
    {NAMED(setMMICameraPdafVerify), "key-pdaf-verify", "qz-mmi-camera-pdaf-verification-mode", kOnOff,
     "%s(), failed to update mmi camera pdaf verify: %s, %u, return: %d",
     "%s(), set camera mmi pdaf verify: %d, %s"},
    {NAMED(setDualCameraVerify), "key-dual-camera-verify", "qz-dual-camera-verification-mode", kOnOff,
     "%s(), failed to update dual camera verify: %s, %u, return: %d", "%s(), set dual camera verify: %d, %s"},
    {NAMED(setMMIAFCVerify), "qz-mmi-afc-mode", "mmiAfcMode", kOnOff,
     "%s(), failed to update afc verify: %s, %u, return: %d", "%s(), set afc verify: %d, %s"},
    {NAMED(setMMIOisVcmCalibVerify), "qz-mmi-ois-vcm-calib-mode", "mmiOisVcmCalibMode", kOnOff,
     "%s(), failed to update ois vcm calib verify: %s, %u, return: %d",
     "%s(), set ois vcm calib verify: %d, %s"},
    {NAMED(setMMILaserCalibration), "key-laser-calibration", "qz_laser_calibrate", kInt,
     "%s() failed: %d, return: %d", "%s(), mmi set laser calibration %d"},
    {NAMED(setMmiEnable), "qz_mmi_enable", "qz_mmi_enable", kInt,
     "%s(), failed to update mmi enable: %u, return: %d"},
    {NAMED(setMmiIVPEnable), "qz-mmi-ivp-pro", "qz-mmi-ivp-pro", kInt,
     "%s(), failed to update MmiIVP enable: %d, return: %d"},
    {NAMED(setVcmAgingEnable), "qz_agingvcm_enable", "qz_agingvcm_enable", kInt,
     "%s(), failed to update VcmAging enable: %u, return: %d"},
    {NAMED(setMMIAFTestMode), "qz-af-mmi-control-mode", "qz-af-mmi-control-enable", kOnOffInt,
     "%s(), failed to update MMI af mode: %d, return: %d"},
    {NAMED(setEquipMMIAFTestMode), "qz-af-equip-mmi-control-mode", "qz-af-equip-mmi-control-mode", kEquipment,
     "%s(), failed to update equip MMI af mode: %d, return: %d", "%s(), set equip MMI mode: %d"},
    {NAMED(setMmiGammaMode), "qz-mmi-gamma-mode", "qz-mmi-gamma-mode", kOnOff,
     "%s(), failed to update GAMMA mode: %s, %u, return: %d"},
    {NAMED(setMmiRawRegion), "qz-mmi-raw-region", "qz-mmi-raw-region", kRegion,
     "%s(), failed to update MMI RAW region: %s, return: %d"},
    {NAMED(setMmiSubRawRegion), "qz-mmi-sub-raw-region", "qz-mmi-sub-raw-region", kRegion,
     "%s(), failed to update MMI sub RAW region: %s, return: %d"},
    {NAMED(setHdcCalib), "key-dual-camera-hdc-calib", "qz-mmi-hdc_calib", kOnOff,
     "%s(), failed to hdcCalib: %s, %u, return: %d", "%s(), hdcCalib: %d"},
    {NAMED(setMmiCaptureDualMode), "qz_mmi_capture_dual_mode", "qzMMICaptureDualMode", kInt,
     "%s(), failed to update capture dual mode: %u, return: %d", "%s(), set capture dual mode: %d"},

    // Optical image stabilisation. setOisDegreeMode reports in the words of setOisCheck.
    {NAMED(setOisEnable), "qz_ois_enable", "qz_ois_enable", kInt,
     "%s(), failed to update OIS: %u, return: %d"},
    {NAMED(setOisMagnetismCheck), "qz_ois_magnetism_check", "qz_ois_magnetism_check", kInt,
     "%s(), failed to update oismagnetismcheck: %u, return: %d"},
    {NAMED(setOisRunning), "qz_ois_running", "qz_ois_running", kInt,
     "%s(), failed to update ois running: %u, return: %d"},
    {NAMED(setOisCheck), "qz_ois_check", "qz_ois_check", kInt,
     "%s(), failed to update ois check: %u, return: %d"},
    {NAMED(setOisDegreeMode), "qz_ois_degree_mode", "qz_ois_degree_mode", kInt,
     "%s(), failed to update ois check: %u, return: %d"},

    // Professional controls and exposure
    {NAMED(setExposureMode), "qz-exposure-mode", "lightPaintingMode", kExposure,
     "%s(), failed to update exposure mode: %s, %u, return: %d"},
    {NAMED(setExposureTryAe), "qz-exposure-try-ae", "lightPaintingTryAe", kOnOff,
     "%s(), failed to update exposure try AE: %s, %u, return: %d", "%s(), set exposure try AE: %d"},
    {NAMED(setRelayoutMode), "qz-relayout-mode", "lightPaintingRelayoutMode", kRelayout,
     "%s(), failed to update relayout mode: %s, %u, return: %d", "%s(), set relayout mode: %d"},
    {NAMED(setManualIso), "qz-manual-iso-value", "manualIsoValue", kIso,
     "%s(), failed to update manual iso: %u, return: %d"},
    {NAMED(setManualExposure), "qz-manual-exposure-value", "manualExposureValue", kShutter,
     "%s(), failed to update manual exposure: %u, return: %d"},
    {NAMED(setSensorWb), "qz-sensor-wb", "sensorWbValue", kAutoOrInt,
     "%s(), failed to update sensorWb: %d, return: %d"},
    {NAMED(setSensorIso), "qz-sensor-iso", "sensorIso", kAutoOrInt,
     "%s(), failed to update sensorIso value: %d, return: %d"},
    {NAMED(setProfessionalMode), "qz-professional-mode", "professionalMode", kOnOff,
     "%s(), failed to update professional mode: %s, %u, return: %d"},
    {NAMED(setExposureHintMode), "qz-exposure-hint-mode", "exposureHintMode", kOnOff,
     "%s(), failed to update exposure hint mode: %d, return: %d"},
    {NAMED(setDynamicIsoRange), "qz-dynamic-iso-range", "qz-dynamic-iso-range", kIsoRange,
     "%s(), failed to update dynamic ISO range: [%d, %d], return: %d"},
    {NAMED(setProFocusMode), "qz-pro-focus-mode", "professionalFocusMode", kProFocus,
     "%s(), failed to update pro focus mode: %u, return: %d"},
    {NAMED(setFocusAssistFlashMode), "qz-focus-assist-flash-mode", "profFocusAssistFlashMode", kAssist,
     "%s(), failed to update focusAssistFlashMode: %s, %u, return: %d"},
    {NAMED(setDarkRaiderModeEnable), "qz-dark-raider-mode-enable", "darkRaiderMode", kInt,
     "%s(), failed to update dark raider mode enable: %d, return: %d"},

    // Areas, sizes and files. 35 stands for every scene that is written as 0.
    {NAMED(setExtSceneMode), "scene-mode", "extSceneMode", kScene,
     "%s(), failed to update extended scene mode: 35, return: %d"},
    {NAMED(setFocusAreas), "focus-areas", "qz-focus-value", kArea,
     "%s(), failed to update focus areas: %s (%d, %d) (%d, %d), return: %d"},
    {NAMED(setMeteringAreas), "metering-areas", "qz-metering-value", kArea,
     "%s(), failed to update metering areas: %s (%d, %d) (%d, %d), return: %d"},
    {NAMED(setRotation), "rotation", "qz-rotation-value", kInt,
     "%s(), failed to update rotation value: %d, return: %d"},
    {NAMED(setSubPictureSize), "sub-picture-size", "qz-sub-sensor-cap-resolution", kSize,
     "%s(), failed to sub picture size return: %d", "%s(), picture (%d, %d), strpic %s"},
    {NAMED(setPostJpegFileName), "post-process-picture-name", "qz-jpeg-filename", kUtf16,
     "%s(), failed to update post jpeg file name: %s, return: %d"},
    {NAMED(setRawImgSaveSwitch), "qz-raw-img-save-switch", "qz-raw-img-save-switch", kOnOff,
     "%s(), failed to update raw img save switch: %d, return: %d"},
    {NAMED(setRawImgPathName), "qz-raw-img-path-name", "qz-raw-img-path-name", kUtf16,
     "%s(), failed to update raw img file path name: %s, return: %d", "%s(), set Raw image path file: %s"},

    // Modes, flash, beauty, video. setFastSnapshotMode reports in the words of setApertureMode.
    {NAMED(setApertureMode), "qz-big-aperture-mode", "apertureMode", kOnOff,
     "%s(), failed to update apeture mode: %s, %u, return: %d"},
    {NAMED(setApertureValue), "qz-set-aperture-value", "apertureValue", kInt,
     "%s(), failed to update aperture set value: %d, return: %d"},
    {NAMED(setFastSnapshotMode), "fast-snapshot-mode", "fastShotMode", kOnOff,
     "%s(), failed to update apeture mode: %s, %u, return: %d"},
    {NAMED(setRecordingHint), "recording-hint", "qz-recording-hint", kTrueFalse,
     "%s(), failed to update recording hint: %u, return: %d"},
    {NAMED(setDualFlashMode), "qz-dual-flash-mode", "dualFlashMode", kInt,
     "%s(), failed to update dual flash adapt mode: %d, return: %d"},
    {NAMED(setDualFlashCurrentIndex), "qz-dual-flash-current-index", "dualFlashIndex", kInt,
     "%s(), failed to update dual flash current index: %d, return: %d"},
    {NAMED(setDualFlashPictureIndex), "qz-dual-flash-picture-index", "qz-dual-flash-picture-index", kInt,
     "%s(), failed to update dual flash picture index: %d, return: %d"},
    {NAMED(setAllFocuseMode), "qz-refocus-mode", "allFocusMode", kOnOff,
     "%s(), failed to update allfocus mode: %s, %u, return: %d"},
    {NAMED(setNiceFood), "qz-nice-food-mode", "niceFoodMode", kOnOff,
     "%s(), failed to update nice food mode: %s, %u, return: %d"},
    {NAMED(setQzcameraFlag), "qz-qzcamera-flag", "qzCameraFlag", kOnOff,
     "%s(), failed to update qzcamera flag: %s, %u, return: %d"},
    {NAMED(setPrepareCaptureFlag), "qz-capture-prepare", "prepareCaptureFlag", kOnOff,
     "%s(), failed to update PrepareCapture flag: %s, %u, return: %d"},
    {NAMED(setQzVideoFPS), "qz-video-fps", "qz-video-fps", kInt,
     "%s(), failed to update video FPS: %d, return: %d"},
    {NAMED(setFocusMeteringSeparation), "qz-focus-metering-separation", "focusMeteringSeperateMode", kOnOff,
     "%s(), failed to update focus and metering separation info: %s, %d, return: %d"},
    {NAMED(setFrontFlashLevel), "front_flash_level", "frontFlashLevel", kInt,
     "%s(), failed to update front flash level: %d, return: %d"},
    {NAMED(setManualFlash), "qz-manual-flash", "manualFlashMode", kOnOff,
     "%s(), failed to manual flash: %s, %u, return: %d"},
    {NAMED(setColorEffectLevel), "zy-level", "colorEffectLevel", kInt,
     "%s(), failed to update color effect level: %d, return: %d"},
    {NAMED(setMakeUpEffect), "qz-makeup-effect", "makeUpEffect", kMakeUp,
     "%s(), failed to update qz makeup effect mode: %u, return: %d"},
    {NAMED(setFaceMakeUp), "qz-makeup-mode", "makeUpMode", kOnOff,
     "%s(), failed to update make up mode: %s, %u, return: %d"},
    {NAMED(setColorMode), "qz-color-mode", "colorMode", kColor,
     "%s(), failed to update Color Mode: %s, %u, return: %d"},
    {NAMED(setDmWaterMarkMode), "qz-dm-watermark-mode", "dmWaterMarkMode", kOnOff,
     "%s(), failed to update DM water mark mode: %s, %u, return: %d"},

    {NAMED(setpanorama2DMode)},
    {NAMED(setpanorama2DTinySize)},
    {NAMED(setDualPrimaryMode)},
    {NAMED(setMMILowLightSensor)},
    {NAMED(setOisOTParam)},
    {NAMED(setQzExposureCompValue)},
    {NAMED(setSensorExposureTime)},
    {NAMED(setZoom)},
    {NAMED(setJpegThumbnailSize)},
    {NAMED(setJpegQuality)},
    {NAMED(setPictureSize)},
    {NAMED(resetSubCropRegion)},
    {NAMED(setFaceBeautyForChat)},
    {NAMED(resetVideoStabilization)},
};

std::vector<Row> TestPeer::rows() { return {std::begin(kRows), std::end(kRows)}; }

}  // namespace qz
