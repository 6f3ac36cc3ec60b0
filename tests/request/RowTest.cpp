// SPDX-License-Identifier: Apache-2.0
// Tests one plain row of each kind, and the functions that read one key.
#include "Script.h"

namespace qz::test {
namespace {

TEST(Row, EachKindIsWritten) {
    play(R"(
    setIso iso:b
        + ->
        iso=1600 - ->
        + -> iso=7
        x -> -38 | E ~(), failed to update iso: 7, return: -38
        iso=300 + -> iso=255
    setContrast constrastValue:b
        contrast=150 + -> constrastValue=3
        x -> -38 | E ~(), failed to update contrast: 150, 3, return: -38
    setBurstInterval burst-delay-ms:i
        burst-delay-ms=7 + -> burst-delay-ms=7
        burst-delay-ms=0x10 + -> burst-delay-ms=16
        burst-delay-ms=-1 + ->
        burst-delay-ms=-2 x -> -38 | E ~(), failed to update burstInterval: -2, return: -38
    setpanorama2DCap panorama2DCaptureMode:i
        key-qz-2dpanorama-cap=-2 x -> -38 | E ~(), failed to update pano2dCap 4294967294, return: -38
    setMMIAFTestMode qz-af-mmi-control-enable:i
        qz-af-mmi-control-mode=yes + -> qz-af-mmi-control-enable=-1
        x -> -38 | E ~(), failed to update MMI af mode: -1, return: -38
    setSensorWb sensorWbValue:i
        qz-sensor-wb=5200K + -> sensorWbValue=5200
        qz-sensor-wb=auto + -> sensorWbValue=0
        qz-sensor-wb=cloudy + -> sensorWbValue=0
        qz-sensor-wb=-1 + -> sensorWbValue=-1
        qz-sensor-wb=9999999999 x -> -38 | E ~(), failed to update sensorWb: 2147483647, return: -38
    $set I ~(), set camera mmi pdaf verify:
    setMMICameraPdafVerify qz-mmi-camera-pdaf-verification-mode:b
        key-pdaf-verify=yes - ->
        + -> qz-mmi-camera-pdaf-verification-mode=255 | $set 255, yes
        x -> -38 | $set 255, yes | E ~(), failed to update mmi camera pdaf verify: yes, 255, return: -38
    setMMILaserCalibration qz_laser_calibrate:i
        key-laser-calibration=7 + -> qz_laser_calibrate=7 | I ~(), mmi set laser calibration 7
    setRelayoutMode lightPaintingRelayoutMode:b
        qz-relayout-mode=snapshot2preview + ->
        @lightPainting=255 + -> lightPaintingRelayoutMode=1 | I ~(), set relayout mode: 1)");
}

TEST(Row, FunctionWritesANumber) {
    play(R"(
    $enter E Enter setZslMode(512)
    setZslMode qz-zsl-mode:b
        + -> $enter
        zsl-mode=on - -> $enter
        + -> qz-zsl-mode=1 | $enter | I ~(), set zslmode: 1
        zsl-mode=yes x -> -38 | $enter | I ~(), set zslmode: 255
            | E ~(), failed to update zslmode :  255, return: -38
    setMirrorPoint mirrorPoint:i
        face-mirror-point=-5 + -> mirrorPoint=0
        face-mirror-point=0 + -> mirrorPoint=0
        face-mirror-point=-1 + ->
        face-mirror-point=26 x -> -38 | E ~(), failed to update mirror point: 0x1a, return: -38
    setExposureTime qz-exposure-time:r
        key_exposure_time=20000 + -> qz-exposure-time=20000/1000000
        key_exposure_time=0 + -> qz-exposure-time=0/1000000
        key_exposure_time=-1 + ->
        key_exposure_time=-2 x -> -38 | E ~(), failed to update exposure time: -2/1000000, return: -38
    setExtSceneMode extSceneMode:b
        scene-mode=qzauto + -> extSceneMode=33
        scene-mode=night + -> extSceneMode=0
        x -> -38 | E ~(), failed to update extended scene mode: 35, return: -38)");
}

TEST(Row, FunctionWritesSeveralNumbers) {
    play(R"(
    setTargetTrackingCoord qz-device-target-tracking-coordinate:i
        target-coordinates=3,-4 + -> qz-device-target-tracking-coordinate=3,-4
        target-coordinates=,5 + -> qz-device-target-tracking-coordinate=0,5
        target-coordinates=5, + -> qz-device-target-tracking-coordinate=5,0
        target-coordinates=9999999999,-9999999999 + -> qz-device-target-tracking-coordinate=2147483647,-2147483648
    setFocusAreas qz-focus-value:i
        focus-areas=(9,9,9,9,9),(1,2,3,4,5) + -> qz-focus-value=1,2,3,4,5
        focus-areas=(1,2,3,4,5)(6) + ->
        focus-areas=x + -> qz-focus-value=0,0,0,0,0
        focus-areas=(9999999999) + ->
    setMeteringAreas qz-metering-value:i
        metering-areas=(-5,4,3,2,1) + -> qz-metering-value=-5,4,3,2,1
        x -> -38 | E ~(), failed to update metering areas: (-5,4,3,2,1) (-5, 4) (3, 2), return: -38
    setMmiRawRegion qz-mmi-raw-region:i
        qz-mmi-raw-region=(1,2,3,4)(5,6,7,8) + -> qz-mmi-raw-region=5,6,7,8
        qz-mmi-raw-region=(10,20) + -> qz-mmi-raw-region=10,20,0,0
        qz-mmi-raw-region=(1,9999999999,3) + -> qz-mmi-raw-region=1,0,0,0
    setMmiSubRawRegion qz-mmi-sub-raw-region:i
        qz-mmi-sub-raw-region=abc + -> qz-mmi-sub-raw-region=0,0,0,0
        x -> -38 | E ~(), failed to update MMI sub RAW region: abc, return: -38
    setSubPictureSize qz-sub-sensor-cap-resolution:i
        sub-picture-size=(1,2)(4000x3000) + -> qz-sub-sensor-cap-resolution=4000,3000
            | I ~(), picture (4000, 3000), strpic (1,2)(4000x3000)
        sub-picture-size=4000x3000 + -> qz-sub-sensor-cap-resolution=0,0
            | I ~(), picture (0, 0), strpic 4000x3000
        sub-picture-size=(7,x) + -> qz-sub-sensor-cap-resolution=7,0 | I ~(), picture (7, 0), strpic (7,x)
    setDynamicIsoRange qz-dynamic-iso-range:i
        qz-dynamic-iso-range=100,3200 + -> qz-dynamic-iso-range=100,3200
        qz-dynamic-iso-range=-5x+7 + -> qz-dynamic-iso-range=-5,7
        qz-dynamic-iso-range=0,9999999999 + -> qz-dynamic-iso-range=0,2147483647
    setPostJpegFileName qz-jpeg-filename:b
        post-process-picture-name=raw + -> qz-jpeg-filename=114,0,97,0,119,0
        post-process-picture-name=é中 + -> qz-jpeg-filename=233,0,45,78
    setRawImgPathName qz-raw-img-path-name:b
        qz-raw-img-path-name=😀 + -> qz-raw-img-path-name=61,216,0,222 | I ~(), set Raw image path file: 😀)");
}

}  // namespace
}  // namespace qz::test
