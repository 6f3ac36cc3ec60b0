#include "callback/Session.h"

namespace qz::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;

TEST(ResultHandlers, AskTheHostInOrder) {
    Session session;
    session.professional();
    session.host->entries = {{"qz-dual-camera-verification-mode", B{1}},
                             {"qz-mmi-camera-pdaf-verification-mode", B{1}}};
    session.callBack->processQzCallBack(session.host->result);
    std::vector<std::string> expected;
    for (const std::string& tag : split(kTags, ' ')) {
        const std::string name = split(tag, ':')[0];
        expected.push_back(name == "exposureTime" ? "android.sensor.exposureTime" : capture(name));
    }
    EXPECT_THAT(session.host->asked, ElementsAreArray(expected));
}

TEST(ResultHandlers, TellWhatHasChanged) {
    Session().play(R"(
hintUser=
qz-zsl-mode=0
qz-zsl-mode=255|I checkZslMode(), ZSL mode changes to: 255
qz-zsl-mode=255
qz-zsl-mode=0|I checkZslMode(), ZSL mode changes to: 0
target-coordinates-offset=0,0
target-coordinates-offset=3,-4|> 10000(3, -4)
target-coordinates-offset=3,-4
target-coordinates-offset=3,5|> 10000(3, 5)
target-coordinates-offset=2,5|> 10000(2, 5)
dualSensorAbnormal=0
dualSensorAbnormal=5|> 80000(5, 0)
dualSensorAbnormal=5|> 80000(5, 0)
dualSensorAbnormal=0|> 80000(0, 0)
dualSensorAbnormal=0
qz-low-capture-state=-1
qz-low-capture-state=0|I processLowCapState(), low capture state: 0
qz-low-capture-state=0
qz-low-capture-state=7|I processLowCapState(), low capture state: 7
qz-exposure-mode-preview-state=0
qz-exposure-mode-preview-state=1,0
    I processExposureModePreviewState(), set exposure mode preview started to APP|> 200000(0, 0)
qz-exposure-mode-preview-state=1
qz-exposure-mode-preview-state=2
    I processExposureModePreviewState(), set exposure mode preview started to APP|> 200000(0, 0)
qz-exposure-mode-preview-state=0
qz-exposure-mode-preview-state=2
    I processExposureModePreviewState(), set exposure mode preview started to APP|> 200000(0, 0)
mmiTestFeatureResult=9,-1,-1,-1
mmiTestFeatureResult=9,1,2,3
    I processMMIFeatureTest(), send result: 9 mode: 1 index: 2 request: 3|> 20000000(9, 3)
mmiTestFeatureResult=8,1,2,3,4
mmiTestFeatureResult=8,0,2,3,4
    I processMMIFeatureTest(), send result: 8 mode: 0 index: 2 request: 3|> 20000000(8, 3)
mmiTestFeatureResult=8,0,5,3
    I processMMIFeatureTest(), send result: 8 mode: 0 index: 5 request: 3|> 20000000(8, 3)
mmiTestFeatureResult=8,0,5,6
    I processMMIFeatureTest(), send result: 8 mode: 0 index: 5 request: 6|> 20000000(8, 6)
qz-af-mmi-contrast-result-value=7|E processMmiFocusTest(), get invalid number: 1!
qz-af-mmi-contrast-result-value=7,-1
qz-af-mmi-contrast-result-value=7,8
    I processMmiFocusTest(), MMI focus value[0]: 7|I processMmiFocusTest(), MMI focus value[1]: 8
    > 10000000[07000000 08000000]
qz-af-mmi-contrast-result-value=9,8,1
qz-af-mmi-contrast-result-value=0..20|E processMmiFocusTest(), get invalid number: 21!
)");
}

