// SPDX-License-Identifier: Apache-2.0
// Capability passes on devices that change.
#include "Device.h"

namespace qz::test {
namespace {

void giveOneOfEach(Device& device) {
    for (const CapabilityRow& row : kCapabilities) {
        for (const EntryRow& entry : row.entries)
            device.host->statics[entry.tag] = elementsOf("bifl"[entry.type], entry.least == 2 ? "1,1" : "1");
    }
}

TEST(CapabilityPass, EmptyDevice) {
    LogCapture log;
    Camera camera;
    camera.adapter->mInfo = nullptr;
    log.take();
    EXPECT_EQ(camera.translator().metaDataToParam(), 0);
    EXPECT_EQ(textOf(log.take(), "CameraQzParam"),
              "I Enter getHdcAvailabeJpegSize(94)\nI supportedExtScene.count = 0\n"
              "I Video smooth af supported = true\n");
    EXPECT_STREQ(camera.parameters.flatten().c_str(), "qz_video_smooth_af_supported=true");
}

// A parameter set refuses a text with '='.
TEST(CapabilityPass, RefusedTextIsLoggedAsNull) {
    const VendorTags tags({{capability("mmiTestFeatureSupported"), TYPE_BYTE}});
    LogCapture log;
    Camera camera;
    const uint8_t text = '=';
    camera.info.update(tagOf(capability("mmiTestFeatureSupported")), &text, 1);
    EXPECT_EQ(runGetter(camera.translator(), "getMmiTestFeatureSupported"), 0);
    EXPECT_EQ(log.take("CameraQzParam").back().text, "mmi test feature supported value = (null)");
}

TEST(CapabilityPass, SecondRun) {
    Device device;
    giveOneOfEach(device);
    device.has("qzSubSensorJpegSize=2,3");
    const TestPeer::Members empty = device.members();
    device.run();
    const std::string flags =
        "mFwkZslSupported: 1 | mHighVideoCallbackThreshold: 1 | mInsertPreviewCount: 1 | "
        "mMaxQuickThumbnailSize: 1 | mPreShutterSupported: 1 | mRequireVideoStatus: 1 | ";
    const std::string sizes = "mSubPicSizes: 3 | mSuperResPicSizes: 3 | mVideoCallbackSupported: 1";
    EXPECT_EQ(changesOf(empty, device.members()), flags + "mSlowJpegModeThreshold: 1 | " + sizes);

    // An empty entry leaves its key and its member unchanged, except the threshold, which is reset first.
    const auto published = device.published();
    device.host->statics.clear();
    device.run();
    EXPECT_EQ(device.published(), published);
    EXPECT_EQ(changesOf(empty, device.members()), flags + sizes);

    // 0 and numbers other than 1 overwrite too. A negative number of previews counts as none.
    for (const char* what :
         {"videoCallbackSupported=2", "qzFwkZslSupported=2", "qzRequireVideoStatus=2",
          "qz-pre-shutter-supported=2", "super_resolution_supported=2", "superResolutionPictureSize=8,6",
          "qzSubSensorJpegSize=7", "qz-quickthumbnail-size=0", "qz-slow-jpeg-mode-threshold=0",
          "qz-insert-preview-count-in-burst=-4", "highVideoCallbackThresholdSupported=0"}) {
        device.has(what);
    }
    device.run();
    EXPECT_EQ(changesOf(empty, device.members()), "mSuperResPicSizes: 3");
    EXPECT_EQ(device.host->published["super-resolution-picture-size-values"], "1x1");

    // When the device no longer declares the tags, nothing changes, not even the threshold.
    giveOneOfEach(device);
    device.run();
    const TestPeer::Members full = device.members();
    android::VendorTagDescriptor::clearGlobalVendorTagDescriptor();
    device.run();
    EXPECT_EQ(changesOf(full, device.members()), "");
}

// Remembers the members' values at the time a key was published.
class KeepingHost : public RecordingHost {
  public:
    void set(const char* key, const char* value) override {
        if (camera != nullptr) kept[key] = TestPeer::members(*camera);
        RecordingHost::set(key, value);
    }
    const CCameraQzParam* camera = nullptr;
    std::map<std::string, TestPeer::Members> kept;
};

TEST(CapabilityPass, OrderOfStoringAndPublishing) {
    Device device;
    giveOneOfEach(device);
    device.has("qzSubSensorJpegSize=2,3");
    const android::sp<KeepingHost> host(new KeepingHost);
    host->statics = device.host->statics;
    const android::sp<CCameraQzParam> camera = CreateCameraQzParam(host.get());
    host->camera = camera.get();
    camera->metaDataToParam();
    EXPECT_EQ(host->kept["super-resolution-picture-size-values"]["mSuperResPicSizes"], 0);
    EXPECT_EQ(host->kept["high-video-callback-threshold-supported"]["mHighVideoCallbackThreshold"], 0);
    EXPECT_EQ(host->kept["qz-framework-zsl-supported"]["mFwkZslSupported"], 1);
    EXPECT_EQ(host->kept["sub-picture-size-values"]["mSubPicSizes"], 3);
}

}  // namespace
}  // namespace qz::test
