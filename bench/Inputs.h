// SPDX-License-Identifier: Apache-2.0
// Inputs of the measured passes: a value for every key, and results with every entry.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qz::bench {

// Flattened parameters of a phone, without the keys of the library, and without the scene modes, which each
// capability pass would extend.
inline std::string standardKeys() {
    return "preview-size=1920x1080;preview-size-values=1920x1080,1440x1080,1280x720,640x480;"
           "preview-format=yuv420sp;preview-format-values=yuv420sp,yuv420p;preview-frame-rate=30;"
           "preview-frame-rate-values=15,24,30;preview-fps-range=15000,30000;"
           "preview-fps-range-values=(15000,15000),(15000,30000),(30000,30000);"
           "picture-size-values=4000x3000,3264x2448,1920x1080;picture-format=jpeg;picture-format-values=jpeg;"
           "jpeg-thumbnail-size-values=320x240,0x0;whitebalance=auto;"
           "whitebalance-values=auto,daylight,cloudy-daylight,fluorescent,incandescent;"
           "auto-whitebalance-lock=false;auto-whitebalance-lock-supported=true;effect=none;"
           "effect-values=none,mono,negative,sepia;antibanding=auto;antibanding-values=auto,50hz,60hz,off;"
           "flash-mode=off;flash-mode-values=off,auto,on,torch;"
           "focus-mode=continuous-picture;focus-mode-values=auto,infinity,macro,continuous-picture;"
           "max-num-focus-areas=1;max-num-metering-areas=1;focal-length=4.2;horizontal-view-angle=63.1;"
           "vertical-view-angle=49.4;focus-distances=Infinity,Infinity,Infinity;exposure-compensation=0;"
           "max-exposure-compensation=12;min-exposure-compensation=-12;exposure-compensation-step=0.166;"
           "auto-exposure-lock=false;auto-exposure-lock-supported=true;max-num-detected-faces-hw=10;"
           "max-num-detected-faces-sw=0;zoom-ratios=100,125,150,200,300,400;zoom-supported=true;"
           "smooth-zoom-supported=false;video-size=1920x1080;video-size-values=1920x1080,1280x720;"
           "preferred-preview-size-for-video=1920x1080;video-frame-format=android-opaque;"
           "video-snapshot-supported=true;video-stabilization-supported=true";
}

