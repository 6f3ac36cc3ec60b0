// SPDX-License-Identifier: Apache-2.0
#include "CameraQzSendCmd.h"

#include "support/Device.h"
#include "support/Log.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <atomic>
#include <functional>
#include <thread>

namespace {
std::vector<useconds_t> sSleeps;
std::function<void()> sDuringSleep;
}  // namespace

// Records the library's pauses in a list instead of waiting.
extern "C" int usleep(useconds_t microseconds) {
    sSleeps.push_back(microseconds);
    if (sDuringSleep) sDuringSleep();
    return 0;
}

namespace qz {

// Sets the values that results leave in the translator.
struct TestPeer {
    static void setFocusVcmValue(CCameraQzParam& p, int32_t value) { p.mFocusVcmValue.set(value); }
    static void setContrast(CCameraQzParam& p, uint32_t value) {
        p.mFocusContrastValue.set(static_cast<int32_t>(value));
    }
};

namespace test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CameraQzSendCmdTest : public testing::Test {
  protected:
    CameraQzSendCmdTest() { mLog.take(); }
    ~CameraQzSendCmdTest() override {
        sSleeps.clear();
        sDuringSleep = nullptr;
    }

    LogCapture mLog;
    Camera mCamera;
    android::sp<CameraQzSendCmd> mCommands = CreateCameraQzSendCmd(&mCamera.translator());
};

LogLine line(int priority, const std::string& text) { return {priority, "CameraQzSendCmd", text}; }

TEST_F(CameraQzSendCmdTest, Lifetime) {
    EXPECT_EQ(CreateCameraQzSendCmd(nullptr), nullptr);
    mCommands = CreateCameraQzSendCmd(&mCamera.translator());
    EXPECT_THAT(mLog.take(), ElementsAre(line(ANDROID_LOG_ERROR,
                                              "android::sp<CameraQzSendCmd> qz::CreateCameraQzSendCmd("
                                              "qz::CCameraQzParam *)(84) failed, qzParam is NULL."),
                                         line(ANDROID_LOG_INFO, "CameraQzSendCmd()"),
                                         line(ANDROID_LOG_INFO, "~CameraQzSendCmd()")));
}

TEST_F(CameraQzSendCmdTest, AnswersAtOnce) {
    EXPECT_EQ(mCommands->sendCommand(202, 3, 4), 0);
    for (const int32_t position : {345, -7, INT32_MIN}) {
        TestPeer::setFocusVcmValue(mCamera.translator(), position);
        EXPECT_EQ(mCommands->sendCommand(202, 3, 4), position);
    }
    EXPECT_THAT(mLog.take(), IsEmpty());
    for (const int32_t command : {7, 0, 201, 204}) {
        EXPECT_EQ(mCommands->sendCommand(command, 1, -2), -22);
        const std::string text = "sendCommand: Unknown command " + std::to_string(command);
        EXPECT_THAT(mLog.take(), ElementsAre(line(ANDROID_LOG_ERROR, text + " (arguments 1, -2)")));
    }
    EXPECT_THAT(sSleeps, IsEmpty());
}

TEST_F(CameraQzSendCmdTest, EachContrastIsReturnedOnce) {
    const struct {
        uint32_t contrast;
        status_t answer;
        std::string text;
    } rows[] = {{0xFFFFFFFF, -1, ""},  // none yet
                {0x00000123, -1, ""},  // the counter that it starts from
                {0x40000123, 0x123, "0 FocusContrastValue 40000123"},
                {0x40000456, -1, ""},
                {0xC0000010, 0x10, "1 FocusContrastValue c0000010"},
                {0xBFFFFFFF, 0x3FFFFFFF, "-1 FocusContrastValue bfffffff"},
                {0x00000000, 0, "-2 FocusContrastValue 0"},
                {0x00000007, -1, ""},
                {0xFFFFFFFF, -1, ""}};  // a new counter, but still no value
    for (const auto& row : rows) {
        TestPeer::setContrast(mCamera.translator(), row.contrast);
        EXPECT_EQ(mCommands->sendCommand(203, 1, 2), row.answer) << row.contrast;
        EXPECT_EQ(sSleeps, std::vector<useconds_t>(row.text.empty() ? 100 : 0, 30000));
        const LogLine fresh =
            line(ANDROID_LOG_DEBUG,
                 "android::status_t qz::CameraQzSendCmd::commandGetFocusContrastValue() count " + row.text);
        EXPECT_EQ(mLog.take(), row.text.empty() ? std::vector<LogLine>{} : std::vector{fresh});
        sSleeps.clear();
    }
}

TEST_F(CameraQzSendCmdTest, ReadsAfterEachPause) {
    for (const auto& [pause, answer] : {std::pair<size_t, status_t>{1, 5}, {99, 5}, {100, -1}}) {
        mCommands = CreateCameraQzSendCmd(&mCamera.translator());
        TestPeer::setContrast(mCamera.translator(), 0xFFFFFFFF);
        sSleeps.clear();
        sDuringSleep = [this, last = pause] {
            if (sSleeps.size() == last) TestPeer::setContrast(mCamera.translator(), 0x40000005);
        };
        EXPECT_EQ(mCommands->sendCommand(203, 0, 0), answer) << pause;
        EXPECT_EQ(sSleeps.size(), pause);
    }
}

// The contrast contains its counter, so that a half-written or old number is detected.
TEST_F(CameraQzSendCmdTest, ReadsWhileResultsArrive) {
    std::atomic<bool> enough{false};
    std::thread resultThread([&] {
        for (uint32_t i = 1; !enough; ++i) TestPeer::setContrast(mCamera.translator(), (i << 30) | i);
    });
    sDuringSleep = [] { std::this_thread::yield(); };
    for (uint32_t last = 0, answers = 0; answers < 50;) {
        const status_t answer = mCommands->sendCommand(203, 0, 0);
        if (answer == -1) continue;
        const auto number = static_cast<uint32_t>(answer);
        EXPECT_GT(number, last);
        EXPECT_NE(number % 4, last % 4);
        last = number;
        ++answers;
    }
    enough = true;
    resultThread.join();
}

}  // namespace
}  // namespace test
}  // namespace qz
