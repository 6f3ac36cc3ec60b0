// SPDX-License-Identifier: Apache-2.0
// Tests setters with a function: gates, stored state, several keys or entries, arithmetic.
#include "Script.h"

namespace qz::test {
namespace {

// Four members follow their keys even without a tag, the others follow the written value. The 2D-panorama
// mode is written only on a change, and the 255 of an unknown word never equals its flag.
TEST(Step, StateChanges) {
    play(R"(
    setImageProcessMode imagePostProcessMode:b
        qz-image-post-process=on - -> mImagePostProcess: 1
        qz-image-post-process + ->
        qz-image-post-process=yes + -> imagePostProcessMode=255 | mImagePostProcess: 0
        qz-image-post-process=on;key-qz-panorama=yes + -> imagePostProcessMode=1 | mImagePostProcess: 1
        key-qz-panorama=on + -> imagePostProcessMode=0 | mImagePostProcess: 0
        key-qz-panorama=off - -> mImagePostProcess: 1
        key-qz-2dpanorama=on x -> -38 | E ~(), failed to update post process mode: on, 0, return: -38
            | mImagePostProcess: 0
    setAllFocuseMode allFocusMode:b
        qz-refocus-mode=on - -> mAllFocusMode: 1
        qz-refocus-mode + ->
        qz-refocus-mode=yes - -> mAllFocusMode: 0
    setProfessionalMode professionalMode:b
        qz-professional-mode=on - -> mProfessionalMode: 1
        qz-professional-mode + ->
        qz-professional-mode=yes - -> mProfessionalMode: 0
    setQzcameraFlag qzCameraFlag:b
        qz-qzcamera-flag=on - -> mIsQzCamera: 1
        qz-qzcamera-flag + -> mIsQzCamera: 0
        @ownCamera=1;qz-qzcamera-flag=yes - -> mIsQzCamera: 0
    setExposureMode lightPaintingMode:b
        qz-exposure-mode=star + -> lightPaintingMode=5 | mLightPaintingMode: 5
        qz-exposure-mode=car - ->
        x -> -38 | E ~(), failed to update exposure mode: car, 2, return: -38
        qz-exposure-mode=moon + -> lightPaintingMode=0 | mLightPaintingMode: 0
        @lightPainting=3;qz-exposure-mode - -> mLightPaintingMode: 0
    setQzVideoFPS qz-video-fps:i
        qz-video-fps=120 + -> qz-video-fps=120 | mVideoFps: 120
        qz-video-fps=60 - ->
        x -> -38 | E ~(), failed to update video FPS: 60, return: -38
        qz-video-fps=-1 + ->
    setpanorama2DMode panorama2DMode:b
        + ->
        key-qz-2dpanorama=off + ->
        key-qz-2dpanorama=on - ->
        + -> panorama2DMode=1 | mPanorama2DMode: 1
        + ->
        key-qz-2dpanorama=yes + -> panorama2DMode=255
        + -> panorama2DMode=255
        key-qz-2dpanorama=off + -> panorama2DMode=0 | mPanorama2DMode: 0
        key-qz-2dpanorama=yes x -> -38 | E ~(), failed to update panorama mode: yes, 255, return: -38
            | mPanorama2DMode: 1)");
}

TEST(Step, ValuesReturnToZero) {
    play(R"(
    setSensorExposureTime sensorExposureTime:i proExposureTime:r
        qz-sensor-exposure-time=2 ++ -> sensorExposureTime=2000000 | proExposureTime=2/1
            | mSensorExposureTime: 2000000
        qz-sensor-exposure-time=auto ++ -> sensorExposureTime=0 | proExposureTime=0/1 | mSensorExposureTime: 0
        qz-sensor-exposure-time=-1 ++ -> sensorExposureTime=-1000000 | proExposureTime=-1/1
            | mSensorExposureTime: -1000000
    setQzVideoFPS qz-video-fps:i
        qz-video-fps=120 + -> qz-video-fps=120 | mVideoFps: 120
        qz-video-fps=0 + -> qz-video-fps=0 | mVideoFps: 0
        qz-video-fps=-2 + -> qz-video-fps=-2 | mVideoFps: -2
    takeBurstCapture
        burst-capture=3 + -> mBurstCapture: 3
        burst-capture=0 + -> mBurstCapture: 0
        burst-capture=-1 + -> mBurstCapture: -1)");
}

TEST(Step, TwoEntriesStopAtTheFirstFailure) {
    // The name of the height has no section. The section "panorama2D" with the tag "eight" matches it by
    // chance.
    play(R"(
    setpanorama2DTinySize panorama2DWidth:i panorama2DHeight:i panorama2D.eight:i
        key-qz-2dpanorama-tiny-width=-3 +++ ->
        key-qz-2dpanorama-tiny-height=-2 ++- -> panorama2DWidth=-3
        +-+ -> panorama2DWidth=-3 | eight=-2
        --+ -> eight=-2
        x-+ -> -38 | E ~(), failed to update pano2D tiny width: 4294967293, return: -38
        +-x -> -38 | panorama2DWidth=-3 | E ~(), failed to update pano2D tiny heith: 4294967294, return: -38
        key-qz-2dpanorama-tiny-width +-+ ->
    setJpegQuality qz-jpeg-quality:b qz-jpeg-thumbnail-quality:b
        jpeg-quality=351;jpeg-thumbnail-quality=-2 ++ ->
        @lightPainting=255 ++ -> qz-jpeg-quality=95 | qz-jpeg-thumbnail-quality=254
        -+ ->
        +- -> qz-jpeg-quality=95
        x+ -> -38 | E ~(), failed to update jpeg quality: 95, return: -38
        +x -> -38 | qz-jpeg-quality=95 | E ~(), failed to update jpeg thumbnail quality: 254, return: -38
        jpeg-thumbnail-quality=-1 ++ ->
        jpeg-thumbnail-quality=80;jpeg-quality ++ ->
    setPictureSize qz-picture-width:i qz-picture-height:i
        picture-size=4000x-3000 ++ -> qz-picture-width=4000 | qz-picture-height=-3000
        -+ ->
        +- -> qz-picture-width=4000
        x+ -> -38 | E ~(), failed to update picture width: 4000, return: -38
        +x -> -38 | qz-picture-width=4000 | E ~(), failed to update picture height: -3000, return: -38
        picture-size ++ ->
        picture-size=x3000 -- -> E ~(), fail to get pictureWidth from KEY_PICTURE_SIZE
        picture-size=4000 -- -> E ~(), fail to get pictureHeight from KEY_PICTURE_SIZE
        picture-size=4000xx3000 -- -> E ~(), fail to get pictureHeight from KEY_PICTURE_SIZE
    setSensorExposureTime sensorExposureTime:i proExposureTime:r
        qz-sensor-exposure-time=3 ++ -> sensorExposureTime=3000000 | proExposureTime=3/1
            | mSensorExposureTime: 3000000
        qz-sensor-exposure-time=1/2 -+ ->
        +- -> sensorExposureTime=500000
        x+ -> -38 | E ~(), failed to update sensor exposure time: 500000, return: -38
        +x -> -38 | sensorExposureTime=500000 | E ~(), failed to update pro exposure time: 1/2, return: -38
        qz-sensor-exposure-time ++ ->)");
}

TEST(Step, GatesOfLightPaintingAndOfChatBeauty) {
    play(R"(
    setExposureTryAe lightPaintingTryAe:b
        qz-exposure-try-ae=on + ->
    setRelayoutMode lightPaintingRelayoutMode:b
        qz-relayout-mode=snapshot2preview + ->
    $set I ~(), set jpeg thumbnail size: 160, 120
    setJpegThumbnailSize qz-jpeg-thumbnail-size:i
        jpeg-thumbnail-width=160;jpeg-thumbnail-height=120 + ->
        @lightPainting=1 + -> qz-jpeg-thumbnail-size=160,120 | $set
        - ->
        x -> -38 | $set | E ~(), failed to update jpeg thumbnail size: 160, 120, return: -38
        jpeg-thumbnail-height=-1 + ->
        jpeg-thumbnail-height=120;jpeg-thumbnail-width + ->
    $open I ~(), open face beauty for chatting, mode:
    setFaceBeautyForChat faceBeautyMode:b faceBeautyLevel:i
        @flag=0x80000001;qz-face-beauty-preview-only=auto -+ ->
        ++ -> faceBeautyMode=255 | faceBeautyLevel=7 | $open auto, call back flag: 0x80000001
        @flag=3;qz-face-beauty-preview-only=on +- -> faceBeautyMode=1 | $open on, call back flag: 0x3
        qz-qzcamera-flag=yes x+ -> -38 | $open on, call back flag: 0x3
            | E ~(), failed to update face beauty mode, 1, return: -38
        qz-qzcamera-flag=off +x -> -38 | faceBeautyMode=1 | $open on, call back flag: 0x3
            | E ~(), failed to update face beauty level: 7, return: -38
        qz-qzcamera-flag=on ++ ->
        qz-qzcamera-flag;@flag=2 ++ ->
        @flag=1;camera.ignore.chat.facebeauty=01 +- -> faceBeautyMode=1 | $open on, call back flag: 0x1
        camera.ignore.chat.facebeauty=1x -+ -> I ~(), ignore face beatuty for chat by prop.
        qz-face-beauty-preview-only=off ++ ->
        qz-face-beauty-preview-only ++ ->
        camera.ignore.chat.facebeauty=0 ++ ->
        qz-face-beauty-preview-only=off ++ ->)");
}

// The low-light entry is written if its tag is declared.
TEST(Step, DebugPropertyAndLowLight) {
    play(R"(
    $set I ~(), set dual primary mode:
    $0 dualSensorMode=0 | $set 0, return: 0
    $2 dualSensorMode=2 | $set 2, return: 0
    $3 dualSensorMode=3 | $set 3, return: 0
    setDualPrimaryMode dualSensorMode:b
        camera.debug.mode=3 + ->
        qz-dual-primary-mode=default - ->
        x -> -38 | $set 3, return: -38 | E ~(), failed to update qz dual primary mode: 3, return: -38
        + -> $3
        camera.debug.mode=;qz-dual-primary-mode=secondary + -> $2
        qz-dual-primary-mode=primary + -> $0
        qz-dual-primary-mode=default + -> $0
        qz-dual-primary-mode=yes + -> dualSensorMode=255 | $set 255, return: 0
        qz-dual-primary-mode=dual;camera.debug.mode=2 + -> $2
        camera.debug.mode=1 + -> $0
        camera.debug.mode=0 + -> $3
        camera.debug.mode=4 + -> $3
        camera.debug.mode=0x2 + -> $2
        camera.debug.mode=02nd + -> $2
        camera.debug.mode=010 + -> $3
        camera.debug.mode=-1 + -> $3
        camera.debug.mode=4294967298 + -> $3
    setMMILowLightSensor mmtest-lowlight-param:i
        + -> mmtest-lowlight-param=-1,-100
        mmitest-lowlight-sensor-mode=3 + -> mmtest-lowlight-param=3,-100
        mmitest-lowlight-sensor-gain=30000000 + -> mmtest-lowlight-param=3,-1294967296
        mmitest-lowlight-sensor-gain=5 - ->
        x -> -38 | E ~(), failed to update MMI low light sensor test: 3, 5, return: -38)");
}

TEST(Step, ReadingOfTexts) {
    play(R"(
    setTargetTrackingCoord qz-device-target-tracking-coordinate:i
        target-coordinates=3 4 - ->
        target-coordinates=3 4 + -> E parseCoodinate(), Cannot find delimeter ',' in coordinate: 3 4
        target-coordinates=x,4 x -> E parseCoodinate(), Cannot find delimeter ',' in coordinate: x,4
    setDynamicIsoRange qz-dynamic-iso-range:i
        qz-dynamic-iso-range=,3200 - -> E ~(), fail to get dynamic ISO min.
        qz-dynamic-iso-range=100 - -> E ~(), fail to get dynamic ISO max.
        qz-dynamic-iso-range=100,,3200 + -> E ~(), fail to get dynamic ISO max.
    setPostJpegFileName qz-jpeg-filename:b
        post-process-picture-name= + -> qz-jpeg-filename=
    setExtSceneMode extSceneMode:b
        scene-mode=hdr x -> -38 | E ~(), failed to update extended scene mode: 34, return: -38
    setQzExposureCompValue exposureCompValue:f
        + ->
        qz-exposure-compensation-value=0.7 + -> exposureCompValue=0.699999988 | I set qz exposure = 0.700000
        qz-exposure-compensation-value=-1e3x + -> exposureCompValue=-1000 | I set qz exposure = -1000.000000
        qz-exposure-compensation-value=1e999 + -> exposureCompValue=inf | I set qz exposure = inf
        qz-exposure-compensation-value=16777217 - ->
        + -> exposureCompValue=16777216 | I set qz exposure = 16777216.000000
        x -> -38 | E ~(), failed to update qz exposure compentation value: 16777216.000000, return: -38)");
    ScriptCamera bench;
    for (const char* text : {"abc", ""}) {
        bench.set("qz-exposure-compensation-value", text);
        EXPECT_EQ(bench.call("setQzExposureCompValue", {}), "E getInt setQzExposureCompValue failed ");
    }
}

TEST(Step, OisCalibrationEndsAtAMissingTagOnly) {
    play(R"(
    $gyro I ~(), set gryoOffsetCalib: 1
    $hall I ~(), set hallCalib: 255
    $check I ~(), set hallCheck: 0
    $gain I ~(), set gryo gain: (1.500000, -2.500000)
    $kept I ~(), save gryo gain: (5.000000, 6.000000, 7.000000, 0.250000)
    $failed E ~(), failed to update ANDROID_QZ_OIS_
    setOisOTParam oisGryoOffsetCalib:b oisHallCalib:b oisHallCheck:b oisSetGryoGain:f oisSaveGryoGain:f
        +++++ ->
        qz_ois_gryo_offset_calib=on;qz_ois_hall_calib=yes;qz_ois_hall_check=off -++++ ->
        qz_ois_set_gryo_gain=(9,9)(1.5,-2.5);qz_ois_save_gryo_gain=(1,2,3,4)(5,6,7,0.25) -++++ ->
        +++++ -> oisGryoOffsetCalib=1 | oisHallCalib=255 | oisHallCheck=0 | oisSetGryoGain=1.5,-2.5
            | oisSaveGryoGain=5,6,7,0.25 | $gyro | $hall | $check | $gain | $kept
        xxxxx -> $gyro | $failedGRYO_OFFSET_CALIB: 1, return: -38 | $hall
            | $failedHALL_CALIB: 255, return: -38 | $check | $failedHALL_CHECK: 0, return: -38 | $gain
            | $failedSET_GRYO_GAIN: (9,9)(1.5,-2.5) (1.500000, -2.500000) return: -38 | $kept
            | $failedSET_GRYO_GAIN: (1,2,3,4)(5,6,7,0.25) (5.000000, 6.000000, 7.000000, 0.250000) return: -38
        +-+++ -> oisGryoOffsetCalib=1 | $gyro
        ++-++ -> oisGryoOffsetCalib=1 | oisHallCalib=255 | $gyro | $hall
        +++-+ -> oisGryoOffsetCalib=1 | oisHallCalib=255 | oisHallCheck=0 | $gyro | $hall | $check
        qz_ois_gryo_offset_calib -+++- -> oisHallCalib=255 | oisHallCheck=0 | oisSetGryoGain=1.5,-2.5
            | $hall | $check | $gain
        qz_ois_hall_calib;qz_ois_set_gryo_gain=(1.5) --+-+ -> oisHallCheck=0 | oisSaveGryoGain=5,6,7,0.25
            | $check | $kept
        qz_ois_hall_check;qz_ois_set_gryo_gain=(1e99,1) ----+ -> oisSaveGryoGain=5,6,7,0.25 | $kept
        qz_ois_set_gryo_gain=(1,2)(3,x) ----+ -> oisSaveGryoGain=5,6,7,0.25 | $kept
        qz_ois_set_gryo_gain;qz_ois_save_gryo_gain=(1,2,3) +++-+ ->
        qz_ois_set_gryo_gain=0.98,1.02 +++++ -> oisSetGryoGain=0,0
            | I ~(), set gryo gain: (0.000000, 0.000000)
        qz_ois_set_gryo_gain=(0.98,1.02) +++++ -> oisSetGryoGain=0.980000019,1.01999998
            | I ~(), set gryo gain: (0.980000, 1.020000))");
}

TEST(Step, StabilisationIsForcedOff) {
    play(R"(
    $all I ~(), ignore all third app video stabilization by prop, app:
    $insta I ~(), ignore 'com.instagram.android' 'com.instagram.android' video stabilization by prop.
    $snap I ~(), ignore 'com.snapchat.android' 'com.snapchat.android' video stabilization by prop.
    $force I ~(), force close video stabilization.
    resetVideoStabilization
        @client=com.instagram.android + ->
        video-stabilization=true + -> videoStabilizationMode=0 | $insta | $force
        @client=com.snapchat.android + -> videoStabilizationMode=0 | $snap | $force
        camera.ignore.videostdb.all=1x + -> videoStabilizationMode=0 | $all com.snapchat.android
            | $snap | $force
        camera.ignore.videostdb.partial=0 + -> videoStabilizationMode=0 | $all com.snapchat.android | $force
        @request=locked + -> -38 | $all com.snapchat.android | $force
            | E ~(), failed to reset video stabilization, return: -38
        @request=;video-stabilization=on + ->
        video-stabilization=false + ->
        @ownCamera=1;video-stabilization=true + ->
        @ownCamera=0;camera.ignore.videostdb.all=01 + ->
        camera.ignore.videostdb.partial=10;@client=com.Snapchat.android + ->
        @client=com.snapchat.android2 + ->
        @client= + ->
        @client=com.é.app;camera.ignore.videostdb.all=1 + -> videoStabilizationMode=0 | $all com.é.app
            | $force)");
}

TEST(Step, ZoomAndCropInSinglePrecision) {
    play(R"(
    $none E Error finding static metadata entry 'android.scaler.availableMaxDigitalZoom' (d0004)
    setZoom qz-zoom-in:f
        zoom=1;max-zoom=0 - -> E ~(), KEY_MAX_ZOOM = 0, error!
        max-zoom=3 - -> $none | E maxDigitalZoom.count = 0
        @maximum=8 - ->
        + -> qz-zoom-in=3.33333349
        max-zoom=-1 + ->
        max-zoom + ->
        max-zoom=99;zoom=0 + -> qz-zoom-in=1
        zoom=99 + -> qz-zoom-in=8
        zoom=4;max-zoom=-2 + -> qz-zoom-in=-13
        zoom=28;max-zoom=99;@maximum=4,2 + -> qz-zoom-in=1.84848475
        zoom=99 x -> -38 | E ~(), failed to set zoom: 4.000000, return: -38
        zoom=-1;max-zoom=0 + ->
        zoom;max-zoom=99 + ->
    $without E Error finding static metadata entry 'com.ambrix.device.capabilities.qzSubActiveArraySize' (80000001)
    $crop I ~(), reset sub crop region:
    resetSubCropRegion com.ambrix.device.capabilities.qzSubActiveArraySize:i
        zoom=33;max-zoom=50;qz-dual-primary-mode=secondary + -> $without
        @array=4000,3000 + -> $none
        @maximum=4 - ->
        + -> cropRegion=1000,750,2000,1500
            | $crop [1000.000000, 750.000000, 2000.000000, 1500.000000] for zoom: 33
        zoom=22 + -> cropRegion=800,600,2400,1799
            | $crop [800.000000, 600.000061, 2400.000000, 1799.999878] for zoom: 22
        zoom + -> cropRegion=-62,-46,4125,3093
            | $crop [-62.500000, -46.875000, 4125.000000, 3093.750000] for zoom: -1
        @maximum=100 + -> cropRegion=-2147483648,-2147483648,2147483647,2147483647
            | $crop [-inf, -inf, inf, inf] for zoom: -1
        @maximum=8;@array=8,16,4000,3000;zoom=10 + -> cropRegion=828,621,2343,1757
            | $crop [828.402344, 621.301758, 2343.195312, 1757.396484] for zoom: 10
        @array=8,16,4000 + ->
        @array=4000 + ->
        @array=8,16,4000,3000,9 + ->
        @array=4000,3000;zoom=0;@request=locked + -> -38
            | $crop [0.000000, 0.000000, 4000.000000, 3000.000000] for zoom: 0
            | E ~(), failed to update sub sensor crop region, return: -38
        @request=;qz-dual-primary-mode=dual + ->
        qz-dual-primary-mode=yes + ->
        qz-dual-primary-mode + ->)");
}

TEST(Pass, StateOfEarlierSetters) {
    const auto device = declare(
        "iso:b manualFocusValue:i faceBeautyMode:b faceBeautyLevel:i lightPaintingMode:b "
        "lightPaintingTryAe:b",
        "x+++++");
    ScriptCamera bench;
    const auto entries = [&] {
        const std::string outcome = bench.call("paramToMetaData", device);
        return outcome.substr(0, outcome.find(" | E "));
    };
    // A refused iso does not end the pass.
    bench.set("@flag=1;@client=com.instagram.android;iso=100;qz-magnifier-step-value=3;qz-face-beauty=off");
    bench.set("qz-manual-focus-step-value=9;qz-omron-face-beauty-level=2;qz-face-beauty-preview-only=yes");
    bench.set("qz-exposure-mode=star;qz-exposure-try-ae=on;video-stabilization=true");
    EXPECT_EQ(entries(),
              "faceBeautyMode=255 | faceBeautyLevel=7 | manualFocusValue=9 | lightPaintingMode=5 | "
              "lightPaintingTryAe=1 | videoStabilizationMode=0");
    bench.set("qz-qzcamera-flag=on;qz-exposure-mode");
    EXPECT_EQ(entries(), "faceBeautyMode=0 | faceBeautyLevel=2 | manualFocusValue=9");
}

}  // namespace
}  // namespace qz::test
