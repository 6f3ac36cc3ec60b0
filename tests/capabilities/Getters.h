// Every capability in the order of the pass: how its getter asks for it, what that publishes, and what it
// says.
#pragma once

#include "support/Entries.h"

#include <algorithm>

namespace qz::test {

// Tag; kind and minimum count; what a single 1 publishes, or two of them in a range (r) or size (s), or a
// flag (F, of one element only: O) by its key, or the text "A" (t); what is said before ".count = ", or
// before the number itself, of elements of no use; what is said of the published value, "*".
inline constexpr char kGetters[] = R"(
supported_iso_values|b0|iso-mode-values=unknown
availbaleContrast|b0|contrast-values=50|supportedContrast
availbaleSaturation|b0|saturation-values=50|supportedSaturation
availbaleBrightness|b0|brightness-values=25|supportedBrightness
supported_sharpness|b0|sharpness-values=+1|supported sharpness
availbaleMetering|b0|metering-mode-values=average|supportedMetering
burstModeSupported|F1|qz-r7-burst-supported|supportedBurst
faceBeautySupported|F1|qz_beauty_mode_support|captureBeauty
videoBeatySupported|F1|qz-video-beauty-supported|supportedOVB
zslSupported|F1|zsl-mode-supported|zslSupported
qzHdcAvailableJpegSize|r2|hdc-available-jpeg-size=1,1|hdcAvailableJpegSize
bestModeSupported|F1|qz-best-photo|supportedBestShot
allfocusModeSupported|F1|qz-refocus-supported|supportedAllFocusShot
qz-quickthumbnail-size|i1||quickthumbnailsize
qz-slow-jpeg-mode-threshold|l1||slowJpegModeThreshold
lcdCompensateSupported|b1|lcd-compensate-supported-values=off,auto|supportedLCDC
hdrMovieSupported|F1|hdr-movie-supported|supportedHdrMovie
captureMirrorSupported|F1|qz-capture-mirror-supproted|supportedCapMirr
magnifier_supported|F1|qz-magnifier-supported|supportedMagnifier
manualFocusSupported|F1|qz-manual-focus-supported|supportedMFocus
manualVcmStartValue|i1|qz-vcm-start-value=1|manualVcmStart
manualVcmEndValue|i1|qz-vcm-end-value=1|manualVcmEnd
burstCountSupported|i1|qz-burst-support-count=1|burstSupportCount
burstJpegQuality|i1|qz-burst-jpeg-quality=1|burstJpegQuality|burst jpeg quality value = *
availbaleDualPrimary|b0|qz-dual-primary-supported=unknown|supportedDualPrimary
android.control.availableSceneModes|b0|scene-mode-values=auto|supportedExtScene
smileDetectionSupported|F1|qz-smile-face-shotmode-supported|faceDetection
qzScopeSupported|F1|qz-scope-supported|scope
faceBeautyRange|r2|qz-min-beauty-level=1;qz-max-beauty-level=1|enMaxBeautyLevel
postProcessSupported|F1|qz-post-process-supported|supportedPostProcess
denoiseSupported|F1|qz-image-denoise-supported|supportedDenoise
target_tracking_supported|F1|target-tracking-supported|supportedTargetTracking
super_resolution_supported|b1|key-super-resolution-supported=true|superResolution
    super resolution supported = *
superResolutionPictureSize|s2|super-resolution-picture-size-values=1x1
bigApertureSupported|F1|qz-big-aperture-supported|bigaperture
apertureValueSupported|t0|qz-supported-aperture-value=A|apertureValue
mmiTestFeatureSupported|t0|qz-mmi-test-feature-supported=A|mmiTestFeatureValue
    mmi test feature supported value = *
availbaleEffectModes|b0|qz-effect-supported=unknown|supportedColorEffect|supported color effect = *
videoCallbackSupported|F1|video-callback-supported|video call back supported count is: 
    video call back supported = *
highVideoCallbackThresholdSupported|b1|high-video-callback-threshold-supported=1
    high video call back supported count is: |high video call back supported = *
availbaleLightPaintingModes|b0|qz-exposure-mode-values=super-night|supportedExpMode
    supported exposure modes = *
availbaleRelayoutModes|b0|qz-relayout-mode-values=snapshot2preview|supportedRelayoutMode
    supported relayout modes = *
exposureLevelRange|r2|qz-min-exposure-time=1;qz-max-exposure-time=1|enExposureLevel|exposure level: [*, *]
qzExposureCompensationSupported|F1|qz-exposure-compensation-support
qzExposureCompensationStep|f1|qz-exposure-compensation-step=1.000000|supportedQzEv
availbaleSupernightIso|b1|key-supernight-supported-iso=unknown||exposure mode supported ISO = *
availbaleSupernightExposureTime|b1|key-supernight-supported-exposure=1/30000||
    exposure mode supported exposure time = *
qz-af-mmi-control-supported|F1|qz-af-mmi-control-supported|ModeSupport
qz-af-mmi-far-threashold|i1|qz-af-mmi-far-threashold=1|FarContrast
qz-af-mmi-near-threashold|i1|qz-af-mmi-near-threashold=1|NearContrast
qz-ois-supported|F1|qz_ois_supported|OIS supported count is: |OIS supported = *
niceFoodSupported|F1|qz-nice-food-supported|nicefood
makeUpEffectSupported|b1|qz-makeup-support=mode1|supportedMakeUpEffect|supported make up effect = *
beauty1080pSupported|F1|qz-beauty-1080p-supported|supportedBeauty1080P|beauty 1080P supported = *
videoFpsSupported|i0|qz-video-fps-supported=1|supportedVideoFPS|supported video fps = *
availbaleFrontFlashLevel|i0|front_flash_adjust_supported=true;front_flash_supports=1|supportedFrontFlashAdjust
professionalModeSupported|O1|qz-professional-mode-supported|professionalModeSupported
qz-sensor-exposure-range|r2|qz-sensor-exposure-time-range=1/1000000,1/1000000|expoRangeEntry
sensorWbRange|r2|qz-sensor-wb-range=1,1|wbRangeEntry
qz-sensor-iso-range|r2|qz-sensor-iso-range=1,1|isoRangeEntry
availbaleEffectRange|r2|qz-color-effect-range=(1,1)|effectRange
qz-insert-preview-count-in-burst|i0||insertPrevCount
rawImgSupported|F0|qz-raw-img-save-supported|rawImgSaveCount|Raw IMG save supported = *
exposureHintSupported|F0|qz-exposure-hint-supported|exposureHintEntry|Exposure hint supported = *
qz-dynamic-iso-range-supported|F0|qz-dynamic-iso-range-supported|dynamicIsoEntry
    Dynamic ISO range supported = *
-|-0|qz_video_smooth_af_supported=true||Video smooth af supported = *
flashAssistFocusSupported|b1|qz-focus-assist-flash-mode-supported=auto
qzFwkZslSupported|F0|qz-framework-zsl-supported|frameworkZslEntry|D framework zsl supported = *
qzRequireVideoStatus|b0||requireVideoStatus
qz-pre-shutter-supported|b0||preShutterSupported
qz-sensor-binning-sizes-supported|i0|qz-sensor-binning-sizes-supported=1,|sensorBinningSizesEntry
    D sensor binning sizes supported = *
darkRaiderModeSupported|i0|qz-dark-raider-mode-supported=1|darkRaiderModeEntry
    D dark raider mode supported = *
supportedColorModes|b1|qz-supported-color-modes=bright||supported color modes: *
slowmoNoZoom|F0|qz-slow-mo-no-zoom|slowmoNoZoomEntry|D slow motion no zoom mode supported = *
dmWaterMarkSupported|F0|qz-dm-watermark-supported|slowmoNoZoomEntry
    getDmWaterMarkSupported(), DM water mark supported: *
oisDefaultGryoGain|f0|qz_ois_default_gryo_gain=(1.000000,0.000000)|defaultGainEntry|default gryo gain = *
dualPrimarySingleReprocess|F0|qz-dual-primary-single-reprocess|DualCameraSingleReprocess
    D Dual Camera Single Reprocess Supported = *
AFSecondAvailableModes|F0|qz-af-second-available-modes|AFSecondAValiable|D AF Second Avaliable Supported = *
qzSubSensorJpegSize|i0|sub-picture-size-values=|subAvailableJpegSize
mirrorZoomSupported|F0|qz_mirror_zoom_drag_supported|getMirrorZoomDragSupported(), mirror zoom drag count: 
    D getMirrorZoomDragSupported(), mirror zoom mode supported: *
)";