// Flattened. No feature excludes another, so that every key is read and nearly every one is written.
inline std::string everyKey() {
    std::string keys =
        "brightness=100;burst-capture=5;burst-delay-ms=40;burst-stop-command=true;contrast=150;"
        "exp-bracketing-range=2;face-mirror-point=12;face-mirror-supported=1;focus-areas=(-100,-100,100,100,"
        "1);"
        "front_flash_level=3;iso=1600;jpeg-quality=95;jpeg-thumbnail-height=240;jpeg-thumbnail-quality=80;"
        "jpeg-thumbnail-width=320;key-laser-calibration=1;key-qz-2dpanorama-cap=1;key-qz-2dpanorama-index=2;"
        "key-qz-2dpanorama-tiny-height=160;key-qz-2dpanorama-tiny-width=640;key_exposure_time=20000;max-zoom="
        "99;"
        "metering-areas=(0,0,100,100,1);metering-mode=spot;mmitest-lowlight-sensor-gain=4;"
        "mmitest-lowlight-sensor-mode=1;picture-size=4000x3000;post-process-picture-name=IMG_0001.jpg;"
        "qz-af-equip-mmi-control-mode=mmi_equip_9302_far;qz-color-mode=soft;qz-dark-raider-mode-enable=1;"
        "qz-dual-flash-current-index=1;qz-dual-flash-mode=1;qz-dual-flash-picture-index=1;"
        "qz-dual-primary-mode=secondary;qz-dynamic-iso-range=100,3200;qz-effect=zy-heibai;"
        "qz-exposure-compensation-value=0.5;qz-exposure-mode=star;qz-face-ae-area=(0,0,9,9,1);"
        "qz-face-orientation=90;qz-focus-assist-flash-mode=auto;qz-magnifier-step-value=2;qz-makeup-effect="
        "mode4;"
        "qz-manual-exposure-value=1/"
        "30;qz-manual-focus-step-value=30;qz-manual-iso-value=400;qz-mmi-ivp-pro=1;"
        "qz-mmi-raw-region=(1,2,3,4);qz-mmi-sub-raw-region=(1,2,3,4);qz-omron-face-beauty-level=5;"
        "qz-pro-focus-mode=AF-C;qz-qzcamera-flag=off;qz-raw-img-path-name=/data/IMG_0001.raw;"
        "qz-relayout-mode=snapshot2preview;qz-sensor-exposure-time=1/60;qz-sensor-iso=400;qz-sensor-wb=5200;"
        "qz-set-aperture-value=4;qz-video-fps=60;qz_agingvcm_enable=1;qz_mmi_capture_dual_mode=1;"
        "qz_mmi_enable=1;qz_ois_check=1;qz_ois_degree_mode=1;qz_ois_enable=1;qz_ois_magnetism_check=1;"
        "qz_ois_running=1;qz_ois_save_gryo_gain=(0.98,1.02,0.5,0.25);qz_ois_set_gryo_gain=(0.98,1.02);"
        "recording-hint=true;rotation=90;saturation=100;scene-mode=hdr;sharpness=+2;sub-picture-size=(4000,"
        "3000);"
        "target-coordinates=120,-40;video-stabilization=false;zoom=30;qz-best-photo-mode=true;zy-level=6";
    for (const char* name : {"fast-snapshot-mode",
                             "key-ambrix-scope",
                             "key-dual-camera-hdc-calib",
                             "key-dual-camera-verify",
                             "key-hdr-movie",
                             "key-pdaf-verify",
                             "key-qz-2dpanorama",
                             "key-qz-panorama",
                             "norvale-target-tracking",
                             "qz-af-mmi-control-mode",
                             "qz-big-aperture-mode",
                             "qz-blink-detection",
                             "qz-capture-mirror-mode",
                             "qz-capture-prepare",
                             "qz-dm-watermark-mode",
                             "qz-exposure-hint-mode",
                             "qz-exposure-try-ae",
                             "qz-face-beauty",
                             "qz-face-detection",
                             "qz-face-beauty-preview-only",
                             "qz-face-meiwo",
                             "qz-focus-metering-separation",
                             "qz-image-denoise",
                             "qz-image-post-process",
                             "qz-makeup-mode",
                             "qz-manual-flash",
                             "qz-manual-focus-mode",
                             "qz-mmi-afc-mode",
                             "qz-mmi-gamma-mode",
                             "qz-mmi-ois-vcm-calib-mode",
                             "qz-nice-food-mode",
                             "qz-professional-mode",
                             "qz-raw-img-save-switch",
                             "qz-refocus-mode",
                             "qz-smile-detection",
                             "qz_ois_gryo_offset_calib",
                             "qz_ois_hall_calib",
                             "qz_ois_hall_check",
                             "zsl-mode"}) {
        keys += std::string(";") + name + "=on";
    }
    return keys;
}

// Entries of the capture section with one value for each of two results, so that every handler sees a change.
struct ResultEntry {
    const char* name;
    std::vector<int32_t> first;
    std::vector<int32_t> second;
};

inline std::vector<ResultEntry> everyResultEntry() {
    return {{"qz-zsl-mode", {1}, {0}},
            {"target-coordinates-offset", {120, -40}, {121, -40}},
            {"focusVcmValue", {318}, {319}},
            {"qz-af-mmi-contrast-value", {1000}, {1001}},
            {"qz-otp-check", {1}, {2}},
            {"dualSensorAbnormal", {1}, {2}},
            {"qz-dual-camera-verification-mode", {1}, {1}},
            {"qz-dual-camera-verification-result", {0, 1}, {0, 2}},
            {"mmiTestFeatureResult", {0, 1, 2, 3}, {0, 1, 3, 3}},
            {"qz-mmi-camera-pdaf-verification-mode", {1}, {0}},
            {"qz-dual-camera-pdaf-verification-result", {1}, {1}},
            {"hintUser", {2}, {3}},
            {"qz-low-capture-state", {1}, {2}},
            {"needLcdCompensate", {1}, {0}},
            {"lightPaintingExposureTime", {8}, {9}},
            {"qz-exposure-mode-preview-state", {1}, {0}},
            {"isoState", {410}, {420}},
            {"exposureStateHint", {4}, {4}},
            {"qz_algo_mean_y", {24}, {101}},
            {"qz_laser_calibrate_result", {9}, {9}},
            {"qz-lpd-params", {1, -2, 3}, {1, -2, 4}},
            {"qz-dark-raider-capture", {4}, {5}},
            {"qz-af-mmi-contrast-result-value", {1, 1450}, {1, 1451}},
            {"oisGryoOffsetCalibResult", {1, 20, 30}, {1, 20, 31}},
            {"oisHallCalibResult",
             {1, 0, 0, 0, 'o', 'i', 's', 0, 7, 0, 0, 0},
             {1, 0, 0, 0, 'o', 'i', 's', 0, 8, 0, 0, 0}},
            {"oisHallCheckResult", {6}, {7}}};
}

}  // namespace qz::bench
