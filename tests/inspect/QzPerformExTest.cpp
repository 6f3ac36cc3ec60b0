// SPDX-License-Identifier: Apache-2.0
#include "QzPerformEx.h"

#include "support/Device.h"
#include "support/Log.h"

#include <android-base/properties.h>
#include <cutils/properties.h>
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <sstream>

namespace {
std::vector<std::string> sPropertiesRead;
}  // namespace

// The properties of the process, and the names that were read.
extern "C" int property_get(const char* key, char* value, const char* fallback) {
    sPropertiesRead.emplace_back(strrchr(key, '.') + 1);
    return snprintf(value, PROPERTY_VALUE_MAX, "%s", android::base::GetProperty(key, fallback).c_str());
}

namespace qz {

struct TestPeer {
    static constexpr auto getTagInfo = &QzPerformEx::getTagInfo;
    static constexpr auto getStaticInfo = &QzPerformEx::getStaticInfo;
};

namespace test {
namespace {

using android::CameraMetadata;

class QzPerformExTest : public testing::Test {
  protected:
    ~QzPerformExTest() override {
        for (const char* property : {"captag", "ctrltag", "stattag"}) choose(property, "");
        setLevel("");
    }

    static void choose(const std::string& property, const std::string& value) {
        property_set(("camera.qzperformex." + property).c_str(), value.c_str());
    }
    void setLevel(const std::string& level) {
        choose("loglevel", level);
        android::List<const CameraMetadata> none;
        mInspector->checkRequest(none, false);
        mLog.take();
    }
    void setInfo(uint32_t tag, const std::vector<int32_t>& values) {
        mMetadata.update(tag, values.data(), values.size());
        mInspector->setInfo(&mMetadata);
        mLog.take();
    }
    // Returns the log: priority and text of each line, with "this" for the inspector's address.
    std::string printed() {
        std::string all;
        for (const LogLine& line : mLog.take("QzPerformEx")) {
            all += std::to_string(line.priority) + " " + line.text + "\n";
            const size_t at = all.find(mAddress);
            if (at != std::string::npos) all.replace(at, mAddress.size(), "this");
        }
        return all;
    }
    std::string skipRound(int32_t width, int32_t height, int32_t format = 0x21) {
        const bool skipped = mInspector->skipRoundBuffer(width, height, format);
        return (skipped ? "skipped\n" : "kept\n") + printed();
    }

