// SPDX-License-Identifier: Apache-2.0
#include "QzParametersEx.h"

#include "support/Device.h"
#include "support/Peer.h"
#include "support/Rows.h"

#include <gmock/gmock.h>

#include <array>

namespace qz::test {
namespace {

using android::CameraMetadata;
using android::CameraParameters2;
using testing::ElementsAre;

// Returns the index of a virtual function in its table. The first word of a pointer to it is the offset, plus
// one on all machines except ARM.
template <typename Function>
size_t slot(Function function) {
    uintptr_t word = 0;
    memcpy(&word, &function, sizeof(word));
    return (word & ~uintptr_t{1}) / sizeof(void*);
}

template <typename... Data>
size_t updateSlot() {
    using Update = status_t (ExtParamInterface::*)(CameraMetadata*, uint32_t, Data...);
    return slot<Update>(&ExtParamInterface::update);
}

TEST(HostInterfaces, KeepTheirSlots) {
    using Params = ExtParamInterface;
    EXPECT_THAT((std::array{slot(&Params::set), slot(&Params::get), slot(&Params::getInt),
                            slot(&Params::getStaticInfo), updateSlot<const uint8_t*, size_t>(),
                            updateSlot<const int32_t*, size_t>(),
                            updateSlot<const camera_metadata_rational*, size_t>(),
                            updateSlot<const float*, size_t>(), updateSlot<const double*, size_t>(),
                            updateSlot<const android::String8&>(), slot(&QzParametersEx::remove)}),
                ElementsAre(2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
    using Host = ExtCallBackInterface;
    EXPECT_THAT((std::array{slot(&Host::notifyCallback), slot(&Host::dataCallback),
                            slot(&Host::hostOperation), slot(&Host::findResultEntry)}),
                ElementsAre(2, 3, 4, 5));
}

TEST(QzParametersEx, OwnsItsTranslator) {
    LogCapture log;
    CameraParameters2 parameters;
    android::sp<QzParametersEx> adapter = new QzParametersEx(parameters, 0);
    const CCameraQzParam* translator = adapter->mCameraQzParam.get();
    EXPECT_EQ(translator->*TestPeer::extParam, adapter.get());
    EXPECT_EQ(adapter->mInfo, nullptr);
    EXPECT_FALSE(adapter->mShutterMute);
    std::ostringstream call;
    call << "CCameraQzParam(" << static_cast<const void*>(translator) << ")";
    EXPECT_EQ(log.take(), lineOf(ANDROID_LOG_INFO, "CameraQzParam", call.str()));
    adapter.clear();
    EXPECT_EQ(log.take(), lineOf(ANDROID_LOG_INFO, "CameraQzParam", "~" + call.str()));
}

TEST(QzParametersEx, ForwardsToParametersAndRequest) {
    const VendorTags tags({{"t.u8", TYPE_BYTE},
                           {"t.i32", TYPE_INT32},
                           {"t.r", TYPE_RATIONAL},
                           {"t.f", TYPE_FLOAT},
                           {"t.d", TYPE_DOUBLE},
                           {"t.text", TYPE_BYTE}});
    const LogCapture log;
    Camera camera;
    ExtParamInterface& host = *camera.adapter;
    host.set("zoom", "0x10");
    EXPECT_STREQ(camera.parameters.get("zoom"), "0x10");
    EXPECT_STREQ(host.get("zoom"), "0x10");
    EXPECT_EQ(host.getInt("zoom"), 16);
    camera.adapter->remove("zoom");
    EXPECT_EQ(host.get("zoom"), nullptr);
    EXPECT_EQ(host.getInt("zoom"), -1);
    host.set("zoom", "2");
    camera.adapter->remove(nullptr);
    EXPECT_STREQ(host.get("zoom"), "2");

    const uint8_t bytes[] = {1, 255};
    const int32_t ints[] = {-1, 2, 3};
    const camera_metadata_rational rational = {1, -2};
    const float floats[] = {0.5F, 2.0F};
    const double number = 0.25;
    CameraMetadata request;
    EXPECT_EQ(host.update(&request, tagOf("t.u8"), bytes, 2), 0);
    EXPECT_EQ(host.update(&request, tagOf("t.i32"), ints, 3), 0);
    EXPECT_EQ(host.update(&request, tagOf("t.r"), &rational, 1), 0);
    EXPECT_EQ(host.update(&request, tagOf("t.f"), floats, 2), 0);
    EXPECT_EQ(host.update(&request, tagOf("t.d"), &number, 1), 0);
    EXPECT_EQ(host.update(&request, tagOf("t.text"), android::String8("ab")), 0);
    EXPECT_EQ(host.update(&request, tagOf("t.u8"), ints, 1), -38);
    EXPECT_THAT(values<uint8_t>(request, "t.u8"), ElementsAre(1, 255));
    EXPECT_THAT(values<int32_t>(request, "t.i32"), ElementsAre(-1, 2, 3));
    EXPECT_THAT((values<std::array<int32_t, 2>>(request, "t.r")), ElementsAre(ElementsAre(1, -2)));
    EXPECT_THAT(values<float>(request, "t.f"), ElementsAre(0.5F, 2.0F));
    EXPECT_THAT(values<double>(request, "t.d"), ElementsAre(0.25));
    EXPECT_THAT(values<char>(request, "t.text"), ElementsAre('a', 'b', '\0'));
}

// Columns: tag, names, smallest and largest count, required or not, expected log line.
TEST(QzParametersEx, ReportsStaticEntriesThatAreNotAsExpected) {
    const VendorTags tags({{"t.four", TYPE_INT32}, {"t.absent", TYPE_INT32}});
    Camera camera;
    const int32_t four[] = {1, 2, 3, 4};
    camera.info.update(0x80000000, four, 4);
    LogCapture log;
    for (const Row& row : rowsOf(R"(
            80000000|t.four|4|4|1|fine 80000000|t.four|1|0|0|fine 80000000|t.four|2|3|0|malformed
            80000000|t.four|5|0|1|malformed 80000001|t.absent|0|2|0|fine 80000001|t.absent|1|0|1|missing
            80000001|t.absent|1|0|0|malformed 8000000a|<unknown>.<unknown>|0|0|1|missing
            8000000a|<unknown>.<unknown>|1|2|0|malformed)")) {
        const auto entry =
            camera.adapter->getStaticInfo(static_cast<uint32_t>(std::stoul(row[0], nullptr, 16)),
                                          std::stoul(row[2]), std::stoul(row[3]), row[4] == "1");
        const std::string subject = " static metadata entry '" + row[1] + "' (" + row[0] + ")";
        const std::string malformed = "Malformed" + subject + ":Expected between " + row[2] + " and " +
                                      row[3] + " values, but got " + std::to_string(entry.count) + " values";
        EXPECT_EQ(log.take(), lineOf(ANDROID_LOG_ERROR, "QzParametersEx",
                                     row[5] == "missing"     ? "Error finding" + subject
                                     : row[5] == "malformed" ? malformed
                                                             : ""));
        ASSERT_EQ(entry.count, row[1] == "t.four" ? 4U : 0U);
        EXPECT_TRUE(std::equal(entry.data.i32, entry.data.i32 + entry.count, four));
    }
    camera.adapter->mInfo = nullptr;
    EXPECT_EQ(camera.adapter->getStaticInfo(0x80000000, 1, 1, true).count, 0U);
    EXPECT_EQ(log.take(), lineOf(ANDROID_LOG_WARN, "QzParametersEx", "getStaticInfo: mInfo is null"));
}

TEST(QzParametersEx, ChangesTheParametersGiven) {
    const LogCapture log;
    const auto textOf = [](const char* text) -> std::string { return text != nullptr ? text : "absent"; };
    Camera listener;
    for (const Row& row : rowsOf("0|mute 1|loud off|mute -1|loud 0|mute absent|loud")) {
        CameraParameters2 given;
        if (row[0] != "absent") given.set("camera_sound_state", row[0].c_str());
        listener.adapter->setShutterMute(given);
        EXPECT_EQ(listener.adapter->mShutterMute, row[1] == "mute") << row[0];
    }
    for (const Row& row : rowsOf("0|absent|absent 0|on|40x30 0|off 0|OFF|40x30 2|on|40x30 1|on|absent")) {
        Camera camera(std::stoi(row[0]));
        camera.translator().*TestPeer::superResPicSizes = "40x30";
        (camera.translator().*TestPeer::otpTestResult).set(200);
        CameraParameters2 given;
        if (row[1] != "absent") given.set("qz-image-post-process", row[1].c_str());
        camera.adapter->modifySupportedPictureSize(given);
        EXPECT_EQ(textOf(given.get("super-resolution-picture-size-values")), row.size() == 3 ? row[2] : "");
        camera.adapter->modifyOTPtestResult(given);
        EXPECT_EQ(textOf(given.get("qz-otp-check")), "200");
        EXPECT_EQ(textOf(camera.parameters.get("qz-otp-check")), "200");
    }
}

}  // namespace
}  // namespace qz::test
