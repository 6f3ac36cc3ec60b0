// A pass over static capabilities, with all that it asks for, publishes, keeps and says.
#pragma once

#include "capabilities/Entries.h"
#include "support/Device.h"
#include "support/Log.h"

#include <algorithm>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

struct qz::TestPeer {
    // Quick-thumbnail size, slow-JPEG threshold, inserted previews, video callback, its threshold, framework
    // ZSL, video status, pre-shutter, [super-resolution sizes], [sub-sensor sizes].
    static std::string stored(const CCameraQzParam& p) {
        std::ostringstream text;
        text << p.mMaxQuickThumbnailSize << ' ' << p.mSlowJpegModeThreshold << ' ' << p.mInsertPreviewCount
             << ' ' << p.mVideoCallbackSupported << ' ' << int{p.mHighVideoCallbackThreshold} << ' '
             << p.mFwkZslSupported << ' ' << p.mRequireVideoStatus << ' ' << p.mPreShutterSupported << " ["
             << p.mSuperResPicSizes.string() << "] [" << p.mSubPicSizes.string() << "]";
        return text.str();
    }
};

namespace qz::test {

inline constexpr char kNothingStored[] = "0 0 0 0 0 0 0 0 [] []";

inline LogLine debug(const std::string& text) { return {ANDROID_LOG_DEBUG, "CameraQzParam", text}; }
inline LogLine info(const std::string& text) { return {ANDROID_LOG_INFO, "CameraQzParam", text}; }
inline LogLine error(const std::string& text) { return {ANDROID_LOG_ERROR, "CameraQzParam", text}; }
inline LogLine unformatted(const std::string& function) { return error(function + "(), snprintf_s failed!"); }

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

class Publication {
  public:
    explicit Publication(const std::vector<std::string>& tags) : mTags(declarations(tags)) {}

    void has(const std::string& tag, const Elements& elements) {
        host->entries[tagOf(fullName(tag))] = elements;
    }

    // One pass: its log lines, the numbers of source lines left out.
    std::vector<LogLine> run() {
        mLog.take();
        EXPECT_EQ(host->mCameraQzParam->metaDataToParam(), 0);
        std::vector<LogLine> lines = mLog.take("CameraQzParam");
        for (LogLine& line : lines)
            line.text = std::regex_replace(line.text, std::regex("\\(\\d+\\)"), "(#)");
        return lines;
    }

    // The same without the lines of a device that has no capability, and without the key that every pass
    // sets.
    std::vector<LogLine> runAlone() {
        std::vector<LogLine> lines = run();
        for (const char* text : {"Enter getHdcAvailabeJpegSize(#)", "supportedExtScene.count = 0",
                                 "Video smooth af supported = true"}) {
            lines.erase(std::remove(lines.begin(), lines.end(), info(text)), lines.end());
        }
        parameters.remove("qz_video_smooth_af_supported");
        return lines;
    }

    [[nodiscard]] std::string published() const { return parameters.flatten().string(); }
    [[nodiscard]] std::string stored() const { return TestPeer::stored(*host->mCameraQzParam); }

    android::CameraParameters2 parameters;
    android::sp<RecordingHost> host{new RecordingHost(parameters)};

  private:
    static Declarations declarations(const std::vector<std::string>& tags) {
        Declarations all = {{capability("anyOther"), TYPE_BYTE}};
        for (const std::string& tag : tags) {
            if (fullName(tag) != tag) all.emplace_back(fullName(tag), TYPE_BYTE);
        }
        return all;
    }

    VendorTags mTags;
    LogCapture mLog;
};

}  // namespace qz::test
