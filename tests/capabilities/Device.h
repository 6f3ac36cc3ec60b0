// A pass over static capabilities, with all that it asks for, publishes, keeps and says.
#pragma once

#include "capabilities/Capabilities.h"
#include "capabilities/CapabilityPass.h"
#include "support/Device.h"
#include "support/Entries.h"

#include <gmock/gmock.h>

#include <map>
#include <regex>

namespace qz {

struct TestPeer {
    // Quick-thumbnail size, slow-JPEG threshold, inserted previews, video callback, its threshold, framework
    // ZSL, video status, pre-shutter, [super-resolution sizes], [sub-sensor sizes].
    static std::string stored(const CCameraQzParam& p) {
        std::ostringstream text;
        text << p.mMaxQuickThumbnailSize << ' ' << p.mSlowJpegModeThreshold << ' ' << p.mInsertPreviewCount
             << ' ' << p.mVideoCallbackSupported << ' ' << int{p.mHighVideoCallbackThreshold} << ' '
             << p.mFwkZslSupported << ' ' << p.mRequireVideoStatus << ' ' << p.mPreShutterSupported << " ["
             << p.mSuperResPicSizes.c_str() << "] [" << p.mSubPicSizes.c_str() << "]";
        return text.str();
    }

    // What each of the first `count` getters returns.
    static std::vector<int32_t> statuses(CCameraQzParam& p, size_t count) {
        std::vector<int32_t> all;
        for (size_t i = 0; i < count; ++i) all.push_back(runGetter(p, kCapabilities[i].getter));
        return all;
    }
};

namespace test {

inline constexpr char kNothingStored[] = "0 0 0 0 0 0 0 0 [] []";
inline constexpr char kAlways[] = "qz_video_smooth_af_supported=true";  // of any device

inline std::string fullName(const std::string& tag) {
    return tag.rfind("android.", 0) == 0 ? tag : capability(tag);
}

// The adapter, with static entries of the test's own and a record of what passes through.
class RecordingHost : public QzParametersEx {
  public:
    explicit RecordingHost(android::CameraParameters2& parameters) : QzParametersEx(parameters, 0) {}

    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                           bool required) override {
        std::ostringstream event;
        event << get_camera_metadata_section_name(tag) << '.' << get_camera_metadata_tag_name(tag) << ' '
              << minCount << ' ' << maxCount << ' ' << required;
        events.push_back(event.str());
        return entryOf(tag, entries[tag]);
    }
    void set(const char* key, const char* value) override {
        events.push_back(std::string(key) + '=' + value);
        storedWhenSet[key] = TestPeer::stored(*mCameraQzParam);
        QzParametersEx::set(key, value);
    }
    const char* get(const char* key) override {
        return answer != nullptr ? answer : QzParametersEx::get(key);
    }

    std::map<uint32_t, Elements> entries;
    const char* answer = nullptr;  // to every get, when there is one
    std::vector<std::string> events;
    std::map<std::string, std::string> storedWhenSet;
};

class Device {
    LogCapture mLog;  // around the host's life
    VendorTags mTags;

  public:
    explicit Device(const std::vector<std::string>& tags) : mTags(declarations(tags)) {}

    void has(const std::string& tag, const Elements& elements) {
        host->entries[tagOf(fullName(tag))] = elements;
    }

    // The log of one pass, "#" for source lines.
    std::string publish() {
        mLog.take();
        EXPECT_EQ(host->mCameraQzParam->metaDataToParam(), 0);
        return std::regex_replace(textOf(mLog.take(), "CameraQzParam"), std::regex(R"(\(\d+\))"), "(#)");
    }
    // Without what any device says and publishes.
    std::string publishAlone() {
        const std::regex always(
            "I (Enter .*|supportedExtScene.count = 0|Video smooth af supported = true)\n");
        std::string log = std::regex_replace(publish(), always, "");
        parameters.remove("qz_video_smooth_af_supported");
        return log;
    }

    [[nodiscard]] std::string published() const { return parameters.flatten().c_str(); }
    [[nodiscard]] std::string stored() const { return TestPeer::stored(*host->mCameraQzParam); }

    android::CameraParameters2 parameters;
    android::sp<RecordingHost> host{new RecordingHost(parameters)};

  private:
    static Declarations declarations(const std::vector<std::string>& tags) {
        Declarations all = {{capability("anyOther"), TYPE_BYTE}};
        for (const std::string& tag : tags) all.emplace_back(capability(tag), TYPE_BYTE);
        return all;
    }
};

}  // namespace test
}  // namespace qz
