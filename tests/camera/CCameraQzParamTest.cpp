// SPDX-License-Identifier: Apache-2.0
#include "CCameraQzParam.h"

#include "support/Device.h"
#include "support/Peer.h"
#include "support/Rows.h"

#include <cutils/properties.h>
#include <gmock/gmock.h>

namespace qz::test {
namespace {

using android::String8;
using testing::ElementsAre;

std::vector<LogLine> error(const char* text) { return lineOf(ANDROID_LOG_ERROR, "CameraQzParam", text); }
std::vector<LogLine> info(const std::string& text) { return lineOf(ANDROID_LOG_INFO, "CameraQzParam", text); }

TEST(CCameraQzParam, StartsEmpty) {
    LogCapture log;
    EXPECT_EQ(CreateCameraQzParam(nullptr), nullptr);
    EXPECT_EQ(log.take(), error("CreateCameraQzParam: paramIntf is NULL!"));
    Camera camera;
    for (const auto& [name, value] : TestPeer::members(camera.translator())) {
        const bool isUnset = name == "mBurstCapture" || name == "mFocusContrastValue";
        EXPECT_EQ(value, isUnset ? -1 : 0) << name;
    }
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
    // Columns: the device asks for the recording state, the state that the host reports, the answer.
    for (const Row& row : rowsOf("0|1|0 1|0|0 1|1|1 0|0|0 1|-|1 1|0|0")) {
        translator.*TestPeer::requireVideoStatus = row[0] == "1";
        if (row[1] != "-") translator.qzUpdateRecordingState(row[1] == "1");
        EXPECT_EQ(translator.qzIsRecording(), row[2] == "1");
    }
}

// Columns: professional mode, light painting, exposure time; supported, vendor's camera application, done.
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
        if (row[3] + row[4] + row[5] != "110") lines.clear();  // the duration is not read
        lines.push_back({ANDROID_LOG_INFO, "CameraQzParam", "qzNeedPreShutter(), " + answer});
        EXPECT_EQ(translator.qzNeedPreShutter(), row[7] == "need");
        EXPECT_EQ(log.take(), lines);
    }
}

// Columns: property, professional mode, vendor's camera application; expected log line.
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

TEST(CCameraQzParam, NeedsARequest) {
    Camera camera;
    LogCapture log;
    EXPECT_EQ(camera.translator().paramToMetaData(nullptr), -22);
    EXPECT_EQ(log.take(), error("paramToMetaData(84) Invalid metadata!"));
}

}  // namespace
}  // namespace qz::test
