// What each getter makes of the elements it is given.
#include "capabilities/Publication.h"

#include <gmock/gmock.h>

#include <numeric>

namespace qz::test {
namespace {

using testing::ElementsAreArray;

struct Row {
    const char* tag;
    Elements elements;
    std::string published;
    std::vector<LogLine> lines;
};

void expectEach(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        Publication device({row.tag});
        device.has(row.tag, row.elements);
        EXPECT_THAT(device.runAlone(), ElementsAreArray(row.lines)) << row.tag << ' ' << row.published;
        EXPECT_EQ(device.published(), row.published) << row.tag;
    }
}

// 0, 1, 2 ... last
B upTo(uint8_t last) {
    B numbers(last + 1U);
    std::iota(numbers.begin(), numbers.end(), uint8_t{0});
    return numbers;
}

LogLine unknown(const std::string& function, const std::string& words, int number) {
    return error(function + ": Unknown " + words + " enum: " + std::to_string(number));
}

TEST(CapabilityLists, NameEveryMode) {
    const auto iso = [](int number) { return unknown("isoModeEnumToString", "iso mode", number); };
    const auto effect = [](int number) {
        return unknown("colorEffectModeEnumToString", "color effect", number);
    };
    const auto primary = [](int number) {
        return unknown("dualPrimaryEnumToString", "dual primary mode", number);
    };
    expectEach({
        {"supported_iso_values",
         upTo(10),
         "iso-mode-values=auto,unknown,100,200,400,800,unknown,1600,3200,6400,unknown",
         {iso(1), iso(6), iso(10)}},
        {"supported_iso_values", B{2, 9}, "iso-mode-values=100,6400", {}},
        {"supported_iso_values", B{255}, "iso-mode-values=unknown", {iso(255)}},
        {"availbaleContrast",
         upTo(5),
         "contrast-values=0,50,100,150,200,unknown",
         {unknown("contrastModeEnumToString", "contrast mode", 5)}},
        {"availbaleSaturation",
         upTo(5),
         "saturation-values=0,50,100,150,200,unknown",
         {unknown("saturationModeEnumToString", "saturation mode", 5)}},
        {"availbaleBrightness",
         upTo(5),
         "brightness-values=0,25,50,75,100,unknown",
         {unknown("brightnessModeEnumToString", "brightness mode", 5)}},
        {"supported_sharpness",
         upTo(6),
         "sharpness-values=auto,+1,+2,+3,+4,+5,unknown",
         {unknown("sharpnessModeEnumToString", "sharpness mode", 6)}},
        {"availbaleMetering",
         upTo(4),
         "metering-mode-values=matrix,average,center-weighted,spot,unknown",
         {unknown("meteringModeEnumToString", "metering mode", 4)}},
        {"availbaleDualPrimary",
         upTo(4),
         "qz-dual-primary-supported=primary,unknown,secondary,dual,unknown",
         {primary(1), primary(4)}},
        {"flashAssistFocusSupported",
         upTo(4),
         "qz-focus-assist-flash-mode-supported=default,auto,on,off,unknown",
         {unknown("focusAssistFlashModeEnumToString", "focusAssistFlash mode", 4)}},
        {"availbaleEffectModes",
         upTo(21),
         "qz-effect-supported=none,unknown,zy-rixi,zy-fugu,zy-valencia,zy-laodianying,zy-lianghong,zy-"
         "yunduan,"
         "zy-earlybird,zy-nuanyangyang,zy-tianmeikeren,zy-meishimenghuan,zy-heibai,zy-xpro2,zy-hudson,zy-"
         "myfair,"
         "zy-lofi,unknown,mph-ambrix_monochrome,mph-ambrix_moriyama,mph-ambrix_graylevels,unknown",
         {effect(1), effect(17), effect(21),
          info(
              "supported color effect = none,unknown,zy-rixi,zy-fugu,zy-valencia,zy-laodianying,zy-lianghong,"
              "zy-yunduan,zy-earlybird,zy-nuanyangyang,zy-tianmeikeren,zy-meishimenghuan,zy-heibai,zy-xpro2,"
              "zy-hudson,zy-myfair,zy-lofi,unknown,mph-ambrix_monochrome,mph-ambrix_moriyama,"
              "mph-ambrix_graylevels,unknown")}},
        {"availbaleEffectModes",
         B{27},
         "qz-effect-supported=unknown",
         {effect(27), info("supported color effect = unknown")}},
    });
}

TEST(CapabilityLists, AreEchoed) {
    const char* const shutter =
        "auto,1/30000,1/20000,1/10000,1/4000,1/2000,1/1333,1/1000,1/200,1/100,1/66,1/50,1/40,1/30,1/4,1/"
        "2,1,2,4,8,"
        "12,16,20,24,28,32,auto";
    std::vector<LogLine> makeUp;
    for (int i = 0; i <= 9; ++i) {
        makeUp.push_back(
            info("supportedMakeUpEffect.data[" + std::to_string(i) + "] = " + std::to_string(i)));
    }
    makeUp.push_back(unknown("makeUpEffectModeEnumToString", "make up effect", 9));
    makeUp.push_back(
        info("supported make up effect = none,mode1,mode2,mode3,mode4,mode5,mode6,mode7,mode8,unknown"));
    expectEach({
        {"availbaleLightPaintingModes",
         upTo(6),
         "qz-exposure-mode-values=default,super-night,car,light,water,star,default",
         {unknown("exposureModeEnumToString", "exposure mode", 6),
          info("supported exposure modes = default,super-night,car,light,water,star,default")}},
        {"availbaleRelayoutModes",
         upTo(2),
         "qz-relayout-mode-values=none,snapshot2preview,unknown",
         {unknown("relayoutModeEnumToString", "relayout mode", 2),
          info("supported relayout modes = none,snapshot2preview,unknown")}},
        {"availbaleSupernightIso",
         B{0, 7},
         "key-supernight-supported-iso=auto,1600",
         {info("exposure mode supported ISO = auto,1600")}},
        {"availbaleSupernightExposureTime",
         upTo(26),
         std::string("key-supernight-supported-exposure=") + shutter,
         {unknown("manualExposureModeEnumToString", "exposure mode", 26),
          info(std::string("exposure mode supported exposure time = ") + shutter)}},
        {"makeUpEffectSupported", upTo(9),
         "qz-makeup-support=none,mode1,mode2,mode3,mode4,mode5,mode6,mode7,mode8,unknown", makeUp},
        {"supportedColorModes",
         upTo(3),
         "qz-supported-color-modes=normal,bright,soft,unknown",
         {unknown("colorModeEnumToString", "color mode", 3),
          info("supported color modes: normal,bright,soft,unknown")}},
        {"videoFpsSupported",
         I{30, 60, INT32_MIN},
         "qz-video-fps-supported=30,60,-2147483648",
         {info("supported video fps = 30,60,-2147483648")}},
        {"availbaleFrontFlashLevel",
         I{-1, 2, 3},
         "front_flash_adjust_supported=true;front_flash_supports=-1,2,3",
         {}},
        {"qz-sensor-binning-sizes-supported",
         I{1, 2},
         "qz-sensor-binning-sizes-supported=1,2,",
         {debug("sensor binning sizes supported = 1,2,")}},
        {"qzSubSensorJpegSize",
         I{4000, 3000, 1920, 1080, 7},
         "sub-picture-size-values=4000x3000,1920x1080",
         {info("getSubSupportedPictureSizes SubSupportedPictureSizes:4000x3000,1920x1080")}},
        {"qzSubSensorJpegSize",
         I{7},
         "sub-picture-size-values=",
         {info("getSubSupportedPictureSizes SubSupportedPictureSizes:")}},
    });
}

TEST(CapabilityLists, ExtendedScenesFollowThePlatformsOwn) {
    const LogLine absent = info("getSupportedExtScene(), extended scene mode is null.");
    const struct {
        const char* current;
        B scenes;
        const char* published;
    } kRows[] = {
        {"auto", {33, 5, 34}, "scene-mode-values=autoqzauto,hdr"},
        {"auto", {33, 34, 5}, "scene-mode-values=autoqzauto,hdr,"},
        {"auto,night", {34}, "scene-mode-values=auto,nighthdr"},
        {"", {32, 35, 33}, "scene-mode-values=qzauto"},
        {"auto", {5}, "scene-mode-values=auto"},
        {nullptr, {33}, ""},
    };
    for (const auto& row : kRows) {
        Publication device({});
        device.has("android.control.availableSceneModes", row.scenes);
        device.parameters.set("scene-mode-values", row.current);
        EXPECT_THAT(device.runAlone(),
                    ElementsAreArray(std::vector<LogLine>(row.current == nullptr, absent)));
        EXPECT_EQ(device.published(), row.published);
    }
}

TEST(CapabilityLists, SuperResolutionSizesNeedTheirFlag) {
    const LogLine on = info("super resolution supported = true");
    const LogLine not1 = info("getSupportedSuperPictureSizes(), super resolution is not supported!");
    const std::string sizes = "getSupportedSuperPictureSizes(), supported super resolution picture sizes: ";
    const struct {
        B flag;
        Elements sizes;
        const char* published;
        const char* stored;
        std::vector<LogLine> lines;
    } kRows[] = {
        {{1},
         I{4000, 3000, 2000, 1500},
         "true;super-resolution-picture-size-values=4000x3000,2000x1500",
         "[4000x3000,2000x1500] []",
         {on, info(sizes + "4000x3000,2000x1500")}},
        {{1, 0},
         I{4000, 3000, 7},
         "true;super-resolution-picture-size-values=4000x3000",
         "[4000x3000] []",
         {on, info(sizes + "4000x3000")}},
        {{1}, I{4000}, "true", "[] []", {on}},
        {{1}, I{}, "true", "[] []", {on}},
        {{1}, B{1, 2, 3, 4}, "true", "[] []", {on}},
        {{2}, I{4000, 3000}, "true", "[] []", {on, not1}},
        {{0}, I{4000, 3000}, "false", "[] []", {info("super resolution supported = false"), not1}},
    };
    for (const auto& row : kRows) {
        Publication device({"super_resolution_supported", "superResolutionPictureSize"});
        device.has("super_resolution_supported", row.flag);
        device.has("superResolutionPictureSize", row.sizes);
        EXPECT_THAT(device.runAlone(), ElementsAreArray(row.lines));
        EXPECT_EQ(device.published(), std::string("key-super-resolution-supported=") + row.published);
        EXPECT_EQ(device.stored(), std::string("0 0 0 0 0 0 0 0 ") + row.stored);
    }
    Publication undeclared({"super_resolution_supported"});
    undeclared.has("super_resolution_supported", B{1});
    EXPECT_THAT(undeclared.runAlone(), ElementsAreArray({on}));
}

TEST(CapabilityNumbers, ArePublishedAsTheyAre) {
    expectEach({
        {"manualVcmStartValue", I{INT32_MIN, 7}, "qz-vcm-start-value=-2147483648", {}},
        {"manualVcmEndValue", I{1023, 7}, "qz-vcm-end-value=1023", {}},
        {"burstCountSupported", I{20, 7}, "qz-burst-support-count=20", {}},
        {"burstJpegQuality", I{96, 7}, "qz-burst-jpeg-quality=96", {info("burst jpeg quality value = 96")}},
        {"qz-af-mmi-far-threashold", I{-5, 7}, "qz-af-mmi-far-threashold=-5", {}},
        {"qz-af-mmi-near-threashold", I{INT32_MAX, 7}, "qz-af-mmi-near-threashold=2147483647", {}},
        {"highVideoCallbackThresholdSupported",
         B{255, 7},
         "high-video-callback-threshold-supported=255",
         {info("high video call back supported = 255")}},
        {"darkRaiderModeSupported",
         I{3, 7},
         "qz-dark-raider-mode-supported=3",
         {debug("dark raider mode supported = 3")}},
        {"lcdCompensateSupported", B{0, 1}, "", {}},
        {"lcdCompensateSupported", B{2}, "", {}},
        {"lcdCompensateSupported", B{1, 0}, "lcd-compensate-supported-values=off,auto", {}},
        {"apertureValueSupported", B{'2', ',', '4'}, "qz-supported-aperture-value=2,4", {}},
        {"apertureValueSupported", B{'2', ',', '4', 0, '8'}, "qz-supported-aperture-value=2,4", {}},
        {"apertureValueSupported", B{0}, "qz-supported-aperture-value=", {}},
        {"mmiTestFeatureSupported",
         B{'l', 'e', 'd'},
         "qz-mmi-test-feature-supported=led",
         {info("mmi test feature supported value = led")}},
        {"mmiTestFeatureSupported",
         B{'l', 'e', 'd', 0, 0},
         "qz-mmi-test-feature-supported=led",
         {info("mmi test feature supported value = led")}},
        {"faceBeautyRange", I{-7, 100}, "qz-min-beauty-level=-7;qz-max-beauty-level=100", {}},
        {"exposureLevelRange",
         I{INT32_MIN, INT32_MAX},
         "qz-min-exposure-time=-2147483648;qz-max-exposure-time=2147483647",
         {info("exposure level: [-2147483648, 2147483647]")}},
        {"mmiTestFeatureSupported", B{'a', '='}, "", {info("mmi test feature supported value = (null)")}},
    });
}

// Texts that just fit their buffers, and one character more: the key is set in either case.
TEST(CapabilityNumbers, AtTheEdgesOfTheirBuffers) {
    const LogLine cutTime = unformatted("microSecondToSecond");
    const auto gain = [](const std::string& text) { return info("default gryo gain = " + text); };
    expectEach({
        {"qz-sensor-exposure-range", I{250000, 3000000}, "qz-sensor-exposure-time-range=1/4,3", {}},
        {"qz-sensor-exposure-range", I{999999, 1000000}, "qz-sensor-exposure-time-range=1/1,1", {}},
        {"qz-sensor-exposure-range", I{0, INT32_MAX}, "qz-sensor-exposure-time-range=0,2147", {}},
        {"qz-sensor-exposure-range", I{INT32_MIN, 1500000}, "qz-sensor-exposure-time-range=1/0,1", {}},
        {"qz-sensor-exposure-range", I{1, -1}, "qz-sensor-exposure-time-range=1/1000000,", {cutTime}},
        {"qz-sensor-exposure-range", I{-1, -2}, "qz-sensor-exposure-time-range=,1/-500000", {cutTime}},
        {"sensorWbRange", I{-99999999, 123456789}, "qz-sensor-wb-range=-99999999,123456789", {}},
        {"sensorWbRange", I{-99999999, 1234567890}, "qz-sensor-wb-range=", {unformatted("getSensorWbRange")}},
        {"qz-sensor-iso-range", I{123456789, -99999999}, "qz-sensor-iso-range=123456789,-99999999", {}},
        {"qz-sensor-iso-range",
         I{1234567890, -99999999},
         "qz-sensor-iso-range=",
         {unformatted("getSensorISORange")}},
        {"availbaleEffectRange", I{-9999999, 12345678}, "qz-color-effect-range=(-9999999,12345678)", {}},
        {"availbaleEffectRange",
         I{-9999999, 123456789},
         "qz-color-effect-range=",
         {unformatted("getColorEffectRange")}},
        {"qzHdcAvailableJpegSize",
         I{123456789, 987654321},
         "hdc-available-jpeg-size=123456789,987654321",
         {}},
        {"qzHdcAvailableJpegSize",
         I{1234567890, 987654321},
         "hdc-available-jpeg-size=1234567890,98765432",
         {error("getHdcAvailabeJpegSize(#), snprintf_s return error(-1)")}},
        {"qzExposureCompensationStep", F{0.1F, 2}, "qz-exposure-compensation-step=0.100000", {}},
        {"qzExposureCompensationStep", F{123456.789F}, "qz-exposure-compensation-step=123456.789062", {}},
        {"qzExposureCompensationStep",
         F{9e23F},
         "qz-exposure-compensation-step=899999998052066261991424.000000",
         {}},
        {"qzExposureCompensationStep",
         F{-9e23F},
         "qz-exposure-compensation-step=",
         {unformatted("getQzExposureCompStep")}},
        {"oisDefaultGryoGain",
         F{1.5F, -0.25F, 3},
         "qz_ois_default_gryo_gain=(1.500000,-0.250000)",
         {gain("(1.500000,-0.250000)")}},
        {"oisDefaultGryoGain",
         F{1.5F},
         "qz_ois_default_gryo_gain=(1.500000,0.000000)",
         {gain("(1.500000,0.000000)")}},
        {"oisDefaultGryoGain",
         F{123456, 123456.789F},
         "qz_ois_default_gryo_gain=(123456.000000,123456.789062)",
         {gain("(123456.000000,123456.789062)")}},
        {"oisDefaultGryoGain",
         F{1234567, 123456},
         "qz_ois_default_gryo_gain=",
         {unformatted("getOisDefaultGryoGain"), gain("")}},
    });
}

TEST(StoredCapabilities, KeepTheirFirstElement) {
    const struct {
        const char* tag;
        Elements elements;
        const char* stored;
        std::vector<LogLine> lines;
    } kRows[] = {
        {"qz-quickthumbnail-size",
         I{-12, 1},
         "-12 0 0 0 0 0 0 0 [] []",
         {info("mMaxQuickThumbnailSize:-12")}},
        {"qz-slow-jpeg-mode-threshold",
         L{-5000000000, 1},
         "0 -5000000000 0 0 0 0 0 0 [] []",
         {info("mSlowJpegModeThreshold:-5000000000")}},
        {"qz-insert-preview-count-in-burst",
         I{3, 1},
         "0 0 3 0 0 0 0 0 [] []",
         {info("Insert preview count = 3")}},
        {"qz-insert-preview-count-in-burst", I{-4}, kNothingStored, {info("Insert preview count = 0")}},
        {"qzRequireVideoStatus", B{1, 0}, "0 0 0 0 0 0 1 0 [] []", {}},
        {"qzRequireVideoStatus", B{2}, kNothingStored, {}},
        {"qz-pre-shutter-supported",
         B{1, 0},
         "0 0 0 0 0 0 0 1 [] []",
         {info("getPreShutterSupported(), preshutter supported: true")}},
        {"qz-pre-shutter-supported",
         B{2},
         kNothingStored,
         {info("getPreShutterSupported(), preshutter supported: false")}},
    };
    for (const auto& row : kRows) {
        Publication device({row.tag});
        device.has(row.tag, row.elements);
        EXPECT_THAT(device.runAlone(), ElementsAreArray(row.lines));
        EXPECT_EQ(device.published(), "");
        EXPECT_EQ(device.stored(), row.stored);
    }
}

}  // namespace
}  // namespace qz::test
