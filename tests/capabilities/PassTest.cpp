#include "capabilities/Device.h"
#include "capabilities/Getters.h"

namespace qz::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;

// Every getter has what it publishes with, or as much of another type.
struct FullDevice : Device {
    explicit FullDevice(bool rightTypes = true) : Device(everyTag()) {
        for (const Getter& getter : getters()) {
            if (getter.kind == '-') continue;
            std::string elements = getter.kind == 't' ? "65" : "1";
            if (getter.kind == 'r' || getter.kind == 's') elements = "1,1";
            const char otherType = getter.type() == 'b' ? 'i' : 'b';
            has(getter.tag, elementsOf(rightTypes ? getter.type() : otherType, elements));
        }
    }
    static std::vector<std::string> everyTag() {
        std::vector<std::string> tags;
        for (const Getter& getter : getters()) tags.push_back(getter.tag);
        return tags;
    }
};

TEST(CapabilityPass, AsksAndPublishesInOrder) {
    FullDevice device;
    device.parameters.set("scene-mode-values", "auto");
    device.publish();
    std::vector<std::string> expected;
    for (const Getter& getter : getters()) {
        if (getter.kind != '-') expected.push_back(fullName(getter.tag) + ' ' + getter.minimum + " 0 1");
        for (const std::string& parameter : split(getter.publishes, ';')) {
            expected.push_back(parameter + (getter.isFlag() ? "=true" : ""));
        }
    }
    EXPECT_THAT(device.host->events, ElementsAreArray(expected));
}

TEST(CapabilityPass, CountsWhatItCannotUse) {
    FullDevice device(false);
    const auto publishesNothing = [&device](size_t elementsInRanges) {
        std::string log;
        for (const Getter& getter : getters()) {
            if (getter.tag == "qzHdcAvailableJpegSize") log += "I Enter getHdcAvailabeJpegSize(#)\n";
            log += getter.kind == '-' ? getter.echoLine("true")
                                      : getter.countLine(getter.kind == 'r' ? elementsInRanges : 0);
        }
        EXPECT_EQ(device.publish(), log);
        EXPECT_EQ(device.published(), kAlways);
        EXPECT_EQ(device.stored(), kNothingStored);
    };
    publishesNothing(0);
    device.host->entries.clear();
    publishesNothing(0);
    for (const size_t count : {size_t{1}, size_t{3}}) {
        for (const Getter& getter : getters()) {
            if (getter.kind == 'r') device.has(getter.tag, I(count, 1));
        }
        publishesNothing(count);
    }
}

TEST(CapabilityPass, NeverHearsOfAFailure) {
    const std::vector<int32_t> zeros(getters().size() - 1, 0);  // super resolution and its sizes share one
    const auto hearsOfNone = [&zeros](Device&& device) {
        CCameraQzParam& translator = *device.host->mCameraQzParam;
        EXPECT_EQ(TestPeer::statuses(translator, zeros.size()), zeros);
        device.parameters.set("scene-mode-values", "auto,");
        device.has("superResolutionPictureSize", I{});
        EXPECT_EQ(TestPeer::statuses(translator, zeros.size()), zeros);
        device.has("super_resolution_supported", B{2});
        EXPECT_EQ(TestPeer::statuses(translator, zeros.size()), zeros);
        device.host->entries.clear();
        EXPECT_EQ(TestPeer::statuses(translator, zeros.size()), zeros);
    };
    // One after the other: a process has one set of vendor tags.
    hearsOfNone(FullDevice());
    hearsOfNone(FullDevice(false));
    hearsOfNone(Device({}));
}

TEST(CapabilityPass, HasOneKeyForADeviceThatSaysNothing) {
    Device undeclared({});
    EXPECT_EQ(undeclared.publish(),
              "I Enter getHdcAvailabeJpegSize(#)\nI supportedExtScene.count = 0\nI Video smooth af supported "
              "= true\n");
    EXPECT_EQ(undeclared.published(), kAlways);
    EXPECT_THAT(undeclared.host->events, ElementsAre("android.control.availableSceneModes 0 0 1", kAlways));
    Camera camera;
    camera.adapter->mInfo = nullptr;
    EXPECT_EQ(camera.translator().metaDataToParam(), 0);
    EXPECT_STREQ(camera.parameters.flatten().c_str(), kAlways);
}

