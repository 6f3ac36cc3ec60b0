#include "CCameraQzParam.h"

#include "camera/Peer.h"
#include "support/Device.h"
#include "support/Rows.h"

#include <cutils/properties.h>
#include <gmock/gmock.h>

#include <optional>

namespace qz::test {
namespace {

using android::String8;
using testing::ElementsAre;
using testing::ElementsAreArray;

std::vector<LogLine> error(const char* text) { return lineOf(ANDROID_LOG_ERROR, "CameraQzParam", text); }
std::vector<LogLine> info(const std::string& text) { return lineOf(ANDROID_LOG_INFO, "CameraQzParam", text); }

TEST(CCameraQzParam, StartsEmpty) {
    LogCapture log;
    EXPECT_EQ(CreateCameraQzParam(nullptr), nullptr);
    EXPECT_EQ(log.take(), error("CreateCameraQzParam: paramIntf is NULL!"));
    Camera camera;
    EXPECT_EQ(TestPeer::state(camera.translator()),
              std::make_tuple(-1, false, false, false, 0, 0, 0, 0, 0, 0, -1, 0, 0, false, 0, 0, 0, false,
                              false, false, false, false, false, false, 0, 0, 0));
}

TEST(CCameraQzParam, AnswersWithoutAPass) {
    Camera camera;
    CCameraQzParam& translator = camera.translator();
    LogCapture log;
    for (const Row& row : rowsOf("qzauto|1 hdr|1 HDR|0 auto|0 hdr2|0")) {
        EXPECT_EQ(translator.isExtSceneMode(row[0].c_str()), row[1] == "1") << row[0];
    }
    EXPECT_FALSE(translator.isExtSceneMode(nullptr));
    EXPECT_EQ(log.take(), error("isExtSceneMode: extScene is NULL!"));

    translator.*TestPeer::superResPicSizes = "4000x3000,1200x1500";
    translator.*TestPeer::subPicSizes = "640x480";
    for (const Row& row : rowsOf("4000|3000|1|0 200|1500|1|0 640|480|0|1 40|4|0|1 480|640|0|0")) {
        const int width = std::stoi(row[0]);
        EXPECT_EQ(translator.isSuperResolution(width, std::stoi(row[1])), row[2] == "1") << width;
        EXPECT_EQ(translator.isSubSensorResolution(width, std::stoi(row[1])), row[3] == "1") << width;
    }
    const char* first = nullptr;
    const char* second = nullptr;
    String8 text;
    translator.getSupportedSuperResPicSizes(first, second, text);
    EXPECT_THAT(
        (std::vector<std::string>{first, second, text.c_str()}),
        ElementsAre("qz-image-post-process", "super-resolution-picture-size-values", "4000x3000,1200x1500"));
    first = second = nullptr;
    translator.getQzPostKey(first, second);
    EXPECT_STREQ(first, "qz-image-post-process");
    EXPECT_STREQ(second, "qz-qzcamera-flag");
    for (const uint8_t result : {uint8_t{255}, uint8_t{0}}) {
        (translator.*TestPeer::otpTestResult).set(result);
        translator.getOTPtestResult(first, text);
        EXPECT_THAT((std::vector<std::string>{first, text.c_str(), camera.parameters.get("qz-otp-check")}),
                    ElementsAre("qz-otp-check", std::to_string(result), std::to_string(result)));
    }
    translator.*TestPeer::extParam = nullptr;
    text = "untouched";
    translator.getOTPtestResult(first = nullptr, text);
    EXPECT_THAT((std::vector<std::string>{first, text.c_str()}), ElementsAre("qz-otp-check", "untouched"));
    EXPECT_EQ(log.take(), error("getOTPtestResult: mExtParam is NULL!"));

    EXPECT_FALSE(translator.getPanorama2DMode());
    translator.*TestPeer::panorama2D = true;
    EXPECT_TRUE(translator.getPanorama2DMode());
    // Whether the device asks for the recording state, what the host reports, and the answer.
    for (const Row& row : rowsOf("0|1|0 1|0|0 1|1|1 0|0|0 1|-|1 1|0|0")) {
        translator.*TestPeer::requireVideoStatus = row[0] == "1";
        if (row[1] != "-") translator.qzUpdateRecordingState(row[1] == "1");
        EXPECT_EQ(translator.qzIsRecording(), row[2] == "1");
    }
}

// Professional mode, light painting and exposure time; supported, the vendor's camera, and done.
TEST(CCameraQzParam, LongExposureAndPreShutter) {
    Camera camera;
    CCameraQzParam& translator = camera.translator();
    LogCapture log;
    for (const Row& row : rowsOf(R"(
            0|0|2000000|1|1|0|short|need 1|0|1000000|1|1|0|short|need 1|0|1000001|1|1|0|long|no 0|5|7|1|1|0|long|no
            0|0|0|1|1|1|short|no 0|5|7|1|1|1|long|no 0|0|0|0|1|0|short|unsupported 0|0|0|1|0|0|short|unsupported)")) {
        (translator.*TestPeer::professional).set(row[0] == "1");
        translator.*TestPeer::lightPainting = static_cast<uint8_t>(std::stoi(row[1]));
        translator.*TestPeer::exposureTime = std::stoi(row[2]);
        translator.*TestPeer::preShutterSupported = row[3] == "1";
        translator.*TestPeer::isQzCamera = row[4] == "1";
        translator.*TestPeer::preShutterDone = row[5] == "1";
        const std::string longLine = "bool qz::CCameraQzParam::checkLongExpoMode():expo time " + row[2];
        auto lines = info(row[6] == "long" ? longLine : "");
        EXPECT_EQ(translator.checkLongExpoMode(), row[6] == "long");
        EXPECT_EQ(log.take(), lines);
        const std::string answer = row[7] == "need" ? "need pre shutter."
                                   : row[7] == "no" ? "doesn't need pre shutter."
                                                    : "pre shutter is not supported or is not qzcamera.";
        if (row[3] + row[4] + row[5] != "110") lines.clear();  // not asked how long
        lines.push_back({ANDROID_LOG_INFO, "CameraQzParam", "qzNeedPreShutter(), " + answer});
        EXPECT_EQ(translator.qzNeedPreShutter(), row[7] == "need");
        EXPECT_EQ(log.take(), lines);
    }
}

// Property, professional mode, the vendor's camera; what is logged.
TEST(CCameraQzParam, CustomizedZsl) {
    LogCapture log;
    for (const Row& row : rowsOf(
             R"(
            |absent|true|0 01|off|true|0 2|off|true|0 |on|true|1 |auto|true|255 |off|false|0 1x|off|true|ignored)")) {
        Camera camera;
        log.take();
        property_set("camera.ignore.qz.customized.zsl", row[0].c_str());
        if (row[1] != "absent") camera.parameters.set("qz-professional-mode", row[1].c_str());
        camera.translator().*TestPeer::isQzCamera = row[2] == "true";
        EXPECT_EQ(camera.translator().needQzCustomizedZsl(), row[2] == "true" && row[3] == "0") << row[1];
        const std::string state = "bool qz::CCameraQzParam::needQzCustomizedZsl() is QzCamera:" + row[2] +
                                  " professional:" + row[3];
        const bool ignored = row[3] == "ignored";
        const auto byProperty = info("needQzCustomizedZsl(), ignore qz customized zsl by prop.");
        EXPECT_EQ(log.take(), ignored ? byProperty : info(state));
        camera.translator().*TestPeer::extParam = nullptr;
        EXPECT_FALSE(camera.translator().needQzCustomizedZsl());
        EXPECT_EQ(log.take(), ignored ? byProperty : error("needQzCustomizedZsl: mExtParam is NULL!"));
    }
    property_set("camera.ignore.qz.customized.zsl", "");
}

// Keys in the order of the pass: '#' marks an integer read, '>' a read that needs what stands before it, a
// long-exposure mode, a declared tag or a flag.
constexpr char kReads[] = R"(
    iso contrast saturation brightness zsl-mode sharpness qz-face-ae-area metering-mode
    burst-capture >#burst-capture #burst-delay-ms burst-stop-command #exp-bracketing-range #qz-face-orientation
    qz-face-detection qz-smile-detection qz-blink-detection qz-face-beauty qz-face-meiwo
    qz-image-post-process >key-qz-panorama >key-qz-2dpanorama #qz-omron-face-beauty-level qz-image-denoise
    key-ambrix-scope qz-best-photo-mode qz-face-beauty-preview-only norvale-target-tracking target-coordinates
    key-hdr-movie qz-capture-mirror-mode #qz-magnifier-step-value key-qz-panorama key-qz-2dpanorama
    #key-qz-2dpanorama-tiny-width >#key-qz-2dpanorama-tiny-height #key-qz-2dpanorama-cap #key-qz-2dpanorama-index
    qz-manual-focus-mode #qz-manual-focus-step-value #face-mirror-supported #face-mirror-point qz-effect
    #key_exposure_time qz-dual-primary-mode

