// The setters of one key and one tag, row by row, and what becomes of garbage.
#include "Bench.h"

#include <algorithm>
#include <chrono>
#include <random>

namespace qz::test {
namespace {

struct Row {
    std::string setter, key, tag, type;
    Texts words;  // "text>elements"
    std::string failure, information;
};

// "name:type:text>elements|...", with the type as for declare(), and no elements where nothing is written.
// The last word is one that the vocabulary does not know, or a number that shows whether a text prints it
// signed. An integer key counts as absent at -1. The last group of a list counts; areas need a text that
// parses, regions and sizes take what they get.
constexpr char kVocabularies[] = R"(
    onoff:b:on>1|off>0|yes>255  truefalse:b:true>1|false>0|yes>255  iso:b:50>1|1250>6|300>255
    percent:b:150>3|0>0|75>255  brightness:b:75>3|0>0|150>255       sharpness:b:+5>5|auto>0|5>255
    makeup:b:mode8>8|mode9>255  metering:b:center-weighted>2|Spot>255 effect:b:mt-kuai>42|zy-rixi>2|sepia>255
    scene:b:qzauto>33|hdr>34|night>0  exposure:b:star>5|moon>0      relayout:b:snapshot2preview>1|none>0|on>0
    shutter:b:1/4000>4|32>25|1/3>255  focus:b:MF>3|Auto>0|auto>255  assist:b:off>3|on>2|Auto>0
    color:b:soft>2|bright>1|hard>0    utf16:b:raw>114,0,97,0,119,0|é中>233,0,45,78|😀>61,216,0,222
    int:i:7>7|0>0|-1>|0x10>16|-2>-2   autoint:i:5200K>5200|auto>0|cloudy>0|9999999999>2147483647|-1>-1
    point:i:-5>0|0>0|-1>|26>26        microseconds:r:20000>20000/1000000|-1>|0>0/1000000|-2>-2/1000000
    onoffint:i:on>1|off>0|yes>-1      equipment:i:mmi_equip_9302_middle>6|mmi_equip_9300_far>2|on>1|yes>-1
    area:i:(9,9,9,9,9),(1,2,3,4,5)>1,2,3,4,5|(1,2,3,4,5)(6)>|x>0,0,0,0,0|(9999999999)>|(-5,4,3,2,1)>-5,4,3,2,1
    region:i:(1,2,3,4)(5,6,7,8)>5,6,7,8|(10,20)>10,20,0,0|(1,9999999999,3)>1,0,0,0|abc>0,0,0,0
    size:i:(1,2)(4000x3000)>4000,3000|4000x3000>0,0|(>0,0|(7,x)>7,0
    coordinate:i:3,-4>3,-4|,5>0,5|5,>5,0|9999999999,-9999999999>2147483647,-2147483648
    isorange:i:100,3200>100,3200|-5x+7>-5,7|0,9999999999>0,2147483647)";

// "setter key tag vocabulary | failure | information": "%s(), failed to update " and ", return: %d" stand
// around the failure unless it begins with "%s()", and "%s(), " before the information.
constexpr char kTable[] = R"(
    # Image, capture, faces, panorama
    setIso iso iso iso | iso: %u
    setContrast contrast constrastValue percent | contrast: %s, %d
    setSaturation saturation saturationValue percent | saturation mode: %s, %d
    setBrightness brightness brightnessValue brightness | brightness mode: %s, %d
    setZslMode zsl-mode qz-zsl-mode onoff | zslmode :  %d | set zslmode: %d
    setSharpness sharpness sharpnessValue sharpness | sharpnessMode mode: %u
    setMeteringMode metering-mode meteringMode metering | meteringMode mode: %u
    setBurstInterval burst-delay-ms burst-delay-ms int | burstInterval: %d
    setStopBurst burst-stop-command stopBurst truefalse | stop burst: %u
    setCaptureExposureBracketing exp-bracketing-range qz-capture-exporsure-bracketing int
        | captureExposureBracketing: %d
    setFaceOrientation qz-face-orientation faceOrientation int | face orientation: %d
    setFaceDetection qz-face-detection qz-face-detection onoff | face detection mode: %s, %d
    setSmileDetection qz-smile-detection smileDetectionMode onoff | smile detection mode: %s, %u
    setBlinkDetection qz-blink-detection blinkDetectionMode onoff | blink detection mode: %s, %d
    setFaceBeauty qz-face-beauty faceBeautyMode onoff | face beauty mode: %s, %u
    setFaceMeiwo qz-face-meiwo faceMeiwoMode onoff | face meiwo mode: %s, %u
    setImageProcessMode qz-image-post-process imagePostProcessMode onoff | post process mode: %s, %u
    setFaceBeautyLevel qz-omron-face-beauty-level faceBeautyLevel int | face beauty level: %d
    setImageDenoise qz-image-denoise qz-image-denoise onoff | image denoise mode: %s, %u
    setScopeMode key-ambrix-scope scopeMode onoff | scope mode: %s, %u
    setBestShotMode qz-best-photo-mode bestShotMode truefalse | best shot mode: %s, %u
    setChatFaceBeauty qz-face-beauty-preview-only qz-face-beauty-preview-only onoff
        | face beauty for chat: %s, %u
    setTargetTrackingMode norvale-target-tracking qz-device-target-tracking onoff
        | target tracking mode: %s, %u
    setTargetTrackingCoord target-coordinates qz-device-target-tracking-coordinate coordinate
        | target tracking coordinate: %s (%d, %d)
    setHdrMovieMode key-hdr-movie hdrMovieMode onoff | HDR movie mode: %s, %u
    setCaptureMirrorMode qz-capture-mirror-mode captureMirrorMode onoff | capture mirror mode: %s, %u
    setMagnifierStep qz-magnifier-step-value manualFocusValue int | magnifier step: %d
    setpanoramaMode key-qz-panorama panoramaMode onoff | panorama mode: %s, %u
    setpanorama2DCap key-qz-2dpanorama-cap panorama2DCaptureMode int | pano2dCap %u
    setpanorama2DIndex key-qz-2dpanorama-index panorama2DIndex int | pano2D index mode: %u
    setManualFocusMode qz-manual-focus-mode manualFocusMode onoff | manual focus mode: %u
    setManualFocusStep qz-manual-focus-step-value manualFocusValue int | manual focus step: %d
    setMirrorMode face-mirror-supported mirrorMode int | mirror mode: %d
    setMirrorPoint face-mirror-point mirrorPoint point | mirror point: 0x%x
    setColorEffect qz-effect colorEffectMode effect | qz effect mode: %u
    setExposureTime key_exposure_time qz-exposure-time microseconds | exposure time: %d/%d
    # Factory tests and calibration
    setMMICameraPdafVerify key-pdaf-verify qz-mmi-camera-pdaf-verification-mode onoff
        | mmi camera pdaf verify: %s, %u | set camera mmi pdaf verify: %d, %s
    setDualCameraVerify key-dual-camera-verify qz-dual-camera-verification-mode onoff
        | dual camera verify: %s, %u | set dual camera verify: %d, %s
    setMMIAFCVerify qz-mmi-afc-mode mmiAfcMode onoff | afc verify: %s, %u | set afc verify: %d, %s
    setMMIOisVcmCalibVerify qz-mmi-ois-vcm-calib-mode mmiOisVcmCalibMode onoff | ois vcm calib verify: %s, %u
        | set ois vcm calib verify: %d, %s
    setMMILaserCalibration key-laser-calibration qz_laser_calibrate int | %s() failed: %d, return: %d
        | mmi set laser calibration %d
    setMmiEnable qz_mmi_enable qz_mmi_enable int | mmi enable: %u
    setMmiIVPEnable qz-mmi-ivp-pro qz-mmi-ivp-pro int | MmiIVP enable: %d
    setVcmAgingEnable qz_agingvcm_enable qz_agingvcm_enable int | VcmAging enable: %u
    setMMIAFTestMode qz-af-mmi-control-mode qz-af-mmi-control-enable onoffint | MMI af mode: %d
    setEquipMMIAFTestMode qz-af-equip-mmi-control-mode qz-af-equip-mmi-control-mode equipment
        | equip MMI af mode: %d | set equip MMI mode: %d
    setMmiGammaMode qz-mmi-gamma-mode qz-mmi-gamma-mode onoff | GAMMA mode: %s, %u
    setMmiRawRegion qz-mmi-raw-region qz-mmi-raw-region region | MMI RAW region: %s
    setMmiSubRawRegion qz-mmi-sub-raw-region qz-mmi-sub-raw-region region | MMI sub RAW region: %s
    setHdcCalib key-dual-camera-hdc-calib qz-mmi-hdc_calib onoff
        | %s(), failed to hdcCalib: %s, %u, return: %d | hdcCalib: %d
    setMmiCaptureDualMode qz_mmi_capture_dual_mode qzMMICaptureDualMode int | capture dual mode: %u
        | set capture dual mode: %d
    # Optical image stabilisation. setOisDegreeMode reports in the words of setOisCheck.
    setOisEnable qz_ois_enable qz_ois_enable int | OIS: %u
    setOisMagnetismCheck qz_ois_magnetism_check qz_ois_magnetism_check int | oismagnetismcheck: %u
    setOisRunning qz_ois_running qz_ois_running int | ois running: %u
    setOisCheck qz_ois_check qz_ois_check int | ois check: %u
    setOisDegreeMode qz_ois_degree_mode qz_ois_degree_mode int | ois check: %u
    # Professional controls and exposure
    setExposureMode qz-exposure-mode lightPaintingMode exposure | exposure mode: %s, %u
    setExposureTryAe qz-exposure-try-ae lightPaintingTryAe onoff | exposure try AE: %s, %u
        | set exposure try AE: %d
    setRelayoutMode qz-relayout-mode lightPaintingRelayoutMode relayout | relayout mode: %s, %u
        | set relayout mode: %d
    setManualIso qz-manual-iso-value manualIsoValue iso | manual iso: %u
    setManualExposure qz-manual-exposure-value manualExposureValue shutter | manual exposure: %u
    setSensorWb qz-sensor-wb sensorWbValue autoint | sensorWb: %d
    setSensorIso qz-sensor-iso sensorIso autoint | sensorIso value: %d
    setProfessionalMode qz-professional-mode professionalMode onoff | professional mode: %s, %u
    setExposureHintMode qz-exposure-hint-mode exposureHintMode onoff | exposure hint mode: %d
    setDynamicIsoRange qz-dynamic-iso-range qz-dynamic-iso-range isorange | dynamic ISO range: [%d, %d]
    setProFocusMode qz-pro-focus-mode professionalFocusMode focus | pro focus mode: %u
    setFocusAssistFlashMode qz-focus-assist-flash-mode profFocusAssistFlashMode assist
        | focusAssistFlashMode: %s, %u
    setDarkRaiderModeEnable qz-dark-raider-mode-enable darkRaiderMode int | dark raider mode enable: %d
    # Areas, sizes and files. 35 stands for every scene that is written as 0.
    setExtSceneMode scene-mode extSceneMode scene | extended scene mode: 35
    setFocusAreas focus-areas qz-focus-value area | focus areas: %s (%d, %d) (%d, %d)
    setMeteringAreas metering-areas qz-metering-value area | metering areas: %s (%d, %d) (%d, %d)
    setRotation rotation qz-rotation-value int | rotation value: %d
    setSubPictureSize sub-picture-size qz-sub-sensor-cap-resolution size
        | %s(), failed to sub picture size return: %d | picture (%d, %d), strpic %s
    setPostJpegFileName post-process-picture-name qz-jpeg-filename utf16 | post jpeg file name: %s
    setRawImgSaveSwitch qz-raw-img-save-switch qz-raw-img-save-switch onoff | raw img save switch: %d
    setRawImgPathName qz-raw-img-path-name qz-raw-img-path-name utf16 | raw img file path name: %s
        | set Raw image path file: %s
    # Modes, flash, beauty, video. setFastSnapshotMode reports in the words of setApertureMode.
    setApertureMode qz-big-aperture-mode apertureMode onoff | apeture mode: %s, %u
    setApertureValue qz-set-aperture-value apertureValue int | aperture set value: %d
    setFastSnapshotMode fast-snapshot-mode fastShotMode onoff | apeture mode: %s, %u
    setRecordingHint recording-hint qz-recording-hint truefalse | recording hint: %u
    setDualFlashMode qz-dual-flash-mode dualFlashMode int | dual flash adapt mode: %d
    setDualFlashCurrentIndex qz-dual-flash-current-index dualFlashIndex int | dual flash current index: %d
    setDualFlashPictureIndex qz-dual-flash-picture-index qz-dual-flash-picture-index int
        | dual flash picture index: %d
    setAllFocuseMode qz-refocus-mode allFocusMode onoff | allfocus mode: %s, %u
    setNiceFood qz-nice-food-mode niceFoodMode onoff | nice food mode: %s, %u
    setQzcameraFlag qz-qzcamera-flag qzCameraFlag onoff | qzcamera flag: %s, %u
    setPrepareCaptureFlag qz-capture-prepare prepareCaptureFlag onoff | PrepareCapture flag: %s, %u
    setQzVideoFPS qz-video-fps qz-video-fps int | video FPS: %d
    setFocusMeteringSeparation qz-focus-metering-separation focusMeteringSeperateMode onoff
        | focus and metering separation info: %s, %d
    setFrontFlashLevel front_flash_level frontFlashLevel int | front flash level: %d
    setManualFlash qz-manual-flash manualFlashMode onoff | %s(), failed to manual flash: %s, %u, return: %d
    setColorEffectLevel zy-level colorEffectLevel int | color effect level: %d
    setMakeUpEffect qz-makeup-effect makeUpEffect makeup | qz makeup effect mode: %u
    setFaceMakeUp qz-makeup-mode makeUpMode onoff | make up mode: %s, %u
    setColorMode qz-color-mode colorMode color | Color Mode: %s, %u
    setDmWaterMarkMode qz-dm-watermark-mode dmWaterMarkMode onoff | DM water mark mode: %s, %u)";

std::vector<Row> rows() {
    std::map<std::string, std::string> vocabularies;
    for (const std::string& text : wordsOf(kVocabularies))
        vocabularies[text.substr(0, text.find(':'))] = text;
    std::vector<Row> rows;
    for (const std::string& line : linesOf(kTable)) {
        if (line[0] == '#') continue;
        const Texts texts = split(line, " | ");
        const Texts fields = split(texts[0], " ");
        const Texts vocabulary = split(vocabularies.at(fields[3]), ":");
        Row row = {fields[0], fields[1], fields[2], vocabulary[1], split(vocabulary[2], "|"), texts[1], ""};
        if (row.failure.rfind("%s()", 0) != 0)
            row.failure = "%s(), failed to update " + row.failure + ", return: %d";
        if (texts.size() > 2) row.information = "I %s(), " + texts[2];
        rows.push_back(row);
    }
    return rows;
}

// The texts of a row: the first %s is the setter's name, the second the key's text; numbers are the elements
// in turn, a last one the status if there is one.
std::string fill(std::string format, const Row& row, const std::string& word,
                 const std::string& status = "") {
    const std::string text = word.substr(0, word.find('>'));
    std::string numbers = word.substr(word.find('>') + 1);
    for (size_t at = 0, string = 0; (at = format.find('%', at)) != std::string::npos;) {
        const bool last = format.find('%', at + 1) == std::string::npos;
        std::string with = string++ == 0 ? row.setter : text;
        if (format[at + 1] != 's') {
            with = numbers.substr(0, numbers.find_first_of(",/"));
            numbers.erase(0, with.size() + 1);
            if (last && !status.empty()) with = status;
            if (format[at + 1] == 'u') with = std::to_string(static_cast<uint32_t>(std::stoi(with)));
            if (format[at + 1] == 'x') with = "1a";  // 26, the one number that is printed so
        }
        format.replace(at, 2, with);
        at += with.size();
    }
    return format;
}

TEST(Row, WritesExactlyItsEntryOrFailsInItsWords) {
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.setter);
        Bench bench;
        const auto call = [&](const char* how) {
            bench.set("@lightPainting=1");
            return bench.call(row.setter, declare(row.tag + ":" + row.type, how));
        };
        const std::string enter = row.setter == "setZslMode" ? "E Enter setZslMode(512)" : "";
        EXPECT_EQ(call("+"), enter) << "no key";
        for (const std::string& word : row.words) {
            const std::string elements = word.substr(word.find('>') + 1);
            bench.set(row.key, word.substr(0, word.find('>')));
            const std::string written =
                join({row.tag + "=" + elements, enter, fill(row.information, row, word)});
            EXPECT_EQ(call("+"), elements.empty() ? enter : written) << word;
        }
        EXPECT_EQ(call("-"), enter) << "no tag";
        const std::string& word = row.words.back();
        const std::string failure = "E " + fill(row.failure, row, word, "-38");
        EXPECT_EQ(call("x"), join({"-38", enter, fill(row.information, row, word), failure})) << "other type";
    }
}