TEST(CapabilityPass, EchoesWhatTheApplicationReads) {
    FullDevice device;
    device.host->answer = "as read";
    const std::string log = device.publish();
    for (const Getter& getter : getters()) EXPECT_THAT(log, HasSubstr(getter.echoLine("as read")));
}

TEST(CapabilityPass, PublishesFlagsByTheirFirstByte) {
    for (const B& bytes : {B{0}, B{1}, B{2}, B{0, 1, 1}, B{255, 0}}) {
        const std::string value = bytes[0] != 0 ? "true" : "false";
        for (const Getter& getter : getters()) {
            if (!getter.isFlag()) continue;
            Device device({getter.tag});
            device.has(getter.tag, bytes);
            const bool tooMany = getter.kind == 'O' && bytes.size() > 1;
            EXPECT_EQ(device.publishAlone(),
                      tooMany ? getter.countLine(bytes.size()) : getter.echoLine(value));
            EXPECT_EQ(device.published(), tooMany ? "" : getter.publishes + '=' + value);
        }
    }
}

TEST(CapabilityPass, RunsAgainOverAChangedDevice) {
    FullDevice device;
    device.has("qzSubSensorJpegSize", I{2, 3});
    device.publishAlone();
    EXPECT_EQ(device.stored(), "1 1 1 1 1 1 1 1 [1x1] [2x3]");

    // What is empty keeps its key and its member, all but the threshold, which is reset first.
    const std::string published = device.published();
    device.host->entries.clear();
    device.publishAlone();
    EXPECT_EQ(device.published(), published);
    EXPECT_EQ(device.stored(), "1 0 1 1 1 1 1 1 [1x1] [2x3]");

    for (const char* tag :
         {"videoCallbackSupported", "highVideoCallbackThresholdSupported", "qzFwkZslSupported",
          "qzRequireVideoStatus", "qz-pre-shutter-supported", "super_resolution_supported"}) {
        device.has(tag, B{2});
    }
    device.has("superResolutionPictureSize", I{8, 6});
    device.has("qzSubSensorJpegSize", I{7});
    device.publish();
    EXPECT_EQ(device.stored(), "1 0 1 0 2 0 0 0 [1x1] []");
    EXPECT_STREQ(device.parameters.get("sub-picture-size-values"), "");
    EXPECT_STREQ(device.parameters.get("super-resolution-picture-size-values"), "1x1");

    // 0 overwrites, too; a negative number of previews is none.
    device.has("qz-quickthumbnail-size", I{0});
    device.has("qz-slow-jpeg-mode-threshold", L{0});
    device.has("qz-insert-preview-count-in-burst", I{-4});
    device.has("highVideoCallbackThresholdSupported", B{0});
    device.publish();
    EXPECT_EQ(device.stored(), "0 0 0 0 0 0 0 0 [1x1] []");
    device.has("qz-quickthumbnail-size", I{-1});
    device.has("qz-slow-jpeg-mode-threshold", L{-1});
    device.publish();
    EXPECT_EQ(device.stored(), "-1 -1 0 0 0 0 0 0 [1x1] []");
}

TEST(CapabilityPass, StoresBeforeOrAfterItPublishes) {
    FullDevice device;
    device.has("qzSubSensorJpegSize", I{2, 3});
    device.publish();
    const auto storedAt = [&device](const char* key) { return device.host->storedWhenSet.at(key); };
    EXPECT_EQ(storedAt("super-resolution-picture-size-values"), "1 1 0 0 0 0 0 0 [] []");
    EXPECT_EQ(storedAt("high-video-callback-threshold-supported"), "1 1 0 1 0 0 0 0 [1x1] []");
    EXPECT_EQ(storedAt("qz-framework-zsl-supported"), "1 1 1 1 1 1 0 0 [1x1] []");
    EXPECT_EQ(storedAt("sub-picture-size-values"), "1 1 1 1 1 1 1 1 [1x1] [2x3]");

    // Nothing is touched, the threshold neither, once the device no longer declares it.
    android::VendorTagDescriptor::clearGlobalVendorTagDescriptor();
    device.publish();
    EXPECT_EQ(device.stored(), "1 1 1 1 1 1 1 1 [1x1] [2x3]");
}

}  // namespace
}  // namespace qz::test