    key-pdaf-verify scene-mode #zoom >#max-zoom key-dual-camera-verify qz-mmi-afc-mode qz-mmi-ois-vcm-calib-mode
    #key-laser-calibration qz-big-aperture-mode #qz-set-aperture-value focus-areas metering-areas
    post-process-picture-name fast-snapshot-mode recording-hint qz-exposure-mode >qz-exposure-try-ae
    >qz-relayout-mode #rotation >#jpeg-thumbnail-width >#jpeg-thumbnail-height >#jpeg-quality
    >#jpeg-thumbnail-quality #qz_ois_enable #qz_ois_magnetism_check #qz_mmi_enable #qz-mmi-ivp-pro
    #qz_agingvcm_enable #qz_ois_running #qz_ois_check #qz_ois_degree_mode #qz-dual-flash-mode
    #qz-dual-flash-current-index #qz-dual-flash-picture-index qz-af-mmi-control-mode
    >#mmitest-lowlight-sensor-mode >#mmitest-lowlight-sensor-gain qz-exposure-compensation-value
    qz-manual-iso-value qz-manual-exposure-value picture-size qz-refocus-mode
    qz-qzcamera-flag >qz-face-beauty-preview-only qz-nice-food-mode qz-qzcamera-flag qz-capture-prepare
    #qz-video-fps qz-focus-metering-separation #front_flash_level qz-manual-flash qz-sensor-wb
    qz-sensor-exposure-time qz-sensor-iso qz-professional-mode #zy-level qz-raw-img-save-switch
    qz-raw-img-path-name qz-exposure-hint-mode qz-dynamic-iso-range qz-af-equip-mmi-control-mode
    qz-mmi-gamma-mode qz-mmi-raw-region qz-mmi-sub-raw-region qz-pro-focus-mode qz-makeup-effect qz-makeup-mode
    qz-focus-assist-flash-mode key-dual-camera-hdc-calib #qz-dark-raider-mode-enable qz-color-mode
    qz-dm-watermark-mode #qz_mmi_capture_dual_mode qz_ois_gryo_offset_calib qz_ois_hall_calib qz_ois_hall_check
    qz_ois_set_gryo_gain qz_ois_save_gryo_gain sub-picture-size video-stabilization
    qz-dual-primary-mode)";

// Remembers what it is asked for.
class RecordingHost : public QzParametersEx {
  public:
    using QzParametersEx::QzParametersEx;
    const char* get(const char* key) override {
        reads.emplace_back(key);
        return QzParametersEx::get(key);
    }
    int getInt(const char* key) override {
        reads.push_back(std::string("#") + key);
        return QzParametersEx::getInt(key);
    }
    std::vector<std::string> reads;
};

TEST(RequestPass, ReadsKeysInItsOrder) {
    std::vector<std::string> whenAbsent;
    std::vector<std::string> whenSet;
    android::CameraParameters2 parameters;
    for (const Row& row : rowsOf(kReads)) {
        if (row[0][0] != '>') whenAbsent.push_back(row[0]);
        whenSet.push_back(row[0].substr(row[0].find_first_not_of('>')));
        parameters.set(row[0].substr(row[0].find_first_not_of(">#")).c_str(), "1");
    }
    parameters.set("qz-exposure-mode", "star");
    parameters.set("qz-qzcamera-flag", "off");
    LogCapture log;
    std::optional<VendorTags> tags;
    tags.emplace(Declarations{{capture("lightPaintingMode"), TYPE_BYTE},
                              {capture("oisHallCalib"), TYPE_BYTE},
                              {capture("oisHallCheck"), TYPE_BYTE},
                              {capture("oisSetGryoGain"), TYPE_FLOAT},
                              // Refused, which stops nothing.
                              {capture("iso"), TYPE_INT32},
                              {capture("mmtest-lowlight-param"), TYPE_FLOAT},
                              {capture("oisGryoOffsetCalib"), TYPE_INT32}});
    const android::sp<RecordingHost> host = new RecordingHost(parameters, 0);
    CCameraQzParam& translator = *host->mCameraQzParam;
    translator.setCallBackFlag(1);
    android::CameraMetadata request;
    EXPECT_EQ(translator.paramToMetaData(&request), 0);
    EXPECT_THAT(std::exchange(host->reads, {}), ElementsAreArray(whenSet));
    EXPECT_EQ(std::get<0>(TestPeer::state(translator)), 1) << "burst-capture";

    parameters.unflatten(String8());
    tags.emplace(Declarations{{capture("iso"), TYPE_BYTE}, {capture("zsl-mode"), TYPE_BYTE}});
    translator.setCallBackFlag(0);
    request.clear();
    EXPECT_EQ(translator.paramToMetaData(&request), 0);
    EXPECT_THAT(std::exchange(host->reads, {}), ElementsAreArray(whenAbsent));
    EXPECT_EQ(request.entryCount(), 0U);
    EXPECT_EQ(std::get<0>(TestPeer::state(translator)), 1) << "burst-capture is kept";

    log.take();
    EXPECT_EQ(translator.paramToMetaData(nullptr), -22);
    EXPECT_THAT(host->reads, testing::IsEmpty());
    EXPECT_EQ(log.take(), error("paramToMetaData(84) Invalid metadata!"));
}

}  // namespace
}  // namespace qz::test