    LogCapture mLog;
    CameraMetadata mMetadata;
    android::sp<QzPerformEx> mInspector = new QzPerformEx(3);
    const std::string mAddress = testing::PrintToString(static_cast<void*>(mInspector.get()));
    const Declarations mLists{{capability("qzSubSensorJpegSize"), TYPE_INT32},
                              {capability("superResolutionPictureSize"), TYPE_INT32}};
};

// Returns the lines of a script that a level shows. Each line begins with its lowest level.
std::string atLevel(char level, const std::string& script) {
    std::istringstream lines(script);
    std::string shown;
    for (std::string line; std::getline(lines, line);) {
        if (line[0] <= level) shown += line.substr(2) + "\n";
    }
    return shown;
}

TEST_F(QzPerformExTest, LogsCreationAndDestruction) {
    EXPECT_EQ(printed(), "4 QzPerformEx(this), camera 3.\n");
    mInspector->setInfo(nullptr);
    EXPECT_EQ(printed(), "4 setInfo(this)\n");
    mInspector.clear();
    EXPECT_EQ(printed(), "4 ~QzPerformEx(this), camera 3.\n");
    mInspector = new QzPerformEx(4);
}

TEST_F(QzPerformExTest, Levels) {
    const VendorTags tags({{"vendor.first", TYPE_BYTE}, {"vendor.second", TYPE_INT32}});
    const uint8_t bytes[] = {7, 200};
    const int32_t number = -5;
    mMetadata.update(0x80000001, &number, 1);
    mMetadata.update(0x80000000, bytes, 2);
    android::List<const CameraMetadata> requests;
    requests.push_back(mMetadata);
    requests.push_back(CameraMetadata());
    const android::sp<android::CaptureResult> result = new android::CaptureResult;
    result->mMetadata = mMetadata;
    android::CaptureResultExtras& extras = result->mResultExtras;
    extras.requestId = 11;
    extras.burstId = 12;
    extras.afTriggerId = 13;
    extras.precaptureTriggerId = 14;
    extras.frameNumber = 0x100000000;
    extras.partialResultCount = 15;
    extras.errorStreamId = 16;
    choose("captag", "vendor.second");
    choose("ctrltag", "vendor.first");
    choose("stattag", "vendor.second");
    const android::sp<QzPerformEx> other = new QzPerformEx(9);  // another camera of the process

    constexpr std::pair<const char*, char> levels[] = {{"", '0'},    {"debug", '0'}, {"1", '1'}, {"2", '2'},
                                                       {"0x3", '3'}, {"04", '4'},    {"5", '5'}, {"-1", '6'}};
    for (const auto& [text, level] : levels) {
        SCOPED_TRACE(text);
        choose("loglevel", text);
        mLog.take();
        sPropertiesRead.clear();
        other->checkRequest(requests, level == '1');
        EXPECT_EQ(printed(), atLevel(level, std::string("1 4 checkRequest(), ") +
                                                (level == '1' ? "repeating." : "capture.") + R"(
2 4 getTagInfo(), get tag: 0x80000000, 'vendor.first'.
2 4 getTagInfo(), part 1 of 2, index: 1, tag: 0x80000000, type: byte, value: 7
2 4 getTagInfo(), part 2 of 2, index: 1, tag: 0x80000000, type: byte, value: 200
2 4 getTagInfo(), get tag: 0x80000000, 'vendor.first'.
2 4 getTagInfo(), tag 0x80000000 doesn't exist.
5 4 dumpCurrentTags(), entry count: 2
5 4 dumpCurrentTags(), get tag: 0x80000001, 'vendor.second'.
5 4 dumpCurrentTags(), get tag: 0x80000000, 'vendor.first'.
5 4 dumpCurrentTags(), entry count: 0)"));
        mInspector->checkResult(*result);
        EXPECT_EQ(printed(), atLevel(level, R"(3 4 getTagInfo(), get tag: 0x80000001, 'vendor.second'.
3 4 getTagInfo(), part 1 of 1, index: 0, tag: 0x80000001, type: int32, value: -5
3 4 checkResult(), request id: 11, burst id: 12, af trigger id: 13, precapture trigger id: 14
3 frame number: 4294967296, result count: 15)"));
        mInspector->setInfo(&mMetadata);
        EXPECT_EQ(printed(), atLevel(level, R"(0 4 setInfo(this)
2 4 getTagInfo(), get tag: 0x80000001, 'vendor.second'.
2 4 getTagInfo(), part 1 of 1, index: 0, tag: 0x80000001, type: int32, value: -5
4 4 dumpVendorTags(), vendor tag count: 2
4 4 dumpVendorTags(), tag: 0x80000000, vendor.first
4 4 dumpVendorTags(), tag: 0x80000001, vendor.second
4 4 dumpCurrentTags(), entry count: 2
4 4 dumpCurrentTags(), get tag: 0x80000001, 'vendor.second'.
4 4 dumpCurrentTags(), get tag: 0x80000000, 'vendor.first'.)"));
        EXPECT_EQ(mMetadata.update(0x80000001, &number, 1), 0) << "the buffer is free again";
        std::vector<std::string> read{"loglevel"};
        if (level >= '2') read.insert(read.end(), {"ctrltag", "ctrltag"});
        if (level >= '3') read.emplace_back("stattag");
        if (level >= '2') read.emplace_back("captag");
        EXPECT_EQ(sPropertiesRead, read);
    }
}

TEST_F(QzPerformExTest, NamesVendorTagsBeforeStandardOnes) {
    setLevel("2");
    std::optional<VendorTags> tags;
    const auto chosen = [&](const std::string& name) {
        choose("captag", name);
        mInspector->setInfo(&mMetadata);
        const std::string lines = printed();
        return lines == "4 setInfo(this)\n"
                   ? "none"
                   : lines.substr(lines.find("tag: "), lines.find('\'') - lines.find("tag: "));
    };
    EXPECT_EQ(chosen("android.control.aeMode"), "tag: 0x10003, ");
    tags.emplace(Declarations{
        {"nine.char", TYPE_BYTE}, {"ten.letter", TYPE_BYTE}, {"android.control.aeMode", TYPE_BYTE}});
    EXPECT_EQ(chosen("nine.char"), "none");
    EXPECT_EQ(chosen("ten.letter"), "tag: 0x80000001, ");
    EXPECT_EQ(chosen("android.control.aeMode"), "tag: 0x80000002, ");
    EXPECT_EQ(chosen("android.control.awbMode"), "tag: 0x1000b, ");
    EXPECT_EQ(chosen("android.control.noSuchMode"), "none");
    EXPECT_EQ(chosen(""), "none");
}

TEST_F(QzPerformExTest, PrintsEveryTypeWithinItsText) {
    const VendorTags tags({{"t.byte", TYPE_BYTE},
                           {"t.int32", TYPE_INT32},
                           {"t.float", TYPE_FLOAT},
                           {"t.int64", TYPE_INT64},
                           {"t.double", TYPE_DOUBLE},
                           {"t.rational", TYPE_RATIONAL}});
    setLevel("2");
    uint32_t tag = 0x80000000;
    // Texts of the elements. An element that does not fit has the error line before it.
    const auto texts = [&](const auto&... elements) {
        const std::array values{elements...};
        mMetadata.update(tag, values.data(), values.size());
        (mInspector.get()->*TestPeer::getTagInfo)(mMetadata, tag);
        std::string all;
        std::istringstream lines(printed());
        std::string line;
        for (std::getline(lines, line); std::getline(lines, line);) {
            const size_t type = line.find("type: ");
            all += (type == std::string::npos ? line : line.substr(type + 6)) + "|";
        }
        ++tag;
        return all;
    };
    EXPECT_EQ(texts(uint8_t{0}, uint8_t{255}), "byte, value: 0|byte, value: 255|");
    EXPECT_EQ(texts(INT32_MIN, 7), "int32, value: -2147483648|int32, value: 7|");
    EXPECT_EQ(texts(2.6F, -0.4F, 1e25F, 2e25F),
              "float, value: 3|float, value: -0|float, value: 9999999562023526247432192|6 getTagInfo(), "
              "snprintf_s TYPE_FLOAT failed!||");
    EXPECT_EQ(texts(INT64_MIN, int64_t{8}), "int64, value: -9223372036854775808 |int64, value: 8 |");
    EXPECT_EQ(texts(2.6, 1e24, 5e24),
              "double, value: 3|double, value: 999999999999999983222784|6 getTagInfo(), snprintf_s "
              "TYPE_DOUBLE failed!||");
    using Rational = camera_metadata_rational_t;
    EXPECT_EQ(texts(Rational{1, -2}, Rational{INT32_MIN, INT32_MAX}, Rational{INT32_MIN, INT32_MIN}),
              "rational, value: 1/-2|rational, value: -2147483648/2147483647|6 getTagInfo(), snprintf_s "
              "TYPE_RATIONAL failed!||");
}

TEST_F(QzPerformExTest, LogsMissingTags) {
    setLevel("4");
    mInspector->setInfo(nullptr);
    EXPECT_EQ(printed(), "4 setInfo(this)\n");
    mInspector->setInfo(&mMetadata);
    EXPECT_EQ(printed(),
              "4 setInfo(this)\n6 dumpVendorTags(), vendor tag descriptor is NULL!\n4 dumpCurrentTags(), "
              "entry count: 0\n");
    const VendorTags only({{"vendor.only", TYPE_BYTE}});
    mInspector->setInfo(&mMetadata);
    EXPECT_EQ(printed(),
              "4 setInfo(this)\n4 dumpVendorTags(), vendor tag count: 1\n4 dumpVendorTags(), tag: "
              "0x80000000, vendor.only\n4 dumpCurrentTags(), entry count: 0\n");
    mMetadata.update(ANDROID_CONTROL_AE_MODE, static_cast<const uint8_t*>(nullptr), 0);
    for (const uint32_t tag : {uint32_t{ANDROID_CONTROL_AE_MODE}, 0x8000FFFF, 0xFFFFFFFF})
        (mInspector.get()->*TestPeer::getTagInfo)(mMetadata, tag);
    EXPECT_EQ(printed(), R"(4 getTagInfo(), get tag: 0x10003, 'android.control.aeMode'.
4 getTagInfo(), tag 0x10003 entry count is 0.
4 getTagInfo(), get tag: 0x8000ffff, '(null).(null)'.
4 getTagInfo(), tag 0x8000ffff doesn't exist.
)");
}

// The host's lock is kept. Without a lock the metadata can still be changed afterwards.
TEST_F(QzPerformExTest, KeepsLocks) {
    setLevel("5");
    choose("captag", "android.control.aeMode");
    choose("ctrltag", "android.control.aeMode");
    const uint8_t mode = 1;
    mMetadata.update(ANDROID_CONTROL_AE_MODE, &mode, 1);
    android::List<const CameraMetadata> requests;
    requests.push_back(mMetadata);
    const CameraMetadata& request = *requests.begin();
    for (const bool locked : {true, false}) {
        const camera_metadata_t* info = locked ? mMetadata.getAndLock() : nullptr;
        const camera_metadata_t* buffer = locked ? request.getAndLock() : nullptr;
        mInspector->setInfo(&mMetadata);
        mInspector->checkRequest(requests, false);
        EXPECT_EQ(mMetadata.update(ANDROID_CONTROL_AE_MODE, &mode, 1) == 0, !locked);
        EXPECT_EQ(mMetadata.unlock(info) == 0, locked);
        EXPECT_EQ(request.unlock(buffer) == 0, locked);
    }
}

TEST_F(QzPerformExTest, SkipsBuffersBySizeAndFormat) {
    const VendorTags tags(mLists);
    setInfo(0x80000000, {640, 480, 320, 240, 3264, 2449, 16});
    setInfo(0x80000001, {4000, 3000, 320, 240});
    EXPECT_EQ(skipRound(3264, 2448, 0x23), "skipped\n");
    for (const auto& [width, height] :
         {std::pair{3264, 2447}, {3265, 2448}, {480, 320}, {640, 240}, {480, 640}, {16, 0}}) {
        EXPECT_EQ(skipRound(width, height, 0x23), "kept\n") << width;
    }
    EXPECT_EQ(skipRound(3264, 2448), "kept\n");
    const auto found = [](const std::string& size, const std::string& list) {
        return "skipped\n4 isCustomizedSize(), size(" + size + ") belongs to 0x8000000" + list + "\n";
    };
    EXPECT_EQ(skipRound(3264, 2449), found("3264 x 2449", "0"));
    EXPECT_EQ(skipRound(640, 480, -1), found("640 x 480", "0"));
    EXPECT_EQ(skipRound(320, 240), found("320 x 240", "0"));
    EXPECT_EQ(skipRound(4000, 3000), found("4000 x 3000", "1"));
    mInspector->setInfo(nullptr);  // keeps the other
    mLog.take();
    EXPECT_EQ(skipRound(4000, 3000), found("4000 x 3000", "1"));
}

TEST_F(QzPerformExTest, LogsSkips) {
    const std::string size = "\n4 skipRoundBuffer(), size: 640 x 480, format: 0x21\n";
    const std::string search = "4 isCustomizedSize()\n4 getStaticInfo()\n";
    const std::string none = "4 isCustomizedSize(), entry count is 0\n";
    const std::string noInfo = "5 getStaticInfo(), info is null\n";
    const std::string missing = "4 getStaticInfo(), Cann't find static metadata entry '";
    const std::string malformed = "4 getStaticInfo(), Malformed static metadata entry '";
    setLevel("1");
    EXPECT_EQ(skipRound(640, 480), "kept" + size) << "no such lists on this device";
    const VendorTags tags(mLists);
    EXPECT_EQ(skipRound(3264, 2448, 0x23),
              "skipped\n4 skipRoundBuffer(), size: 3264 x 2448, format: 0x23\n4 skipRoundBuffer(), front "
              "panorama, skip round.\n");
    EXPECT_EQ(skipRound(640, 480), "kept" + size + search + noInfo + none + search + noInfo + none);
    setLevel("0");
    EXPECT_EQ(skipRound(640, 480), "kept\n" + noInfo + noInfo);
    setLevel("1");
    setInfo(0x80000001, {640});
    EXPECT_EQ(skipRound(640, 480),
              "kept" + size + search + missing + mLists[0].first + "' (0x80000000)\n" + none + search +
                  malformed + mLists[1].first +
                  "' (0x80000001):Expected between 2 and 0 values, but got 1 values\n"
                  "4 isCustomizedSize(), size(640 x 480) doesn't belong to 0x80000001\n");
    setLevel("0");
    EXPECT_EQ(skipRound(640, 480), "kept\n") << "silent about missing and malformed entries too";
    setLevel("1");
    setInfo(0x80000000, {640, 480});
    EXPECT_EQ(skipRound(640, 480),
              "skipped" + size + search + "4 isCustomizedSize(), size(640 x 480) belongs to 0x80000000\n");

    const auto staticInfo = [&](uint32_t tag, size_t minCount, size_t maxCount, bool required) {
        const auto entry = (mInspector.get()->*TestPeer::getStaticInfo)(tag, minCount, maxCount, required);
        return printed() + std::to_string(entry.count);
    };
    const std::string get = "4 getStaticInfo()\n";
    EXPECT_EQ(staticInfo(0x80000000, 2, 2, true), get + "2");
    EXPECT_EQ(staticInfo(0x80000000, 0, 1, true),
              get + malformed + mLists[0].first +
                  "' (0x80000000):Expected between 0 and 1 values, but got 2 values\n2");
    EXPECT_EQ(staticInfo(0x8000000A, 0, 1, false), get + "0");
    EXPECT_EQ(staticInfo(0x8000000A, 0, 0, true), get + missing + "<unknown>.<unknown>' (0x8000000a)\n0");
    EXPECT_EQ(staticInfo(0x8000000A, 1, 0, false),
              get + malformed +
                  "<unknown>.<unknown>' (0x8000000a):Expected between 1 and 0 values, but got 0 values\n0");
}

TEST_F(QzPerformExTest, IgnoresListsOfAnotherType) {
    const VendorTags tags({{mLists[0].first, TYPE_BYTE}, {mLists[1].first, TYPE_INT64}});
    const uint8_t bytes[] = {16, 0, 0, 0, 8, 0, 0, 0};
    const int64_t longs[] = {16, 8};
    mMetadata.update(0x80000000, bytes, 8);
    mMetadata.update(0x80000001, longs, 2);
    mInspector->setInfo(&mMetadata);
    mLog.take();
    EXPECT_EQ(skipRound(16, 8), "kept\n");
    EXPECT_EQ(skipRound(16, 0), "kept\n");
}

}  // namespace
}  // namespace test
}  // namespace qz