struct Getter {
    std::string tag;
    char kind;
    std::string minimum;
    std::string publishes;
    std::string counts;
    std::string echoes;

    [[nodiscard]] bool isFlag() const { return kind == 'F' || kind == 'O'; }
    [[nodiscard]] char type() const {
        if (isFlag() || kind == 't') return 'b';
        return kind == 'r' || kind == 's' ? 'i' : kind;
    }
    [[nodiscard]] std::string countLine(size_t count) const {
        if (counts.empty()) return "";
        const std::string level = counts == "supportedQzEv" ? "E " : "I ";
        return level + counts + (counts.back() == ' ' ? "" : ".count = ") + std::to_string(count) + '\n';
    }
    [[nodiscard]] std::string echoLine(const std::string& value) const {
        std::string line(echoes.empty() || echoes.rfind("D ", 0) == 0 ? "" : "I ");
        for (const char letter : echoes) line += letter == '*' ? value : std::string(1, letter);
        return line.empty() ? "" : line + '\n';
    }
};

inline std::vector<Getter> getters() {
    std::vector<Getter> all;
    for (std::vector<std::string> row : rowsOf(kGetters)) {
        row.resize(6);
        all.push_back({row[0], row[1][0], row[1].substr(1), row[2], row[3], row[4]});
    }
    return all;
}

inline Getter getterOf(const std::string& tag) {
    const std::vector<Getter> all = getters();
    return *std::find_if(all.begin(), all.end(), [&tag](const Getter& getter) { return getter.tag == tag; });
}

}  // namespace qz::test