// Texts without '=' and ';', which no parameter set takes.
Texts garbage() {
    Texts texts = split(
        "| "
        "|(|)|,|/|.|x|-|+|()|(((((|(,,,,)|(1|(1,2,3,4,5|1/|/0|1x|1,|0x|nan|-nan|inf|-inf|1e999|-1e999|1e-999|"
        "(nan,inf,1e999,-inf)|nan/inf|nan.5|-2147483648/-1|99999999999999999999|-99999999999999999999|"
        "99999999999999999999/-99999999999999999999|99999999999999999999.99999999999999999999|"
        "(99999999999999999999,-99999999999999999999)|\xC3|\xED\xA0\x80|\xF8\x88\x80\x80\x80|\xFF\xFE%s%n%d",
        "|");
    for (const char* piece :
         {"9", "(", "on", "(1,", "(((1,2,3,4,5)", "/", "\xF0\x9F\x98\x80", "\x80", "0.", "-"}) {
        texts.emplace_back();
        while (texts.back().size() < 10000) texts.back() += piece;
    }
    std::mt19937 random(20170604);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same garbage every time
    for (int i = 0; i < 60; ++i) {
        std::string text(random() % 200, ' ');
        for (char& c : text) c = static_cast<char>(random() % 255 + 1);
        std::replace(text.begin(), text.end(), '=', '(');
        std::replace(text.begin(), text.end(), ';', ',');
        texts.push_back(text);
    }
    return texts;
}

