// SPDX-License-Identifier: Apache-2.0
#include "callback/Session.h"

namespace qz::test {
namespace {

TEST(ResultHandlers, SendChangedValues) {
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

// The initial values of the members, 0 and -1, are sent like any other value.
TEST(ResultHandlers, SendZeroOnce) {
    Session().play(R"(
target-coordinates-offset=3,4|> 10000(3, 4)
target-coordinates-offset=0,4|> 10000(0, 4)
target-coordinates-offset=0,0|> 10000(0, 0)
target-coordinates-offset=0,0
target-coordinates-offset=-1,0|> 10000(-1, 0)
mmiTestFeatureResult=9,1,2,3
    I processMMIFeatureTest(), send result: 9 mode: 1 index: 2 request: 3|> 20000000(9, 3)
mmiTestFeatureResult=9,-1,-1,-1
    I processMMIFeatureTest(), send result: 9 mode: -1 index: -1 request: -1|> 20000000(9, -1)
mmiTestFeatureResult=9,-1,-1,-1
qz-low-capture-state=7|I processLowCapState(), low capture state: 7
qz-low-capture-state=-1|I processLowCapState(), low capture state: -1
qz-low-capture-state=-1
qz-low-capture-state=-7|I processLowCapState(), low capture state: -7
qz-af-mmi-contrast-result-value=7,8
    I processMmiFocusTest(), MMI focus value[0]: 7|I processMmiFocusTest(), MMI focus value[1]: 8
    > 10000000[07000000 08000000]
qz-af-mmi-contrast-result-value=7,-1
    I processMmiFocusTest(), MMI focus value[0]: 7|I processMmiFocusTest(), MMI focus value[1]: -1
    > 10000000[07000000 ffffffff]
qz-af-mmi-contrast-result-value=7,-1
dualSensorAbnormal=-5|> 80000(-5, 0)
)");
}

TEST(ResultHandlers, SendWithEveryResult) {
    const std::string table = R"(
hintUser=5,6|I callbackSmartMode() smart snapshot mode: 5 |> 100[65656565 05000000]
hintUser=256|I callbackSmartMode() smart snapshot mode: 256 |> 100[65656565 00000000]
hintUser=-254|I callbackSmartMode() smart snapshot mode: -254 |> 100[65656565 02000000]
hintUser=0,6
lightPaintingExposureTime=0,1|I processExposureMesure(), set exposure time to APP: 0 s|> 100000(0, 0)
qz-lpd-params=0|> 80000000[00000000]
qz-lpd-params=1,-2,305419896|> 80000000[01000000 feffffff 78563412]
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
        EXPECT_EQ(session.members()["mDualVerifyActive"], active);
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

TEST(ResultHandlers, PdafVerificationIsSentOncePerMode) {
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
    const TestPeer::Members before = session.members();
    const auto expectKept = [&](const std::string& result, const std::string& kept) {
        session.play(result);
        EXPECT_EQ(changesOf(before, session.members()), kept);
    };
    expectKept(
        "qz-af-mmi-contrast-value=-2147483648 focusVcmValue=-300 qz-otp-check=510 needLcdCompensate=255,1",
        "translator's mFocusContrastValue: -2147483648 | translator's mFocusVcmValue: -300 | "
        "translator's mLcdCompensate: 255 | translator's mOtpTestResult: 254");
    expectKept("qz-af-mmi-contrast-value=-1 focusVcmValue=-1 qz-otp-check=-1 needLcdCompensate=0",
               "translator's mFocusVcmValue: -1 | translator's mOtpTestResult: 255");
    expectKept("focusVcmValue=0 qz-otp-check=256", "");
}

// Tests the second entry. The tests of the rows cover the first one.
TEST(ResultHandlers, IgnoreOtherCountsAndTypes) {
    const std::string mode = "|I processMMICameraPdafVerify(), mmi pdaf verification mode: 1\n";
    Session().play(R"(
qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=7
qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=7,8,9
qz-dual-camera-verification-mode=1 qz-dual-camera-verification-result=b:7,8
qz-mmi-camera-pdaf-verification-mode=1 qz-dual-camera-pdaf-verification-result=b:5)" +
                   mode);
}

}  // namespace
}  // namespace qz::test