// Also a value that comes back to 0 or -1, or falls below, is told once.
TEST(ResultHandlers, TellOnceWhatComesBackToNothing) {
    const std::string abnormal = "dualSensorAbnormal=5|> 80000(5, 0)\n";
    const auto lowCapture = [](const std::string& state) {
        return "qz-low-capture-state=" + state + "|I processLowCapState(), low capture state: " + state +
               '\n';
    };
    const auto test = [](const std::string& mode, const std::string& index, const std::string& request) {
        return "mmiTestFeatureResult=9," + mode + ',' + index + ',' + request +
               "|I processMMIFeatureTest(), send result: 9 mode: " + mode + " index: " + index +
               " request: " + request + "|> 20000000(9, " + request + ")\n";
    };
    const auto verified = [](const std::string& index) {
        return "qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=7," + index +
               "|I processDualCameraVerify(), send dual verification result: 7 index : " + index +
               "|> 40000(7, " + index + ")\n";
    };
    const auto focused = [](const std::string& value, const std::string& bytes) {
        return "qz-af-mmi-contrast-result-value=7," + value +
               "|I processMmiFocusTest(), MMI focus value[0]: 7|I processMmiFocusTest(), MMI focus "
               "value[1]: " +
               value + "|> 10000000[07000000 " + bytes + "]\n";
    };
    Session session;
    session.play(abnormal + abnormal);
    for (const std::string& row :
         split("qz-zsl-mode=255|I checkZslMode(), ZSL mode changes to: 255\n"
               "qz-zsl-mode=0|I checkZslMode(), ZSL mode changes to: 0\n"
               "target-coordinates-offset=3,4|> 10000(3, 4)\ntarget-coordinates-offset=0,4|> 10000(0, 4)\n"
               "target-coordinates-offset=0,0|> 10000(0, 0)\ntarget-coordinates-offset=-1,0|> 10000(-1, 0)\n"
               "target-coordinates-offset=-1,-1|> 10000(-1, -1)\ndualSensorAbnormal=0|> 80000(0, 0)\n" +
                   verified("1") + verified("0") + verified("-1") + test("1", "2", "3") +
                   test("0", "2", "3") + test("0", "0", "3") + test("0", "0", "0") + test("-1", "0", "0") +
                   test("-1", "-1", "0") + test("-1", "-1", "-1") + lowCapture("7") + lowCapture("0") +
                   lowCapture("-1") + lowCapture("-7") + focused("8", "08000000") + focused("0", "00000000") +
                   focused("-1", "ffffffff"),
               '\n')) {
        session.play(row);
        session.play(row.substr(0, row.find('|')));
    }
    session.play("dualSensorAbnormal=-5|> 80000(-5, 0)");
}

TEST(ResultHandlers, TellOthersWithEveryResult) {
    const std::string table = R"(
hintUser=5,6|I callbackSmartMode() smart snapshot mode: 5 |> 100[65656565 05000000]
hintUser=256|I callbackSmartMode() smart snapshot mode: 256 |> 100[65656565 00000000]
hintUser=-254|I callbackSmartMode() smart snapshot mode: -254 |> 100[65656565 02000000]
hintUser=0,6
lightPaintingExposureTime=0,1|I processExposureMesure(), set exposure time to APP: 0 s|> 100000(0, 0)
lightPaintingExposureTime=30|I processExposureMesure(), set exposure time to APP: 30 s|> 100000(30, 0)
qz_laser_calibrate_result=-3,1
    I processLaserCalibrationResult(), set laser calibration result to APP: -3 s|> 1000000(-3, 0)
qz-lpd-params=0|> 80000000[00000000]
qz-lpd-params=1,-2,305419896|> 80000000[01000000 feffffff 78563412]
qz-dark-raider-capture=0,1|> 8000000(0, 0)
qz-dark-raider-capture=9|> 8000000(9, 0)
oisGryoOffsetCalibResult=9
    I processOisGryoOffsetCalibResult() OisGryoOffset result x_gryoOffset:0, y_gryoOffset:0 result:9 
    > 40000000[01000000 09000000]
oisGryoOffsetCalibResult=9,8
    I processOisGryoOffsetCalibResult() OisGryoOffset result x_gryoOffset:8, y_gryoOffset:0 result:9 
    > 40000000[01000000 09000000 08000000]
oisGryoOffsetCalibResult=9,8,-7
    I processOisGryoOffsetCalibResult() OisGryoOffset result x_gryoOffset:8, y_gryoOffset:-7 result:9 
    > 40000000[01000000 09000000 08000000 f9ffffff]
oisGryoOffsetCalibResult=9,8,-7,6
    I processOisGryoOffsetCalibResult() OisGryoOffset result x_gryoOffset:8, y_gryoOffset:-7 result:9 
    > 40000000[01000000 09000000 08000000 f9ffffff 06000000]
oisHallCheckResult=4,1|I processOisHallCheckResult() OisHallCheck result result: 4 |> 40000000(3, 4)
)";
    Session().play(table + table);
}

