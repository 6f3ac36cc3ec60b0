// Factory tests ("MMI"), verification and calibration switches.
#include "CCameraQzParam.h"
#include "core/Numbers.h"
#include "core/Parsers.h"
#include "core/Vocabulary.h"
#include "request/Entry.h"

namespace qz {

status_t CCameraQzParam::setMMICameraPdafVerify(CameraMetadata* metaData) {
    ByteEntry verify(mExtParam, metaData, __func__);
    verify.key("key-pdaf-verify").tag(CAPTURE("qz-mmi-camera-pdaf-verification-mode")).as(onOffStringToEnum);
    if (verify.open()) LOGI("%s(), set camera mmi pdaf verify: %d, %s", __func__, verify.value, verify.text);
    return WRITE(verify, "%s(), failed to update mmi camera pdaf verify: %s, %u, return: %d", verify.text,
                 verify.value);
}

status_t CCameraQzParam::setDualCameraVerify(CameraMetadata* metaData) {
    ByteEntry verify(mExtParam, metaData, __func__);
    verify.key("key-dual-camera-verify")
        .tag(CAPTURE("qz-dual-camera-verification-mode"))
        .as(onOffStringToEnum);
    if (verify.open()) LOGI("%s(), set dual camera verify: %d, %s", __func__, verify.value, verify.text);
    return WRITE(verify, "%s(), failed to update dual camera verify: %s, %u, return: %d", verify.text,
                 verify.value);
}

status_t CCameraQzParam::setMMIAFCVerify(CameraMetadata* metaData) {
    ByteEntry verify(mExtParam, metaData, __func__);
    verify.key("qz-mmi-afc-mode").tag(CAPTURE("mmiAfcMode")).as(onOffStringToEnum);
    if (verify.open()) LOGI("%s(), set afc verify: %d, %s", __func__, verify.value, verify.text);
    return WRITE(verify, "%s(), failed to update afc verify: %s, %u, return: %d", verify.text, verify.value);
}

status_t CCameraQzParam::setMMIOisVcmCalibVerify(CameraMetadata* metaData) {
    ByteEntry verify(mExtParam, metaData, __func__);
    verify.key("qz-mmi-ois-vcm-calib-mode").tag(CAPTURE("mmiOisVcmCalibMode")).as(onOffStringToEnum);
    if (verify.open()) LOGI("%s(), set ois vcm calib verify: %d, %s", __func__, verify.value, verify.text);
    return WRITE(verify, "%s(), failed to update ois vcm calib verify: %s, %u, return: %d", verify.text,
                 verify.value);
}

status_t CCameraQzParam::setMMILaserCalibration(CameraMetadata* metaData) {
    IntEntry laser(mExtParam, metaData, __func__);
    laser.intKey("key-laser-calibration").tag(CAPTURE("qz_laser_calibrate"));
    if (laser.open()) LOGI("%s(), mmi set laser calibration %d", __func__, laser.value);
    return WRITE(laser, "%s() failed: %d, return: %d", laser.value);
}

status_t CCameraQzParam::setMmiEnable(CameraMetadata* metaData) {
    IntEntry enable(mExtParam, metaData, __func__);
    enable.intKey("qz_mmi_enable").tag(CAPTURE("qz_mmi_enable"));
    return WRITE(enable, "%s(), failed to update mmi enable: %u, return: %d", enable.value);
}

status_t CCameraQzParam::setMmiIVPEnable(CameraMetadata* metaData) {
    IntEntry enable(mExtParam, metaData, __func__);
    enable.intKey("qz-mmi-ivp-pro").tag(CAPTURE("qz-mmi-ivp-pro"));
    return WRITE(enable, "%s(), failed to update MmiIVP enable: %d, return: %d", enable.value);
}

status_t CCameraQzParam::setVcmAgingEnable(CameraMetadata* metaData) {
    IntEntry enable(mExtParam, metaData, __func__);
    enable.intKey("qz_agingvcm_enable").tag(CAPTURE("qz_agingvcm_enable"));
    return WRITE(enable, "%s(), failed to update VcmAging enable: %u, return: %d", enable.value);
}

// An integer entry: an unknown word stays -1 here.
status_t CCameraQzParam::setMMIAFTestMode(CameraMetadata* metaData) {
    IntEntry mode(mExtParam, metaData, __func__);
    mode.key("qz-af-mmi-control-mode").tag(CAPTURE("qz-af-mmi-control-enable")).as(onOffStringToEnum);
    return WRITE(mode, "%s(), failed to update MMI af mode: %d, return: %d", mode.value);
}

// Written on every pass of a device that declares the tag: an absent key contributes its -1.
status_t CCameraQzParam::setMMILowLightSensor(CameraMetadata* metaData) {
    Entry<int32_t, 2> param(mExtParam, metaData, __func__);
    param.tag(CAPTURE("mmtest-lowlight-param"));
    if (!param.open()) return param.status();
    const int mode = mExtParam->getInt("mmitest-lowlight-sensor-mode");
    const int gain = mExtParam->getInt("mmitest-lowlight-sensor-gain");
    param.value = {mode, wrapMultiply(gain, 100)};
    return WRITE(param, "%s(), failed to update MMI low light sensor test: %d, %d, return: %d", mode, gain);
}

status_t CCameraQzParam::setEquipMMIAFTestMode(CameraMetadata* metaData) {
    IntEntry mode(mExtParam, metaData, __func__);
    mode.key("qz-af-equip-mmi-control-mode").tag(CAPTURE("qz-af-equip-mmi-control-mode"));
    mode.as(mmiAfTestModeStringToEnum);
    if (mode.open()) LOGI("%s(), set equip MMI mode: %d", __func__, mode.value);
    return WRITE(mode, "%s(), failed to update equip MMI af mode: %d, return: %d", mode.value);
}

status_t CCameraQzParam::setMmiGammaMode(CameraMetadata* metaData) {
    ByteEntry gamma(mExtParam, metaData, __func__);
    gamma.key("qz-mmi-gamma-mode").tag(CAPTURE("qz-mmi-gamma-mode")).as(onOffStringToEnum);
    return WRITE(gamma, "%s(), failed to update GAMMA mode: %s, %u, return: %d", gamma.text, gamma.value);
}

// Regions are written whatever the text: what does not parse stays 0, so that a test station sees its mistake
// in the image instead of the region of the shot before.
status_t CCameraQzParam::setMmiRawRegion(CameraMetadata* metaData) {
    Entry<int32_t, 4> region(mExtParam, metaData, __func__);
    region.key("qz-mmi-raw-region").tag(CAPTURE("qz-mmi-raw-region"));
    if (region.open()) parseIntTuples(region.text, region.value.data(), region.value.size());
    return WRITE(region, "%s(), failed to update MMI RAW region: %s, return: %d", region.text);
}

status_t CCameraQzParam::setMmiSubRawRegion(CameraMetadata* metaData) {
    Entry<int32_t, 4> region(mExtParam, metaData, __func__);
    region.key("qz-mmi-sub-raw-region").tag(CAPTURE("qz-mmi-sub-raw-region"));
    if (region.open()) parseIntTuples(region.text, region.value.data(), region.value.size());
    return WRITE(region, "%s(), failed to update MMI sub RAW region: %s, return: %d", region.text);
}

status_t CCameraQzParam::setHdcCalib(CameraMetadata* metaData) {
    ByteEntry calib(mExtParam, metaData, __func__);
    calib.key("key-dual-camera-hdc-calib").tag(CAPTURE("qz-mmi-hdc_calib")).as(onOffStringToEnum);
    if (calib.open()) LOGI("%s(), hdcCalib: %d", __func__, calib.value);
    return WRITE(calib, "%s(), failed to hdcCalib: %s, %u, return: %d", calib.text, calib.value);
}

status_t CCameraQzParam::setMmiCaptureDualMode(CameraMetadata* metaData) {
    IntEntry mode(mExtParam, metaData, __func__);
    mode.intKey("qz_mmi_capture_dual_mode").tag(CAPTURE("qzMMICaptureDualMode"));
    if (mode.open()) LOGI("%s(), set capture dual mode: %d", __func__, mode.value);
    return WRITE(mode, "%s(), failed to update capture dual mode: %u, return: %d", mode.value);
}

}  // namespace qz
