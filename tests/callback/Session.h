// Capture results played to the processor, and what the application is told of them.
#pragma once

#include "CameraQzCallBack.h"
#include "callback/ResultPass.h"
#include "callback/ResultSteps.h"
#include "callback/Results.h"
#include "support/Device.h"
#include "support/Entries.h"

#include <gmock/gmock.h>

#include <iomanip>
#include <map>

namespace qz {

struct TestPeer {
    static CameraQzCallBack* make(ExtCallBackInterface* host, CCameraQzParam* translator) {
        return new CameraQzCallBack(host, translator);
    }
    static void setProfessional(CCameraQzParam& p, bool on) { p.mProfessionalMode.set(on); }
    // Focus motor, focus contrast, OTP result, LCD compensation.
    static std::vector<int> stored(const CCameraQzParam& p) {
        return {p.mFocusVcmValue.get(), p.mFocusContrastValue.get(), p.mOtpTestResult.get(),
                p.mLcdCompensate.get()};
    }
    static int dualVerifyActive(const CameraQzCallBack& c) { return c.mDualVerifyActive; }

    // Every handler, in order.
    static std::vector<int> handle(CameraQzCallBack& c, const android::CameraMetadata& result) {
        std::vector<int> statuses;
        for (const ResultRow& row : kResults) statuses.push_back(runHandler(c, row.handler, result));
        return statuses;
    }
};

namespace test {

// In the order in which the handlers ask for them, with their element types.
inline constexpr char kTags[] =
    "qz-zsl-mode:b target-coordinates-offset:i focusVcmValue:i qz-af-mmi-contrast-value:i qz-otp-check:i "
    "dualSensorAbnormal:i qz-dual-camera-verification-mode:b qz-dual-camera-verification-result:i "
    "mmiTestFeatureResult:i qz-mmi-camera-pdaf-verification-mode:b qz-dual-camera-pdaf-verification-result:i "
    "hintUser:i qz-low-capture-state:i needLcdCompensate:b lightPaintingExposureTime:i "
    "qz-exposure-mode-preview-state:b exposureTime:l isoState:i exposureStateHint:i qz_algo_mean_y:i "
    "qz_laser_calibrate_result:i qz-lpd-params:i qz-dark-raider-capture:i qz-af-mmi-contrast-result-value:i "
    "oisGryoOffsetCalibResult:i oisHallCalibResult:b oisHallCheckResult:i";

// "100[65656565 05000000]": a message and the bytes of its block.
inline std::string block(uint32_t type, const B& bytes) {
    std::ostringstream text;
    text << std::hex << type << '[' << std::setfill('0');
    for (size_t i = 0; i < bytes.size(); ++i)
        text << (i > 0 && i % 4 == 0 ? " " : "") << std::setw(2) << int{bytes[i]};
    return text.str() + ']';
}

// Hands out entries of its own, the results themselves being empty, and logs each message.
class Host : public ExtCallBackInterface {
  public:
    status_t notifyCallback(int32_t msgType, int32_t ext1, int32_t ext2) override {
        std::ostringstream text;
        text << std::hex << msgType << std::dec << '(' << ext1 << ", " << ext2 << ')';
        return show(text.str());
    }
    status_t dataCallback(int32_t msgType, const void* data, uint32_t size) override {
        const auto* const bytes = static_cast<const uint8_t*>(data);
        return show(block(static_cast<uint32_t>(msgType), B(bytes, bytes + size)));
    }
    camera_metadata_ro_entry findResultEntry(const android::CameraMetadata& from, uint32_t tag) override {
        EXPECT_EQ(&from, &result);
        const std::string name(get_camera_metadata_tag_name(tag));
        asked.push_back(std::string(get_camera_metadata_section_name(tag)) + '.' + name);
        return entryOf(tag, entries[name]);
    }

    const android::CameraMetadata result{};
    std::map<std::string, Elements> entries;
    std::vector<std::string> asked;
    status_t status = 0;

  private:
    status_t show(const std::string& message) const {
        __android_log_write(ANDROID_LOG_INFO, "Host", message.c_str());
        return status;
    }
};

// A camera whose device declares all tags of results but one.
class Session {
    LogCapture mLog;
    VendorTags mTags;

  public:
    explicit Session(const std::string& undeclared = "") : mTags(declarations(undeclared)) { trace(); }

    // Lines logged and messages sent since.
    std::string trace() { return textOf(mLog.take(), "CameraQzCallBack", "Host"); }

    // Each row is a result, "tag=elements tag=elements" or with another type "tag=b:elements", and its trace.
    void play(const std::string& table) {
        for (const std::vector<std::string>& row : rowsOf(table)) {
            host->entries = entriesOf(row[0]);
            EXPECT_THAT(TestPeer::handle(*callBack, host->result), testing::Each(0)) << row[0];
            std::string expected;
            for (size_t i = 1; i < row.size(); ++i) expected += row[i] + '\n';
            EXPECT_EQ(trace(), expected) << row[0];
        }
    }
    [[nodiscard]] std::vector<int> stored() { return TestPeer::stored(camera.translator()); }
    void professional() { TestPeer::setProfessional(camera.translator(), true); }

    Camera camera;
    android::sp<Host> host{new Host};
    android::sp<CameraQzCallBack> callBack{CreateCameraQzCallBack(host.get(), &camera.translator())};
    android::sp<CameraQzCallBack> orphan{TestPeer::make(nullptr, &camera.translator())};

  private:
    static Declarations declarations(const std::string& undeclared) {
        Declarations all;
        for (const std::string& tag : split(kTags, ' ')) {
            const std::string name = split(tag, ':')[0];
            if (name != undeclared) all.emplace_back(capture(name), TYPE_BYTE);
        }
        return all;
    }
    static std::map<std::string, Elements> entriesOf(const std::string& text) {
        std::map<std::string, Elements> entries;
        for (const std::string& entry : split(text, ' ')) {
            std::vector<std::string> sides = split(entry, '=');
            sides.resize(2);
            char type = kTags[std::string(kTags).find(sides[0] + ':') + sides[0].size() + 1];
            if (sides[1].find(':') == 1) {
                type = sides[1][0];
                sides[1].erase(0, 2);
            }
            entries[sides[0]] = elementsOf(type, sides[1]);
        }
        return entries;
    }
};

}  // namespace test
}  // namespace qz