TEST(ResultHandlers, MmiFocusSendsUpToTwentyValues) {
    std::string row = "qz-af-mmi-contrast-result-value=0..19";
    B bytes(80);
    for (size_t i = 0; i < 20; ++i) {
        row += "|I processMmiFocusTest(), MMI focus value[" + std::to_string(i) + "]: " + std::to_string(i);
        bytes[4 * i] = static_cast<uint8_t>(i);
    }
    Session().play(row + "|> " + block(0x10000000, bytes));
}

TEST(ResultHandlers, HallBlobsAreReadWithinTheirBytes) {
    const std::string log = "|I processOisHallCalibResult() OisHallCalib result driverName:";
    Session session;
    for (size_t count = 1; count <= 20; ++count) {
        std::string elements;
        B blob = {2, 0, 0, 0};
        for (size_t i = 0; i < count; ++i) {
            blob.push_back(static_cast<uint8_t>(i < 4 ? 4 - i : 'a' + i));
            elements += std::to_string(blob.back()) + ',';
        }
        const std::string name(blob.begin() + std::min<int>(static_cast<int>(count), 4) + 4, blob.end());
        int offset = 0;
        for (size_t i = 1; i <= 4 && count >= 8; ++i) offset = offset * 256 + blob[blob.size() - i];
        std::ostringstream row;
        row << "oisHallCalibResult=" << elements << log << name << ", ad_offset_y:" << offset
            << ", result:" << (count < 4 ? 0 : 0x01020304) << " |> " << block(0x40000000, blob);
        session.play(row.str());
    }
    session.play("oisHallCalibResult=255,255,255,255,100,119,0,120,254,255,255,255" + log +
                 "dw, ad_offset_y:-2, result:-1 |> 40000000[02000000 ffffffff 64770078 feffffff]");
}

TEST(ResultHandlers, DualVerificationRemembersItsIndex) {
    Session session;
    const auto expectActive = [&session](int active, const std::string& table) {
        session.play(table);
        EXPECT_EQ(TestPeer::dualVerifyActive(*session.callBack), active);
    };
    expectActive(0, R"(
qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=7,0
qz-dual-camera-verification-mode=2 qz-dual-camera-verification-result=7,1
)");
    expectActive(1, R"(
qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=7,1
    I processDualCameraVerify(), send dual verification result: 7 index : 1|> 40000(7, 1)
qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=8,1
qz-dual-camera-verification-mode=0,0
)");
    expectActive(0, R"(
qz-dual-camera-verification-mode=0 qz-dual-camera-verification-result=8,2
qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=7,1
)");
    expectActive(1, R"(
qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=7,2
    I processDualCameraVerify(), send dual verification result: 7 index : 2|> 40000(7, 2)
)");
}

TEST(ResultHandlers, PdafVerificationIsSentOnceAMode) {
    const std::string sent = R"(
qz-mmi-camera-pdaf-verification-mode=1 qz-dual-camera-pdaf-verification-result=5
    I processMMICameraPdafVerify(), mmi pdaf verification mode: 1
    I processMMICameraPdafVerify(), send mmi pdaf verification result: 5|> 400000(5, 0)
qz-mmi-camera-pdaf-verification-mode=1 qz-dual-camera-pdaf-verification-result=6
    I processMMICameraPdafVerify(), mmi pdaf verification mode: 1
)";
    Session().play(R"(
qz-mmi-camera-pdaf-verification-mode=1|I processMMICameraPdafVerify(), mmi pdaf verification mode: 1
qz-mmi-camera-pdaf-verification-mode=1 qz-dual-camera-pdaf-verification-result=5,6
    I processMMICameraPdafVerify(), mmi pdaf verification mode: 1
)" + sent + R"(
qz-mmi-camera-pdaf-verification-mode=2 qz-dual-camera-pdaf-verification-result=6
    I processMMICameraPdafVerify(), mmi pdaf verification mode: 2
)" + sent + R"(
qz-mmi-camera-pdaf-verification-mode=0|I processMMICameraPdafVerify(), mmi pdaf verification mode: 0
)" + sent);
}

