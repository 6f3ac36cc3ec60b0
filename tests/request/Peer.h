// The way to the translator's setters and to the state that they leave, and the table of those setters.
#pragma once

#include "CCameraQzParam.h"

#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace qz {

namespace test {

// A text that an application may set, and the elements that the request then holds: none where nothing is
// written. Doubles hold the elements of every type exactly.
struct Word {
    constexpr Word() = default;
    constexpr Word(const char* word, std::initializer_list<double> values)
        : text(word), count(values.size()) {
        double* to = elements;
        for (const double value : values) *to++ = value;
    }
    std::vector<double> values() const { return {elements, elements + count}; }

    const char* text = nullptr;
    size_t count = 0;
    double elements[8] = {};
};

// How a text becomes an entry. The last word is the one that no vocabulary knows, or a number that shows
// whether a text prints it signed.
struct Words {
    int type;
    Word words[5];
};

// A setter of one key and one tag. The texts are as the setter has them: its name, then the key's text for
// %s, the elements for the numbers, and the status for the last number of a failure.
struct Row {
    const char* name;
    status_t (CCameraQzParam::*setter)(android::CameraMetadata*);
    const char* key = nullptr;  // null for a setter that follows no pattern: it has a test of its own
    const char* tag = nullptr;
    Words words = {};
    const char* failure = nullptr;
    const char* info = nullptr;
};

}  // namespace test

struct TestPeer {
    static const test::Row kRows[];
    static std::vector<test::Row> rows();

    static status_t call(CCameraQzParam& translator, const std::string& setter,
                         android::CameraMetadata* request) {
        for (const test::Row& row : rows()) {
            if (setter == row.name) return (translator.*row.setter)(request);
        }
        return INT32_MIN;
    }

    // What setters store.
    static std::map<std::string, int> state(const CCameraQzParam& of) {
        return {{"mBurstCapture", of.mBurstCapture},
                {"mImagePostProcess", of.mImagePostProcess},
                {"mAllFocusMode", of.mAllFocusMode},
                {"mProfessionalMode", of.mProfessionalMode.get()},
                {"mLightPaintingMode", of.mLightPaintingMode},
                {"mVideoFps", of.mVideoFps},
                {"mSensorExposureTime", of.mSensorExposureTime},
                {"mIsQzCamera", of.mIsQzCamera},
                {"mPanorama2DMode", of.mPanorama2DMode}};
    }

    // What others store there, in the order of declaration; the lengths of texts.
    static std::vector<int64_t> foreignState(const CCameraQzParam& of) {
        const auto length = [](const auto& text) { return static_cast<int64_t>(text.size()); };
        return {length(of.mSuperResPicSizes),
                length(of.mSubPicSizes),
                of.mLcdCompensate.get(),
                of.mOtpTestResult.get(),
                of.mFocusVcmValue.get(),
                of.mFocusContrastValue.get(),
                of.mInsertPreviewCount,
                of.mVideoCallbackSupported,
                of.mHighVideoCallbackThreshold,
                of.mCallBackFlag,
                of.mFwkZslSupported,
                of.mRequireVideoStatus,
                of.mRecording,
                of.mPreShutterSupported,
                of.mPreShutterDone,
                of.mMaxQuickThumbnailSize,
                of.mSlowJpegModeThreshold,
                length(of.mClientName)};
    }

    static void setLightPainting(CCameraQzParam& in, uint8_t mode) { in.mLightPaintingMode = mode; }
    static void setQzCamera(CCameraQzParam& in, bool is) { in.mIsQzCamera = is; }
};

}  // namespace qz