TEST(Row, GarbageIsWrittenAsTheFallbackOrNotAtAll) {
    std::string tags = R"(
        panorama2DMode:b panorama2DWidth:i dualSensorMode:b mmtest-lowlight-param:i oisHallCalib:b
        oisHallCheck:b oisGryoOffsetCalib:b oisSetGryoGain:f oisSaveGryoGain:f exposureCompValue:f
        sensorExposureTime:i proExposureTime:r qz-jpeg-thumbnail-size:i qz-jpeg-quality:b qz-picture-width:i
        qz-picture-height:i qz-jpeg-thumbnail-quality:b qz-zoom-in:f
        com.ambrix.device.capabilities.qzSubActiveArraySize:i)";
    Texts keys = wordsOf(R"(
        key-qz-2dpanorama key-qz-2dpanorama-tiny-width key-qz-2dpanorama-tiny-height zoom max-zoom
        mmitest-lowlight-sensor-mode mmitest-lowlight-sensor-gain qz_ois_gryo_offset_calib qz_ois_hall_calib
        qz_ois_hall_check qz_ois_set_gryo_gain qz_ois_save_gryo_gain qz-exposure-compensation-value
        jpeg-quality jpeg-thumbnail-quality jpeg-thumbnail-width jpeg-thumbnail-height picture-size
        qz-sensor-exposure-time qz-dual-primary-mode video-stabilization burst-capture)");
    Texts fallbacks = wordsOf("dualSensorMode=255 oisGryoOffsetCalib=255 oisHallCalib=255 oisHallCheck=255");
    for (const Row& row : rows()) {
        keys.push_back(row.key);
        tags += " " + row.tag + ":" + row.type;
        const std::string& word = row.words.back();
        const std::string fallback = row.tag + "=" + word.substr(word.find('>') + 1);
        const bool vocabulary =
            fallback.find(',') == std::string::npos && (row.type == "b" || word == "yes>-1");
        const bool gated = row.tag == "lightPaintingTryAe" || row.tag == "lightPaintingRelayoutMode";
        if (vocabulary && !gated) fallbacks.push_back(fallback);
    }
    const auto start = std::chrono::steady_clock::now();
    Bench bench;
    bench.set("@maximum=8;@array=4000,3000");
    bench.call("setIso", declare(tags, std::string(keys.size() * 2, '+')));  // takes the array
    const VendorTags device(declare(tags, std::string(keys.size() * 2, '+')));
    for (const std::string& text : garbage()) {
        for (const std::string& key : keys) bench.set(key, text);
        bench.set("@flag=0;@ownCamera=0");
        const Texts written = entriesOf(bench.camera.request());
        for (const std::string& entry : fallbacks)
            EXPECT_EQ(std::count(written.begin(), written.end(), entry), 1) << entry << " for " << text;
        const auto gated = [](const std::string& entry) { return entry.rfind("lightPainting", 0) == 0; };
        EXPECT_EQ(std::count_if(written.begin(), written.end(), gated), 1) << "the mode alone, for " << text;
        // The same behind the gates.
        bench.set("@flag=1;qz-exposure-mode=star;qz-dual-primary-mode=secondary;video-stabilization=true");
        bench.camera.request();
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

}  // namespace
}  // namespace qz::test
