// The pass as a whole: which capability each getter asks for, in which order, what it sets, and what it says
// of an empty one.
#include "capabilities/Publication.h"

#include <gmock/gmock.h>

namespace qz::test {
namespace {

using testing::ElementsAreArray;
using testing::IsSupersetOf;

enum Kind { FLAG, BYTES, INTS, FLOATS, LONGS, RANGE, SIZES, ONE_FLAG, NONE };

struct Getter {
    const char* tag;
    Kind kind;
    size_t minimum;
    const char* published;  // of a single 1, or of {1, 1}
    const char* countLine;  // before the count of an empty entry; null: none
};

constexpr Getter kGetters[] = {
    {"supported_iso_values", BYTES, 0, "iso-mode-values=unknown", nullptr},
    {"availbaleContrast", BYTES, 0, "contrast-values=50", "supportedContrast.count = "},
    {"availbaleSaturation", BYTES, 0, "saturation-values=50", "supportedSaturation.count = "},
    {"availbaleBrightness", BYTES, 0, "brightness-values=25", "supportedBrightness.count = "},
    {"supported_sharpness", BYTES, 0, "sharpness-values=+1", "supported sharpness.count = "},
    {"availbaleMetering", BYTES, 0, "metering-mode-values=average", "supportedMetering.count = "},
    {"burstModeSupported", FLAG, 1, "qz-r7-burst-supported=true", "supportedBurst.count = "},
    {"faceBeautySupported", FLAG, 1, "qz_beauty_mode_support=true", "captureBeauty.count = "},
    {"videoBeatySupported", FLAG, 1, "qz-video-beauty-supported=true", "supportedOVB.count = "},
    {"zslSupported", FLAG, 1, "zsl-mode-supported=true", "zslSupported.count = "},
    {"qzHdcAvailableJpegSize", RANGE, 2, "hdc-available-jpeg-size=1,1", "hdcAvailableJpegSize.count = "},
    {"bestModeSupported", FLAG, 1, "qz-best-photo=true", "supportedBestShot.count = "},
    {"allfocusModeSupported", FLAG, 1, "qz-refocus-supported=true", "supportedAllFocusShot.count = "},
    {"qz-quickthumbnail-size", INTS, 1, "", "quickthumbnailsize.count = "},
    {"qz-slow-jpeg-mode-threshold", LONGS, 1, "", "slowJpegModeThreshold.count = "},
    {"lcdCompensateSupported", BYTES, 1, "lcd-compensate-supported-values=off,auto",
     "supportedLCDC.count = "},
    {"hdrMovieSupported", FLAG, 1, "hdr-movie-supported=true", "supportedHdrMovie.count = "},
    {"captureMirrorSupported", FLAG, 1, "qz-capture-mirror-supproted=true", "supportedCapMirr.count = "},
    {"magnifier_supported", FLAG, 1, "qz-magnifier-supported=true", "supportedMagnifier.count = "},
    {"manualFocusSupported", FLAG, 1, "qz-manual-focus-supported=true", "supportedMFocus.count = "},
    {"manualVcmStartValue", INTS, 1, "qz-vcm-start-value=1", "manualVcmStart.count = "},
    {"manualVcmEndValue", INTS, 1, "qz-vcm-end-value=1", "manualVcmEnd.count = "},
    {"burstCountSupported", INTS, 1, "qz-burst-support-count=1", "burstSupportCount.count = "},
    {"burstJpegQuality", INTS, 1, "qz-burst-jpeg-quality=1", "burstJpegQuality.count = "},
    {"availbaleDualPrimary", BYTES, 0, "qz-dual-primary-supported=unknown", "supportedDualPrimary.count = "},
    {"android.control.availableSceneModes", BYTES, 0, "scene-mode-values=auto", "supportedExtScene.count = "},
    {"smileDetectionSupported", FLAG, 1, "qz-smile-face-shotmode-supported=true", "faceDetection.count = "},
    {"qzScopeSupported", FLAG, 1, "qz-scope-supported=true", "scope.count = "},
    {"faceBeautyRange", RANGE, 2, "qz-min-beauty-level=1;qz-max-beauty-level=1", "enMaxBeautyLevel.count = "},
    {"postProcessSupported", FLAG, 1, "qz-post-process-supported=true", "supportedPostProcess.count = "},
    {"denoiseSupported", FLAG, 1, "qz-image-denoise-supported=true", "supportedDenoise.count = "},
    {"target_tracking_supported", FLAG, 1, "target-tracking-supported=true",
     "supportedTargetTracking.count = "},
    {"super_resolution_supported", BYTES, 1, "key-super-resolution-supported=true",
     "superResolution.count = "},
    {"superResolutionPictureSize", SIZES, 2, "super-resolution-picture-size-values=1x1", nullptr},
    {"bigApertureSupported", FLAG, 1, "qz-big-aperture-supported=true", "bigaperture.count = "},
    {"apertureValueSupported", BYTES, 0, "qz-supported-aperture-value=\1", "apertureValue.count = "},
    {"mmiTestFeatureSupported", BYTES, 0, "qz-mmi-test-feature-supported=\1", "mmiTestFeatureValue.count = "},
    {"availbaleEffectModes", BYTES, 0, "qz-effect-supported=unknown", "supportedColorEffect.count = "},
    {"videoCallbackSupported", FLAG, 1, "video-callback-supported=true",
     "video call back supported count is: "},
    {"highVideoCallbackThresholdSupported", BYTES, 1, "high-video-callback-threshold-supported=1",
     "high video call back supported count is: "},
    {"availbaleLightPaintingModes", BYTES, 0, "qz-exposure-mode-values=super-night",
     "supportedExpMode.count = "},
    {"availbaleRelayoutModes", BYTES, 0, "qz-relayout-mode-values=snapshot2preview",
     "supportedRelayoutMode.count = "},
    {"exposureLevelRange", RANGE, 2, "qz-min-exposure-time=1;qz-max-exposure-time=1",
     "enExposureLevel.count = "},
    {"qzExposureCompensationSupported", FLAG, 1, "qz-exposure-compensation-support=true", nullptr},
    {"qzExposureCompensationStep", FLOATS, 1, "qz-exposure-compensation-step=1.000000",
     "supportedQzEv.count = "},
    {"availbaleSupernightIso", BYTES, 1, "key-supernight-supported-iso=unknown", nullptr},
    {"availbaleSupernightExposureTime", BYTES, 1, "key-supernight-supported-exposure=1/30000", nullptr},
    {"qz-af-mmi-control-supported", FLAG, 1, "qz-af-mmi-control-supported=true", "ModeSupport.count = "},
    {"qz-af-mmi-far-threashold", INTS, 1, "qz-af-mmi-far-threashold=1", "FarContrast.count = "},
    {"qz-af-mmi-near-threashold", INTS, 1, "qz-af-mmi-near-threashold=1", "NearContrast.count = "},
    {"qz-ois-supported", FLAG, 1, "qz_ois_supported=true", "OIS supported count is: "},
    {"niceFoodSupported", FLAG, 1, "qz-nice-food-supported=true", "nicefood.count = "},
    {"makeUpEffectSupported", BYTES, 1, "qz-makeup-support=mode1", "supportedMakeUpEffect.count = "},
    {"beauty1080pSupported", FLAG, 1, "qz-beauty-1080p-supported=true", "supportedBeauty1080P.count = "},
    {"videoFpsSupported", INTS, 0, "qz-video-fps-supported=1", "supportedVideoFPS.count = "},
    {"availbaleFrontFlashLevel", INTS, 0, "front_flash_adjust_supported=true;front_flash_supports=1",
     "supportedFrontFlashAdjust.count = "},
    {"professionalModeSupported", ONE_FLAG, 1, "qz-professional-mode-supported=true",
     "professionalModeSupported.count = "},
    {"qz-sensor-exposure-range", RANGE, 2, "qz-sensor-exposure-time-range=1/1000000,1/1000000",
     "expoRangeEntry.count = "},
    {"sensorWbRange", RANGE, 2, "qz-sensor-wb-range=1,1", "wbRangeEntry.count = "},
    {"qz-sensor-iso-range", RANGE, 2, "qz-sensor-iso-range=1,1", "isoRangeEntry.count = "},
    {"availbaleEffectRange", RANGE, 2, "qz-color-effect-range=(1,1)", "effectRange.count = "},
    {"qz-insert-preview-count-in-burst", INTS, 0, "", "insertPrevCount.count = "},
    {"rawImgSupported", FLAG, 0, "qz-raw-img-save-supported=true", "rawImgSaveCount.count = "},
    {"exposureHintSupported", FLAG, 0, "qz-exposure-hint-supported=true", "exposureHintEntry.count = "},
    {"qz-dynamic-iso-range-supported", FLAG, 0, "qz-dynamic-iso-range-supported=true",
     "dynamicIsoEntry.count = "},
    {nullptr, NONE, 0, "qz_video_smooth_af_supported=true", nullptr},
    {"flashAssistFocusSupported", BYTES, 1, "qz-focus-assist-flash-mode-supported=auto", nullptr},
    {"qzFwkZslSupported", FLAG, 0, "qz-framework-zsl-supported=true", "frameworkZslEntry.count = "},
    {"qzRequireVideoStatus", BYTES, 0, "", "requireVideoStatus.count = "},
    {"qz-pre-shutter-supported", BYTES, 0, "", "preShutterSupported.count = "},
    {"qz-sensor-binning-sizes-supported", INTS, 0, "qz-sensor-binning-sizes-supported=1,",
     "sensorBinningSizesEntry.count = "},
    {"darkRaiderModeSupported", INTS, 0, "qz-dark-raider-mode-supported=1", "darkRaiderModeEntry.count = "},
    {"supportedColorModes", BYTES, 1, "qz-supported-color-modes=bright", nullptr},
    {"slowmoNoZoom", FLAG, 0, "qz-slow-mo-no-zoom=true", "slowmoNoZoomEntry.count = "},
    {"dmWaterMarkSupported", FLAG, 0, "qz-dm-watermark-supported=true", "slowmoNoZoomEntry.count = "},
    {"oisDefaultGryoGain", FLOATS, 0, "qz_ois_default_gryo_gain=(1.000000,0.000000)",
     "defaultGainEntry.count = "},
    {"dualPrimarySingleReprocess", FLAG, 0, "qz-dual-primary-single-reprocess=true",
     "DualCameraSingleReprocess.count = "},
    {"AFSecondAvailableModes", FLAG, 0, "qz-af-second-available-modes=true", "AFSecondAValiable.count = "},
    {"qzSubSensorJpegSize", INTS, 0, "sub-picture-size-values=", "subAvailableJpegSize.count = "},
    {"mirrorZoomSupported", FLAG, 0, "qz_mirror_zoom_drag_supported=true",
     "getMirrorZoomDragSupported(), mirror zoom drag count: "},
};

std::vector<std::string> everyTag() {
    std::vector<std::string> tags;
    for (const Getter& getter : kGetters) {
        if (getter.kind != NONE) tags.emplace_back(getter.tag);
    }
    return tags;
}

// As many ones as the getter needs, in its element type or in another.
Elements ones(Kind kind, bool rightType) {
    const size_t count = kind == RANGE || kind == SIZES ? 2 : 1;
    if (kind == FLAG || kind == ONE_FLAG || kind == BYTES) {
        return rightType ? Elements(B(count, 1)) : Elements(I(count, 1));
    }
    if (!rightType) return B(count, 1);
    if (kind == FLOATS) return F(count, 1.0F);
    return kind == LONGS ? Elements(L(count, 1)) : Elements(I(count, 1));
}

void fill(Publication& device, bool rightType = true) {
    for (const Getter& getter : kGetters) {
        if (getter.kind != NONE) device.has(getter.tag, ones(getter.kind, rightType));
    }
}

LogLine countLine(const Getter& getter, size_t count) {
    const std::string text = getter.countLine + std::to_string(count);
    return text.rfind("supportedQzEv", 0) == 0 ? error(text) : info(text);
}

// Of a device whose ranges hold `inRanges` elements and all else none.
std::vector<LogLine> countLines(size_t inRanges) {
    std::vector<LogLine> lines;
    for (const Getter& getter : kGetters) {
        if (getter.tag == std::string("qzHdcAvailableJpegSize")) {
            lines.push_back(info("Enter getHdcAvailabeJpegSize(#)"));
        }
        if (getter.kind == NONE) lines.push_back(info("Video smooth af supported = true"));
        if (getter.countLine != nullptr)
            lines.push_back(countLine(getter, getter.kind == RANGE ? inRanges : 0));
    }
    return lines;
}

TEST(CapabilityPass, AsksAndPublishesInOrder) {
    Publication device(everyTag());
    fill(device);
    device.parameters.set("scene-mode-values", "auto");
    device.run();
    std::vector<std::string> expected;
    for (const Getter& getter : kGetters) {
        if (getter.kind != NONE) {
            expected.push_back(fullName(getter.tag) + ' ' + std::to_string(getter.minimum) + " 0 1");
        }
        std::istringstream settings(getter.published);
        for (std::string setting; std::getline(settings, setting, ';');) expected.push_back(setting);
    }
    EXPECT_THAT(device.host->events, ElementsAreArray(expected));
}

TEST(CapabilityPass, CountsWhatItCannotUse) {
    Publication device(everyTag());
    const auto publishesNothing = [&device](size_t inRanges) {
        EXPECT_THAT(device.run(), ElementsAreArray(countLines(inRanges)));
        EXPECT_EQ(device.published(), "qz_video_smooth_af_supported=true");
        EXPECT_EQ(device.stored(), kNothingStored);
    };
    publishesNothing(0);
    fill(device, false);
    device.has("android.control.availableSceneModes", I{33});
    publishesNothing(0);
    for (const size_t count : {size_t{1}, size_t{3}}) {
        for (const Getter& getter : kGetters) {
            if (getter.kind == RANGE) device.has(getter.tag, I(count, 1));
        }
        publishesNothing(count);
    }
}

TEST(CapabilityPass, IsSilentAboutUndeclaredCapabilities) {
    Publication device({});
    EXPECT_THAT(device.run(), ElementsAreArray({info("Enter getHdcAvailabeJpegSize(#)"),
                                                info("supportedExtScene.count = 0"),
                                                info("Video smooth af supported = true")}));
    EXPECT_EQ(device.published(), "qz_video_smooth_af_supported=true");
    EXPECT_EQ(device.stored(), kNothingStored);
}

TEST(CapabilityPass, WithoutStaticInfoOneKeyIsPublished) {
    Camera camera;
    camera.adapter->mInfo = nullptr;
    EXPECT_EQ(camera.translator().metaDataToParam(), 0);
    EXPECT_STREQ(camera.parameters.flatten().string(), "qz_video_smooth_af_supported=true");
}

// Echo lines show what the application now reads, not what was written.
std::map<std::string, LogLine> flagEchoes(const std::string& value) {
    return {
        {"videoCallbackSupported", info("video call back supported = " + value)},
        {"qz-ois-supported", info("OIS supported = " + value)},
        {"beauty1080pSupported", info("beauty 1080P supported = " + value)},
        {"rawImgSupported", info("Raw IMG save supported = " + value)},
        {"exposureHintSupported", info("Exposure hint supported = " + value)},
        {"qz-dynamic-iso-range-supported", info("Dynamic ISO range supported = " + value)},
        {"qzFwkZslSupported", debug("framework zsl supported = " + value)},
        {"slowmoNoZoom", debug("slow motion no zoom mode supported = " + value)},
        {"dmWaterMarkSupported", info("getDmWaterMarkSupported(), DM water mark supported: " + value)},
        {"dualPrimarySingleReprocess", debug("Dual Camera Single Reprocess Supported = " + value)},
        {"AFSecondAvailableModes", debug("AF Second Avaliable Supported = " + value)},
        {"mirrorZoomSupported", debug("getMirrorZoomDragSupported(), mirror zoom mode supported: " + value)},
    };
}

TEST(CapabilityFlags, AreTrueForAnyFirstByteButZero) {
    for (const B& bytes : {B{0}, B{1}, B{2}, B{0, 1, 1}, B{255, 0}}) {
        const std::string value = bytes[0] != 0 ? "true" : "false";
        std::map<std::string, LogLine> echoes = flagEchoes(value);
        for (const Getter& getter : kGetters) {
            if (getter.kind != FLAG && getter.kind != ONE_FLAG) continue;
            Publication device({getter.tag});
            device.has(getter.tag, bytes);
            std::vector<LogLine> lines;
            std::string published(getter.published);
            published.replace(published.find('=') + 1, std::string::npos, value);
            if (getter.kind == ONE_FLAG && bytes.size() != 1) {
                lines.push_back(countLine(getter, bytes.size()));
                published.clear();
            } else if (echoes.count(getter.tag) != 0) {
                lines.push_back(echoes.at(getter.tag));
            }
            EXPECT_THAT(device.runAlone(), ElementsAreArray(lines)) << getter.tag;
            EXPECT_EQ(device.published(), published);
        }
    }
}

TEST(CapabilityPass, EchoesWhatTheApplicationReads) {
    Publication device(everyTag());
    fill(device);
    device.host->answer = "as read";
    std::vector<LogLine> echoes;
    for (const auto& [tag, line] : flagEchoes("as read")) echoes.push_back(line);
    for (const char* text : {"Video smooth af supported = as read", "burst jpeg quality value = as read",
                             "mmi test feature supported value = as read",
                             "exposure level: [as read, as read]", "super resolution supported = as read",
                             "default gryo gain = as read", "supported color modes: as read"}) {
        echoes.push_back(info(text));
    }
    EXPECT_THAT(device.run(), IsSupersetOf(echoes));
}

TEST(CapabilityPass, RunsAgainOverAChangedDevice) {
    Publication device(everyTag());
    fill(device);
    device.has("qzSubSensorJpegSize", I{2, 3});
    device.runAlone();
    EXPECT_EQ(device.stored(), "1 1 1 1 1 1 1 1 [1x1] [2x3]");

    // What is empty keeps its key and its member, all but the threshold, which is reset first.
    const std::string published = device.published();
    device.host->entries.clear();
    device.runAlone();
    EXPECT_EQ(device.published(), published);
    EXPECT_EQ(device.stored(), "1 0 1 1 1 1 1 1 [1x1] [2x3]");

    for (const char* tag :
         {"videoCallbackSupported", "highVideoCallbackThresholdSupported", "qzFwkZslSupported",
          "qzRequireVideoStatus", "qz-pre-shutter-supported", "super_resolution_supported"}) {
        device.has(tag, B{2});
    }
    device.has("superResolutionPictureSize", I{8, 6});
    device.has("qzSubSensorJpegSize", I{7});
    device.run();
    EXPECT_EQ(device.stored(), "1 0 1 0 2 0 0 0 [1x1] []");
    EXPECT_STREQ(device.parameters.get("sub-picture-size-values"), "");
    EXPECT_STREQ(device.parameters.get("super-resolution-picture-size-values"), "1x1");
}

TEST(CapabilityPass, StoresBeforeOrAfterItPublishes) {
    Publication device(everyTag());
    fill(device);
    device.has("qzSubSensorJpegSize", I{2, 3});
    device.run();
    const auto stored = [&device](const char* key) { return device.host->storedWhenSet.at(key); };
    EXPECT_EQ(stored("super-resolution-picture-size-values"), "1 1 0 0 0 0 0 0 [] []");
    EXPECT_EQ(stored("high-video-callback-threshold-supported"), "1 1 0 1 0 0 0 0 [1x1] []");
    EXPECT_EQ(stored("qz-framework-zsl-supported"), "1 1 1 1 1 1 0 0 [1x1] []");
    EXPECT_EQ(stored("sub-picture-size-values"), "1 1 1 1 1 1 1 1 [1x1] [2x3]");
}

}  // namespace
}  // namespace qz::test
