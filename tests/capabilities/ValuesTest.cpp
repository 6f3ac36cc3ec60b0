#include "capabilities/Device.h"
#include "capabilities/Getters.h"

namespace qz::test {
namespace {

// Tag; elements; value of the key; who does not know a number of a list, or has too small a buffer; unknown
// numbers.
constexpr char kValues[] = R"(
supported_iso_values|0..10|auto,unknown,100,200,400,800,unknown,1600,3200,6400,unknown
    isoModeEnumToString: Unknown iso mode|1,6,10
supported_iso_values|2,255|100,unknown|isoModeEnumToString: Unknown iso mode|255
availbaleContrast|0..5|0,50,100,150,200,unknown|contrastModeEnumToString: Unknown contrast mode|5
availbaleSaturation|0..5|0,50,100,150,200,unknown|saturationModeEnumToString: Unknown saturation mode|5
availbaleBrightness|0..5|0,25,50,75,100,unknown|brightnessModeEnumToString: Unknown brightness mode|5
supported_sharpness|0..6|auto,+1,+2,+3,+4,+5,unknown|sharpnessModeEnumToString: Unknown sharpness mode|6
availbaleMetering|0..4|matrix,average,center-weighted,spot,unknown
    meteringModeEnumToString: Unknown metering mode|4
availbaleDualPrimary|0..4|primary,unknown,secondary,dual,unknown
    dualPrimaryEnumToString: Unknown dual primary mode|1,4
availbaleEffectModes|0..5|none,unknown,zy-rixi,zy-fugu,zy-valencia,zy-laodianying
    colorEffectModeEnumToString: Unknown color effect|1
availbaleEffectModes|6,7,8,9,10|zy-lianghong,zy-yunduan,zy-earlybird,zy-nuanyangyang,zy-tianmeikeren
availbaleEffectModes|11,12,13,14,15,16|zy-meishimenghuan,zy-heibai,zy-xpro2,zy-hudson,zy-myfair,zy-lofi
availbaleEffectModes|18,19,20|mph-ambrix_monochrome,mph-ambrix_moriyama,mph-ambrix_graylevels
availbaleEffectModes|17,21,27|unknown,unknown,unknown
    colorEffectModeEnumToString: Unknown color effect|17,21,27
availbaleLightPaintingModes|0..6|default,super-night,car,light,water,star,default
    exposureModeEnumToString: Unknown exposure mode|6
availbaleRelayoutModes|0..2|none,snapshot2preview,unknown|relayoutModeEnumToString: Unknown relayout mode|2
availbaleSupernightIso|0,1,7|auto,unknown,1600|isoModeEnumToString: Unknown iso mode|1
availbaleSupernightExposureTime|0..9|auto,1/30000,1/20000,1/10000,1/4000,1/2000,1/1333,1/1000,1/200,1/100
availbaleSupernightExposureTime|10,11,12,13,14,15,16,17,18,19|1/66,1/50,1/40,1/30,1/4,1/2,1,2,4,8
availbaleSupernightExposureTime|20,21,22,23,24,25,26|12,16,20,24,28,32,auto
    manualExposureModeEnumToString: Unknown exposure mode|26
flashAssistFocusSupported|0..4|default,auto,on,off,unknown
    focusAssistFlashModeEnumToString: Unknown focusAssistFlash mode|4
supportedColorModes|0..3|normal,bright,soft,unknown|colorModeEnumToString: Unknown color mode|3
videoFpsSupported|30,60,-2147483648|30,60,-2147483648
qz-sensor-binning-sizes-supported|1,2|1,2,
manualVcmStartValue|-2147483648,7|-2147483648
manualVcmEndValue|1023,7|1023
burstCountSupported|20,7|20
burstJpegQuality|96,7|96
qz-af-mmi-far-threashold|-5,7|-5
qz-af-mmi-near-threashold|2147483647,7|2147483647
highVideoCallbackThresholdSupported|255,7|255
darkRaiderModeSupported|3,7|3
lcdCompensateSupported|1,0|off,auto
apertureValueSupported|50,44,52|2,4
apertureValueSupported|50,44,52,0,56|2,4
apertureValueSupported|0,56|
mmiTestFeatureSupported|108,101,100|led
mmiTestFeatureSupported|108,101,100,0,0|led
qz-sensor-exposure-range|250000,3000000|1/4,3
qz-sensor-exposure-range|999999,1000000|1/1,1
qz-sensor-exposure-range|0,2147483647|0,2147
qz-sensor-exposure-range|-2147483648,1500000|1/0,1
qz-sensor-exposure-range|1,-1|1/1000000,|microSecondToSecond
qz-sensor-exposure-range|-1,-2|,1/-500000|microSecondToSecond
sensorWbRange|-99999999,123456789|-99999999,123456789
sensorWbRange|-99999999,1234567890||getSensorWbRange
qz-sensor-iso-range|123456789,-99999999|123456789,-99999999
qz-sensor-iso-range|1234567890,-99999999||getSensorISORange
availbaleEffectRange|-9999999,12345678|(-9999999,12345678)
availbaleEffectRange|-9999999,123456789||getColorEffectRange
qzHdcAvailableJpegSize|123456789,987654321|123456789,987654321
qzExposureCompensationStep|0.1,2|0.100000
qzExposureCompensationStep|123456.789|123456.789062
qzExposureCompensationStep|9e23|899999998052066261991424.000000
qzExposureCompensationStep|-9e23||getQzExposureCompStep
oisDefaultGryoGain|1.5,-0.25,3|(1.500000,-0.250000)
oisDefaultGryoGain|1.5|(1.500000,0.000000)
oisDefaultGryoGain|123456,123456.789|(123456.000000,123456.789062)
oisDefaultGryoGain|1234567,123456||getOisDefaultGryoGain
)";

TEST(CapabilityValues, ArePublishedUnderTheirKey) {
    for (std::vector<std::string> row : rowsOf(kValues)) {
        row.resize(5);
        const Getter getter = getterOf(row[0]);
        Device device({getter.tag});
        device.has(getter.tag, elementsOf(getter.type(), row[1]));
        std::string log;
        for (const std::string& number : split(row[4], ',')) log += "E " + row[3] + " enum: " + number + '\n';
        if (row[4].empty() && !row[3].empty()) log = "E " + row[3] + "(), snprintf_s failed!\n";
        EXPECT_EQ(device.publishAlone(), log + getter.echoLine(row[2])) << row[0];
        EXPECT_EQ(device.published(), split(getter.publishes, '=')[0] + '=' + row[2]);
    }
}

// Tags with their elements, or a parameter of before; parameters; what is stored, if anything; log lines.
constexpr char kOthers[] = R"(
qz-quickthumbnail-size=-12,1||-12 0 0 0 0 0 0 0 [] []|I mMaxQuickThumbnailSize:-12
qz-slow-jpeg-mode-threshold=-5000000000,1||0 -5000000000 0 0 0 0 0 0 [] []
    I mSlowJpegModeThreshold:-5000000000
qz-insert-preview-count-in-burst=3,1||0 0 3 0 0 0 0 0 [] []|I Insert preview count = 3
qz-insert-preview-count-in-burst=-4|||I Insert preview count = 0
qzRequireVideoStatus=1,0||0 0 0 0 0 0 1 0 [] []
qzRequireVideoStatus=2
qz-pre-shutter-supported=1,0||0 0 0 0 0 0 0 1 [] []|I getPreShutterSupported(), preshutter supported: true
qz-pre-shutter-supported=2|||I getPreShutterSupported(), preshutter supported: false
lcdCompensateSupported=0,1
lcdCompensateSupported=2
mmiTestFeatureSupported=61|||I mmi test feature supported value = (null)
faceBeautyRange=-7,100|qz-min-beauty-level=-7;qz-max-beauty-level=100
exposureLevelRange=-2147483648,8|qz-min-exposure-time=-2147483648;qz-max-exposure-time=8||
    I exposure level: [-2147483648, 8]
availbaleFrontFlashLevel=-1,2,3|front_flash_adjust_supported=true;front_flash_supports=-1,2,3
qzHdcAvailableJpegSize=1234567890,987654321|hdc-available-jpeg-size=1234567890,98765432||
    E getHdcAvailabeJpegSize(#), snprintf_s return error(-1)
makeUpEffectSupported=0..4|qz-makeup-support=none,mode1,mode2,mode3,mode4||
    I supportedMakeUpEffect.data[0] = 0|I supportedMakeUpEffect.data[1] = 1
    I supportedMakeUpEffect.data[2] = 2|I supportedMakeUpEffect.data[3] = 3
    I supportedMakeUpEffect.data[4] = 4|I supported make up effect = none,mode1,mode2,mode3,mode4
makeUpEffectSupported=9,5,6,7,8,255|qz-makeup-support=unknown,mode5,mode6,mode7,mode8,unknown||
    I supportedMakeUpEffect.data[0] = 9|E makeUpEffectModeEnumToString: Unknown make up effect enum: 9
    I supportedMakeUpEffect.data[1] = 5|I supportedMakeUpEffect.data[2] = 6
    I supportedMakeUpEffect.data[3] = 7|I supportedMakeUpEffect.data[4] = 8
    I supportedMakeUpEffect.data[5] = 255|E makeUpEffectModeEnumToString: Unknown make up effect enum: 255
    I supported make up effect = unknown,mode5,mode6,mode7,mode8,unknown
qzSubSensorJpegSize=4000,3000,1920,1080,7|sub-picture-size-values=4000x3000,1920x1080
    0 0 0 0 0 0 0 0 [] [4000x3000,1920x1080]
    I getSubSupportedPictureSizes SubSupportedPictureSizes:4000x3000,1920x1080
qzSubSensorJpegSize=7|sub-picture-size-values=||I getSubSupportedPictureSizes SubSupportedPictureSizes:
super_resolution_supported=1 superResolutionPictureSize=4000,3000,2000,1500
    key-super-resolution-supported=true;super-resolution-picture-size-values=4000x3000,2000x1500
    0 0 0 0 0 0 0 0 [4000x3000,2000x1500] []|I super resolution supported = true
    I getSupportedSuperPictureSizes(), supported super resolution picture sizes: 4000x3000,2000x1500
super_resolution_supported=1,0 superResolutionPictureSize=4000,3000,7
    key-super-resolution-supported=true;super-resolution-picture-size-values=4000x3000
    0 0 0 0 0 0 0 0 [4000x3000] []|I super resolution supported = true
    I getSupportedSuperPictureSizes(), supported super resolution picture sizes: 4000x3000
super_resolution_supported=1 superResolutionPictureSize=4000
    key-super-resolution-supported=true||I super resolution supported = true
super_resolution_supported=1 superResolutionPictureSize=
    key-super-resolution-supported=true||I super resolution supported = true
super_resolution_supported=1|key-super-resolution-supported=true||I super resolution supported = true
super_resolution_supported=2 superResolutionPictureSize=4000,3000|key-super-resolution-supported=true||
    I super resolution supported = true|I getSupportedSuperPictureSizes(), super resolution is not supported!
super_resolution_supported=0 superResolutionPictureSize=4000,3000|key-super-resolution-supported=false||
    I super resolution supported = false|I getSupportedSuperPictureSizes(), super resolution is not supported!
scene-mode-values=auto android.control.availableSceneModes=33,5,34|scene-mode-values=autoqzauto,hdr
scene-mode-values=auto android.control.availableSceneModes=33,34,5|scene-mode-values=autoqzauto,hdr,
scene-mode-values= android.control.availableSceneModes=32,35,33|scene-mode-values=qzauto
scene-mode-values=auto android.control.availableSceneModes=5|scene-mode-values=auto
android.control.availableSceneModes=33|||I getSupportedExtScene(), extended scene mode is null.
)";

TEST(CapabilityValues, OfSeveralKeysOrNone) {
    for (std::vector<std::string> row : rowsOf(kOthers)) {
        if (row.size() < 3) row.resize(3);
        std::map<std::string, std::string> sides;
        std::vector<std::string> tags;
        for (const std::string& text : split(row[0], ' ')) {
            tags.push_back(text.substr(0, text.find('=')));
            sides[tags.back()] = text.substr(text.find('=') + 1);
        }
        Device device(tags);
        for (const auto& [tag, text] : sides) {
            if (tag == "scene-mode-values") {
                device.parameters.set("scene-mode-values", text.c_str());
            } else {
                device.has(tag, elementsOf(getterOf(tag).type(), text));
            }
        }
        std::string log;
        for (size_t i = 3; i < row.size(); ++i) log += row[i] + '\n';
        EXPECT_EQ(device.publishAlone(), log) << row[0];
        EXPECT_EQ(device.published(), row[1]) << row[0];
        EXPECT_EQ(device.stored(), row[2].empty() ? kNothingStored : row[2]) << row[0];
    }
}

}  // namespace
}  // namespace qz::test
