// SPDX-License-Identifier: Apache-2.0
#include "callback/Session.h"

namespace qz::test {
namespace {

TEST(CameraQzCallBack, NeedsAHostAndATranslator) {
    Session session;
    session.callBack = CreateCameraQzCallBack(session.host.get(), &session.camera.translator());
    EXPECT_EQ(session.trace(), "I CameraQzCallBack()\nI ~CameraQzCallBack()\n");
    const std::string create =
        "E android::sp<CameraQzCallBack> qz::CreateCameraQzCallBack(qz::ExtCallBackInterface *, "
        "qz::CCameraQzParam *)";
    EXPECT_EQ(CreateCameraQzCallBack(nullptr, nullptr), nullptr);
    EXPECT_EQ(session.trace(), create + "(1209): failed, callBackIntf is NULL.\n");
    EXPECT_EQ(CreateCameraQzCallBack(session.host.get(), nullptr), nullptr);
    EXPECT_EQ(session.trace(), create + "(1214): failed, qzParam is NULL.\n");
}

TEST(CameraQzCallBack, SendsMessagesForTheHost) {
    Session session;
    session.host->status = 7;
    EXPECT_EQ(session.callBack->callbackHDCCalibResult(-3), 7);
    EXPECT_EQ(session.trace(), "I callbackHDCCalibResult() hdc calib result: -3 \n> 2000000(-3, 0)\n");
    EXPECT_EQ(session.callBack->callbackFovCalibResult(4), 7);
    EXPECT_EQ(session.trace(), "I callbackFovCalibResult() fov result result: 4 \n> 4000000(4, 0)\n");
    session.callBack->callbackSmartMode(0);
    EXPECT_EQ(session.trace(), "");
    session.callBack->callbackSmartMode(257);
    EXPECT_EQ(session.trace(), "I callbackSmartMode() smart snapshot mode: 257 \n> 100[65656565 01000000]\n");
}

TEST(CameraQzCallBack, TracksNothingWithoutCoordinates) {
    Session session;
    callbackTargetTracking(session.host.get(), nullptr);
    EXPECT_EQ(session.trace(),
              "E void qz::CameraQzCallBack::callbackTargetTracking(int32_t *)(223): targetCoord is NULL.\n");
}

TEST(CameraQzCallBack, ReportsAMissingHostByMessage) {
    Session session;
    session.orphan->callbackSmartMode(5);
    session.orphan->callbackSmartMode(0);
    EXPECT_EQ(
        session.trace(),
        "I callbackSmartMode() smart snapshot mode: 5 \nE callbackSmartMode: mExtCallBackIntf is NULL!\n");
    EXPECT_EQ(session.orphan->callbackHDCCalibResult(1), -22);
    EXPECT_EQ(session.trace(), "E callbackHDCCalibResult: mExtCallBackIntf is NULL!\n");
    EXPECT_EQ(session.orphan->callbackFovCalibResult(1), -22);
    EXPECT_EQ(session.trace(), "E callbackFovCalibResult: mExtCallBackIntf is NULL!\n");
}

}  // namespace
}  // namespace qz::test