TEST(ResultHandlers, StoreForCommandsAndRequests) {
    Session session;
    EXPECT_THAT(session.stored(), ElementsAre(0, -1, 0, 0));
    session.play("focusVcmValue=-300");
    EXPECT_THAT(session.stored(), ElementsAre(-300, -1, 0, 0));
    session.play("qz-af-mmi-contrast-value=-2147483648");
    EXPECT_THAT(session.stored(), ElementsAre(-300, INT32_MIN, 0, 0));
    session.play("qz-otp-check=510");
    EXPECT_THAT(session.stored(), ElementsAre(-300, INT32_MIN, 254, 0));
    session.play("needLcdCompensate=255,1");
    EXPECT_THAT(session.stored(), ElementsAre(-300, INT32_MIN, 254, 255));
    session.play("focusVcmValue=0 qz-af-mmi-contrast-value=0 qz-otp-check=0 needLcdCompensate=0");
    EXPECT_THAT(session.stored(), ElementsAre(0, 0, 0, 0));
    session.play("focusVcmValue=-1 qz-af-mmi-contrast-value=-1 qz-otp-check=-1");
    EXPECT_THAT(session.stored(), ElementsAre(-1, -1, 255, 0));
    session.play("qz-otp-check=256");
    EXPECT_THAT(session.stored(), ElementsAre(-1, -1, 0, 0));
}

TEST(ResultHandlers, PassOverOtherCountsAndTypes) {
    Session session;
    session.play(R"(
qz-zsl-mode=1,1
target-coordinates-offset=1
target-coordinates-offset=1,2,3
focusVcmValue=1,2
qz-af-mmi-contrast-value=1,2
qz-otp-check=1,2
dualSensorAbnormal=1,2
qz-dual-camera-verification-mode=1,1 qz-dual-camera-verification-result=7,8
qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=7
qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=7,8,9
mmiTestFeatureResult=1,2,3
qz-mmi-camera-pdaf-verification-mode=1,1 qz-dual-camera-pdaf-verification-result=5
qz-low-capture-state=1,2
qz-zsl-mode=i:1 target-coordinates-offset=b:1,2 focusVcmValue=b:1 qz-af-mmi-contrast-value=b:1
qz-dual-camera-verification-mode=i:1 qz-dual-camera-verification-result=7,8 dualSensorAbnormal=b:1
qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=b:7,8 mmiTestFeatureResult=b:1,2,3,4
qz-mmi-camera-pdaf-verification-mode=i:1 qz-dual-camera-pdaf-verification-result=5 qz-low-capture-state=b:1
qz-otp-check=b:1 needLcdCompensate=i:1 lightPaintingExposureTime=b:1 qz-exposure-mode-preview-state=i:1
hintUser=b:1 qz_laser_calibrate_result=b:1 qz-lpd-params=b:1 qz-dark-raider-capture=b:1
qz-af-mmi-contrast-result-value=b:1 oisGryoOffsetCalibResult=b:1 oisHallCalibResult=i:1 oisHallCheckResult=b:1
qz-mmi-camera-pdaf-verification-mode=1 qz-dual-camera-pdaf-verification-result=b:5
    I processMMICameraPdafVerify(), mmi pdaf verification mode: 1
)");
    EXPECT_THAT(session.stored(), ElementsAre(0, -1, 0, 0));
}

TEST(ResultHandlers, ReportAMissingHost) {
    Session session;
    const std::string report = ": mExtCallBackIntf is NULL!\n";
    std::string expected;
    for (const ResultRow& row : kResults) {
        expected += std::string("E ") + row.handler + report;
    }
    session.professional();
    EXPECT_EQ(session.orphan->processQzCallBack(session.host->result), 0);
    EXPECT_EQ(session.trace(), expected);
    EXPECT_THAT(TestPeer::handle(*session.orphan, session.host->result), Each(-22));
    EXPECT_EQ(runHandler(*session.callBack, "processAll", session.host->result), -2);
}

TEST(ResultHandlers, AreSilentAboutUndeclaredTags) {
    Session session;
    session.professional();
    session.trace();
    android::VendorTagDescriptor::clearGlobalVendorTagDescriptor();
    EXPECT_THAT(TestPeer::handle(*session.callBack, session.host->result), Each(0));
    EXPECT_EQ(session.trace(), "");
    EXPECT_THAT(session.host->asked, ElementsAre("android.sensor.exposureTime"));
}

}  // namespace
}  // namespace qz::test
