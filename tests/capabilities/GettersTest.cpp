// SPDX-License-Identifier: Apache-2.0
// One plain getter of each kind, and everything that getters with a function publish, store and log.
#include "Device.h"

namespace qz::test {
namespace {

TEST(Getter, EachKindIsPublished) {
    play(R"(
getBurstSupported|burstModeSupported=0|qz-r7-burst-supported=false
getBurstSupported|burstModeSupported=2|qz-r7-burst-supported=true
getBurstSupported|burstModeSupported=0,1,1|qz-r7-burst-supported=false
getBurstSupported|burstModeSupported=255,0|qz-r7-burst-supported=true
getBurstSupported|burstModeSupported=|||I supportedBurst.count = 0
getProfessionalModeSupported|professionalModeSupported=1|qz-professional-mode-supported=true
getProfessionalModeSupported|professionalModeSupported=1,1|||I professionalModeSupported.count = 2
getRawImageSupported|rawImgSupported=1|qz-raw-img-save-supported=true||I Raw IMG save supported = true
getSlowMotionNoZoomSupported|slowmoNoZoom=0|qz-slow-mo-no-zoom=false||D slow motion no zoom mode supported = false
getDmWaterMarkSupported|dmWaterMarkSupported=1|qz-dm-watermark-supported=true
    |I getDmWaterMarkSupported(), DM water mark supported: true
getSupportedIso|supported_iso_values=0,2,1,255|iso-mode-values=auto,100,unknown,unknown
    |E isoModeEnumToString: Unknown iso mode enum: 1|E isoModeEnumToString: Unknown iso mode enum: 255
getSupportedRelayoutModes|availbaleRelayoutModes=0,1|qz-relayout-mode-values=none,snapshot2preview
    |I supported relayout modes = none,snapshot2preview
getManualVcmStartValue|manualVcmStartValue=-2147483648,7|qz-vcm-start-value=-2147483648
getBurstJpegQuality|burstJpegQuality=96,7|qz-burst-jpeg-quality=96||I burst jpeg quality value = 96
getSupportedVideoFps|videoFpsSupported=30,60,-2147483648|qz-video-fps-supported=30,60,-2147483648
    |I supported video fps = 30,60,-2147483648
getSupportedApertureValue|apertureValueSupported=50,44,52|qz-supported-aperture-value=2,4
getSupportedApertureValue|apertureValueSupported=50,44,52,0,56|qz-supported-aperture-value=2,4
getSupportedApertureValue|apertureValueSupported=0,56|qz-supported-aperture-value=
)");
}

TEST(Getter, PublishesRangesAndDecimals) {
    play(R"(
getFaceBeautyRange|faceBeautyRange=-7,100|qz-min-beauty-level=-7;qz-max-beauty-level=100
getFaceBeautyRange|faceBeautyRange=1,2,3|||I enMaxBeautyLevel.count = 3
getExposureLevelRange|exposureLevelRange=-2147483648,8|qz-min-exposure-time=-2147483648;qz-max-exposure-time=8
    |I exposure level: [-2147483648, 8]
getSensorExposureTimeRange|qz-sensor-exposure-range=250000,3000000|qz-sensor-exposure-time-range=1/4,3
getSensorExposureTimeRange|qz-sensor-exposure-range=999999,1000000|qz-sensor-exposure-time-range=1/1,1
getSensorExposureTimeRange|qz-sensor-exposure-range=0,2147483647|qz-sensor-exposure-time-range=0,2147
getSensorExposureTimeRange|qz-sensor-exposure-range=-2147483648,1500000|qz-sensor-exposure-time-range=1/0,1
getSensorExposureTimeRange|qz-sensor-exposure-range=1,-1|qz-sensor-exposure-time-range=1/1000000,
    |E microSecondToSecond(), snprintf_s failed!
getSensorExposureTimeRange|qz-sensor-exposure-range=-1,-2|qz-sensor-exposure-time-range=,1/-500000
    |E microSecondToSecond(), snprintf_s failed!
getSensorWbRange|sensorWbRange=-99999999,123456789|qz-sensor-wb-range=-99999999,123456789
getSensorWbRange|sensorWbRange=-99999999,1234567890|qz-sensor-wb-range=||E getSensorWbRange(), snprintf_s failed!
getSensorISORange|qz-sensor-iso-range=123456789,-99999999|qz-sensor-iso-range=123456789,-99999999
getSensorISORange|qz-sensor-iso-range=1234567890,-99999999|qz-sensor-iso-range=
    |E getSensorISORange(), snprintf_s failed!
getColorEffectRange|availbaleEffectRange=-9999999,12345678|qz-color-effect-range=(-9999999,12345678)
getColorEffectRange|availbaleEffectRange=-9999999,123456789|qz-color-effect-range=
    |E getColorEffectRange(), snprintf_s failed!
getHdcAvailabeJpegSize|qzHdcAvailableJpegSize=123456789,987654321|hdc-available-jpeg-size=123456789,987654321
    |I Enter getHdcAvailabeJpegSize(94)
getHdcAvailabeJpegSize|qzHdcAvailableJpegSize=1234567890,987654321|hdc-available-jpeg-size=1234567890,98765432
    |I Enter getHdcAvailabeJpegSize(94)|E getHdcAvailabeJpegSize(100), snprintf_s return error(-1)
getQzExposureCompStep|qzExposureCompensationStep=0.1,2|qz-exposure-compensation-step=0.100000
getQzExposureCompStep|qzExposureCompensationStep=123456.789|qz-exposure-compensation-step=123456.789062
getQzExposureCompStep|qzExposureCompensationStep=9e23
    qz-exposure-compensation-step=899999998052066261991424.000000
getQzExposureCompStep|qzExposureCompensationStep=-9e23|qz-exposure-compensation-step=
    |E getQzExposureCompStep(), snprintf_s failed!
getOisDefaultGryoGain|oisDefaultGryoGain=1.5,-0.25,3|qz_ois_default_gryo_gain=(1.500000,-0.250000)
    |I default gryo gain = (1.500000,-0.250000)
getOisDefaultGryoGain|oisDefaultGryoGain=1.5|qz_ois_default_gryo_gain=(1.500000,0.000000)
    |I default gryo gain = (1.500000,0.000000)
getOisDefaultGryoGain|oisDefaultGryoGain=123456,123456.789|qz_ois_default_gryo_gain=(123456.000000,123456.789062)
    |I default gryo gain = (123456.000000,123456.789062)
getOisDefaultGryoGain|oisDefaultGryoGain=1234567,123456|qz_ois_default_gryo_gain=
    |E getOisDefaultGryoGain(), snprintf_s failed!|I default gryo gain = 
)");
}

TEST(Getter, FunctionPublishesAList) {
    play(R"(
getSensorBinningSizes|qz-sensor-binning-sizes-supported=1,2|qz-sensor-binning-sizes-supported=1,2,
    |D sensor binning sizes supported = 1,2,
getFrontFlashLevels|availbaleFrontFlashLevel=-1,2,3|front_flash_adjust_supported=true;front_flash_supports=-1,2,3
getLcdCompensateSupported|lcdCompensateSupported=1,0|lcd-compensate-supported-values=off,auto
getLcdCompensateSupported|lcdCompensateSupported=0,1
getLcdCompensateSupported|lcdCompensateSupported=2
getSupportedMakeUpEffect|makeUpEffectSupported=9,8|qz-makeup-support=unknown,mode8
    |I supportedMakeUpEffect.data[0] = 9|E makeUpEffectModeEnumToString: Unknown make up effect enum: 9
    I supportedMakeUpEffect.data[1] = 8|I supported make up effect = unknown,mode8
getSubSupportedPictureSizes|qzSubSensorJpegSize=4000,3000,1920,1080,7|sub-picture-size-values=4000x3000,1920x1080
    mSubPicSizes: 19|I getSubSupportedPictureSizes SubSupportedPictureSizes:4000x3000,1920x1080
getSubSupportedPictureSizes|qzSubSensorJpegSize=7|sub-picture-size-values=
    |I getSubSupportedPictureSizes SubSupportedPictureSizes:
getSupportedSuperPictureSizes|super_resolution_supported=1 superResolutionPictureSize=4000,3000,2000,1500
    key-super-resolution-supported=true;super-resolution-picture-size-values=4000x3000,2000x1500
    mSuperResPicSizes: 19|I super resolution supported = true
    I getSupportedSuperPictureSizes(), supported super resolution picture sizes: 4000x3000,2000x1500
getSupportedSuperPictureSizes|super_resolution_supported=1,0 superResolutionPictureSize=4000,3000,7
    key-super-resolution-supported=true;super-resolution-picture-size-values=4000x3000
    mSuperResPicSizes: 9|I super resolution supported = true
    I getSupportedSuperPictureSizes(), supported super resolution picture sizes: 4000x3000
getSupportedSuperPictureSizes|super_resolution_supported=1 superResolutionPictureSize=4000
    key-super-resolution-supported=true||I super resolution supported = true
getSupportedSuperPictureSizes|super_resolution_supported=2 superResolutionPictureSize=4000,3000
    key-super-resolution-supported=true||I super resolution supported = true
    I getSupportedSuperPictureSizes(), super resolution is not supported!
getSupportedSuperPictureSizes|super_resolution_supported=0 superResolutionPictureSize=4000,3000
    key-super-resolution-supported=false||I super resolution supported = false
    I getSupportedSuperPictureSizes(), super resolution is not supported!
getSupportedExtScene|scene-mode-values=auto android.control.availableSceneModes=33,5,34
    scene-mode-values=autoqzauto,hdr
getSupportedExtScene|scene-mode-values=auto android.control.availableSceneModes=33,34,5
    scene-mode-values=autoqzauto,hdr,
getSupportedExtScene|scene-mode-values= android.control.availableSceneModes=32,35,33|scene-mode-values=qzauto
getSupportedExtScene|scene-mode-values=auto android.control.availableSceneModes=5|scene-mode-values=auto
getSupportedExtScene|android.control.availableSceneModes=33
    ||I getSupportedExtScene(), extended scene mode is null.
)");
}

TEST(Getter, KeepsValues) {
    play(R"(
getQuickThumbnailSize|qz-quickthumbnail-size=-12,1||mMaxQuickThumbnailSize: -12|I mMaxQuickThumbnailSize:-12
getSlowJpegModeThreshold|qz-slow-jpeg-mode-threshold=-5000000000,1
    |mSlowJpegModeThreshold: -5000000000|I mSlowJpegModeThreshold:-5000000000
getInsertPreviewCount|qz-insert-preview-count-in-burst=3,1||mInsertPreviewCount: 3|I Insert preview count = 3
getInsertPreviewCount|qz-insert-preview-count-in-burst=-4|||I Insert preview count = 0
getVideoCallbackSupported|videoCallbackSupported=1,0|video-callback-supported=true|mVideoCallbackSupported: 1
    I video call back supported = true
getVideoCallbackSupported|videoCallbackSupported=2|video-callback-supported=true||I video call back supported = true
getHighVideoCallbackThreshold|highVideoCallbackThresholdSupported=255,7
    high-video-callback-threshold-supported=255|mHighVideoCallbackThreshold: 255
    I high video call back supported = 255
getFrameworkZslSupported|qzFwkZslSupported=1|qz-framework-zsl-supported=true|mFwkZslSupported: 1
    D framework zsl supported = true
getFrameworkZslSupported|qzFwkZslSupported=2|qz-framework-zsl-supported=true||D framework zsl supported = true
getRequireVideoStatus|qzRequireVideoStatus=1,0||mRequireVideoStatus: 1
getRequireVideoStatus|qzRequireVideoStatus=2
getPreShutterSupported|qz-pre-shutter-supported=1,0||mPreShutterSupported: 1
    I getPreShutterSupported(), preshutter supported: true
getPreShutterSupported|qz-pre-shutter-supported=2|||I getPreShutterSupported(), preshutter supported: false
)");
}

}  // namespace
}  // namespace qz::test
