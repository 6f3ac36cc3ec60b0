// SPDX-License-Identifier: Apache-2.0
#include "verdict/Verdicts.h"

#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "host/Camera.h"
#include "host/EventWords.h"
#include "host/LogCapture.h"
#include "qzcam/BuiltIn.h"
#include "session/Player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <camera/VendorTagDescriptor.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {
namespace {

using testing::HasSubstr;

Tag& tagOf(Device& device, const std::string& name) {
    return *std::find_if(device.vendorTags.begin(), device.vendorTags.end(),
                         [&](const Tag& tag) { return tag.name == name; });
}

Device without(const std::string& name) {
    Device device = test::builtIn();
    Tag& tag = tagOf(device, name);
    device.vendorTags.erase(device.vendorTags.begin() + (&tag - device.vendorTags.data()));
    return device;
}

Device withType(const std::string& name, uint8_t type) {
    Device device = test::builtIn();
    tagOf(device, name).type = type;
    return device;
}

Device withoutStatic(uint32_t tag) {
    Device device = test::builtIn();
    device.entries.erase(std::remove_if(device.entries.begin(), device.entries.end(),
                                        [&](const StaticEntry& entry) { return entry.tag == tag; }),
                         device.entries.end());
    return device;
}

// Returns the verdicts after the last request of a session.
std::vector<VerdictRow> verdicts(const std::string& session, const Device& device = test::builtIn()) {
    Problems problems("s");
    const Session parsed = parseSession("open 0\n" + session + "\nrequest\n", "s", problems);
    EXPECT_TRUE(problems.empty());
    std::vector<VerdictRow> rows;
    Player player(device, [&](const Event& event) {
        if (const auto* each = std::get_if<VerdictsEvent>(&event)) rows = each->rows;
    });
    player.play(parsed);
    return rows;
}

VerdictRow verdictOn(const std::string& key, const std::string& session,
                     const Device& device = test::builtIn()) {
    for (const VerdictRow& row : verdicts(session, device)) {
        if (row.key == key) return row;
    }
    ADD_FAILURE() << "no verdict on " << key;
    return {};
}

TEST(Verdict, ByValue) {
    const struct {
        const char* session;
        const char* key;
        const char* verdict;
        const char* reason;
    } kRows[] = {
        {"set iso=1600", "iso", "written", ""},
        {"set iso=auto", "iso", "written", ""},
        {"set iso=1601", "iso", "fallback", "'1601' is not recognised"},
        {"set qz-exposure-mode=default", "qz-exposure-mode", "written", ""},
        {"set qz-exposure-mode=off", "qz-exposure-mode", "fallback", ""},
        {"set qz-sensor-iso=auto", "qz-sensor-iso", "written", ""},
        {"set qz-sensor-iso=0", "qz-sensor-iso", "written", ""},
        {"set qz-sensor-iso=many", "qz-sensor-iso", "fallback", ""},
        {"set qz-sensor-exposure-time=auto", "qz-sensor-exposure-time", "written", ""},
        {"set qz-sensor-exposure-time=1/50", "qz-sensor-exposure-time", "written", ""},
        {"set sub-picture-size=(0,0)", "sub-picture-size", "not-offered", ""},
        {"set sub-picture-size=small", "sub-picture-size", "fallback", ""},
        {"set post-process-picture-name=P1.jpg", "post-process-picture-name", "written", ""},
        {"set rotation=0x10", "rotation", "written", ""},
        {"set rotation=9o", "rotation", "fallback", "'9o' is not a number; it is read as 9"},
        {"set rotation=9999999999x", "rotation", "fallback", "read as 2147483647"},
        {"set camera_sound_state=0", "camera_sound_state", "unread", "shutter sound"},
        {"set rotation=-1", "rotation", "skipped", "-1 counts as not set"},
        {"set metering-areas=(0,0,100,100)", "metering-areas", "skipped", ""},
        {"set picture-size=big", "picture-size", "skipped", "fail to get pictureWidth"},
        {"set zoom=5", "zoom", "gate-closed", "max-zoom is not set"},
        {"set zoom=5;max-zoom=99", "zoom", "written", ""},
        {"set zoom=5;max-zoom=0", "zoom", "no-entry", "KEY_MAX_ZOOM = 0"},
        {"set qz-exposure-try-ae=on", "qz-exposure-try-ae", "gate-closed", "while qz-exposure-mode is"},
        {"set qz-exposure-mode=star;qz-exposure-try-ae=on", "qz-exposure-try-ae", "written", ""},
        {"set qz-exposure-mode=star;jpeg-quality=9;jpeg-thumbnail-quality=8", "jpeg-quality", "written", ""},
        {"set video-stabilization=true;qz-qzcamera-flag=on", "video-stabilization", "gate-closed",
         "not read while qz-qzcamera-flag is 'on'"},
        {"set video-stabilization=false", "video-stabilization", "no-entry", ""},
        {"client com.snapchat.android\nset video-stabilization=true", "video-stabilization", "written", ""},
        {"client com.snapchat.android\nset video-stabilization=false", "video-stabilization", "no-entry",
         "'true' is overwritten"},
        {"set key-qz-2dpanorama=on", "key-qz-2dpanorama", "written", ""},
        {"set key-qz-2dpanorama=on\nrequest", "key-qz-2dpanorama", "no-entry", "only on a change"},
        {"set burst-capture=3", "burst-capture", "no-entry", "read and stored"},
        {"set qz-magnifier-step-value=3;qz-manual-focus-step-value=4", "qz-magnifier-step-value",
         "overridden", "manualFocusValue is written again for qz-manual-focus-step-value"},
        {"set qz-magnifier-step-value=4;qz-manual-focus-step-value=4", "qz-magnifier-step-value",
         "overridden", ""},
        {"set qz-magnifier-step-value=3;qz-manual-focus-step-value=400", "qz-manual-focus-step-value",
         "written", ""},
        {"set qz-image-post-process=on;key-qz-panorama=on", "qz-image-post-process", "overridden",
         "key-qz-panorama decides"},
        {"set key-qz-2dpanorama-tiny-width=3;key-qz-2dpanorama-tiny-height=2", "key-qz-2dpanorama-tiny-width",
         "written", ""},
        {"set key-qz-2dpanorama-tiny-width=3;key-qz-2dpanorama-tiny-height=2",
         "key-qz-2dpanorama-tiny-height", "undeclared", "panorama2DHeight"},
        {"set contrast-mode=3", "contrast-mode", "unread", "perhaps contrast is meant"},
        {"set x=3", "x", "unread", ""},
    };
    for (const auto& row : kRows) {
        const VerdictRow found = verdictOn(row.key, row.session);
        EXPECT_STREQ(verdictWord(found.verdict), row.verdict) << row.session << ": " << found.reason;
        EXPECT_THAT(found.reason, HasSubstr(row.reason)) << row.session;
    }
}

TEST(Verdict, ByDevice) {
    const struct {
        const char* session;
        const char* key;
        Device device;
        const char* verdict;
        const char* reason;
    } kRows[] = {
        {"set iso=1600", "iso", without("iso"), "undeclared", "com.ambrix.capture.metadata.iso"},
        {"set iso=1600", "iso", Device{}, "undeclared", "com.ambrix.capture.metadata.iso"},
        {"set iso=1600", "iso", withType("iso", TYPE_INT32), "wrong-type",
         "declared as int32: byte[1] refused, status -38"},
        {"set picture-size=40x30", "picture-size", without("qz-picture-width"), "undeclared",
         "qz-picture-width"},
        {"set qz-exposure-mode=star;qz-exposure-try-ae=on", "qz-exposure-try-ae",
         without("lightPaintingMode"), "gate-closed", "when qz-exposure-mode has taken effect"},
        {"set qz_ois_gryo_offset_calib=on;qz_ois_hall_calib=on", "qz_ois_hall_calib",
         without("oisGryoOffsetCalib"), "gate-closed", "oisGryoOffsetCalib, is not declared"},
        {"set zoom=5;max-zoom=99", "zoom", withoutStatic(ANDROID_SCALER_AVAILABLE_MAX_DIGITAL_ZOOM),
         "gate-closed", "availableMaxDigitalZoom"},
        {"set qz-magnifier-step-value=3;qz-manual-focus-step-value=4", "qz-manual-focus-step-value",
         without("manualFocusValue"), "undeclared", "manualFocusValue"},
    };
    for (const auto& row : kRows) {
        const VerdictRow found = verdictOn(row.key, row.session, row.device);
        EXPECT_STREQ(verdictWord(found.verdict), row.verdict) << row.session << ": " << found.reason;
        EXPECT_THAT(found.reason, HasSubstr(row.reason)) << row.session;
    }
}

// The dump shows only 16 values of this list.
Device withCut(const std::string& name) {
    Device device = test::builtIn();
    for (StaticEntry& entry : device.entries) {
        if (entry.tag == tagOf(device, name).id) entry.cut = true;
    }
    return device;
}

TEST(Verdict, ComparesValuesWithTheDevice) {
    const struct {
        const char* session;
        const char* key;
        const char* verdict;
        const char* reason;
    } kRows[] = {
        {"set iso=50", "iso", "not-offered", "iso-mode-values: auto,100,200,400,800,1600,3200,6400"},
        {"set key-hdr-movie=on", "key-hdr-movie", "not-offered", "hdr-movie-supported: false"},
        {"set key-hdr-movie=off", "key-hdr-movie", "written", ""},
        {"set qz-omron-face-beauty-level=11", "qz-omron-face-beauty-level", "not-offered",
         "qz-min-beauty-level, qz-max-beauty-level: 0 to 10"},
        {"set qz-manual-focus-step-value=620", "qz-manual-focus-step-value", "written", ""},
        {"set qz-manual-focus-step-value=99", "qz-manual-focus-step-value", "not-offered", "100 to 620"},
        {"set qz-set-aperture-value=3", "qz-set-aperture-value", "not-offered", "0.95,1.4,2,"},
        {"set qz-video-fps=60", "qz-video-fps", "written", ""},
        {"set qz-video-fps=120", "qz-video-fps", "not-offered", "qz-video-fps-supported: 30,60"},
        {"set front_flash_level=4", "front_flash_level", "not-offered", "front_flash_supports: 0,1,2,3"},
        {"set qz-sensor-wb=auto", "qz-sensor-wb", "written", ""},
        {"set qz-sensor-wb=9000", "qz-sensor-wb", "not-offered", "qz-sensor-wb-range: 2800 to 7000"},
        {"set qz-sensor-exposure-time=1/4000", "qz-sensor-exposure-time", "written", ""},
        {"set qz-sensor-exposure-time=1/8000", "qz-sensor-exposure-time", "not-offered", "1/4000 to 32"},
        {"set zy-level=21", "zy-level", "not-offered", "qz-color-effect-range: 0 to 20"},
        {"set qz-dynamic-iso-range=100,6400", "qz-dynamic-iso-range", "not-offered", "50 to 3200"},
        {"set sub-picture-size=(1920,1080)", "sub-picture-size", "written", ""},
        {"set sub-picture-size=(640,480)", "sub-picture-size", "not-offered", "4000x3000,1920x1080"},
        {"set picture-size=6528x4896", "picture-size", "written", ""},
        {"set picture-size=40x30", "picture-size", "not-offered", "4608x3456,4000x3000"},
        {"set picture-size-values=40x30;picture-size=40x30", "picture-size", "written", ""},
        {"set zoom=99;max-zoom=99", "zoom", "written", ""},
        {"set zoom=100;max-zoom=99", "zoom", "not-offered", "max-zoom: 0 to 99"},
        {"set qz-exposure-mode=star;jpeg-quality=0;jpeg-thumbnail-quality=100", "jpeg-quality", "not-offered",
         "1 to 100"},
        {"set qz-exposure-mode=star;jpeg-thumbnail-width=320;jpeg-thumbnail-height=241",
         "jpeg-thumbnail-height", "not-offered", "android.jpeg.availableThumbnailSizes: 0x0,"},
        {"set metering-areas=(0,0,1,1,1),(0,0,4608,3456,1000)", "metering-areas", "written", ""},
        {"set metering-areas=(0,0,4608,3457,1)", "metering-areas", "not-offered", "(0,0) to (4608,3456)"},
        {"set focus-areas=(-1,0,100,100,1)", "focus-areas", "not-offered", "activeArraySize"},
        {"set target-coordinates=4609,0", "target-coordinates", "not-offered", "activeArraySize"},
        // Numbers that wrap or saturate.
        {"set zoom=9223372036854775807;max-zoom=99", "zoom", "overflows",
         "9223372036854775807 does not fit into int32: 2147483647"},
        {"set qz-exposure-mode=star;jpeg-quality=300;jpeg-thumbnail-quality=80", "jpeg-quality", "overflows",
         "300 does not fit into byte: 44"},
        {"set rotation=-2147483649", "rotation", "overflows", "-2147483648"},
        {"set face-mirror-point=-5", "face-mirror-point", "overflows", "-5 does not fit into int32: 0"},
        {"set mmitest-lowlight-sensor-gain=30000000", "mmitest-lowlight-sensor-gain", "overflows",
         "3000000000 does not fit into int32: -1294967296"},
        {"set mmitest-lowlight-sensor-gain=8", "mmitest-lowlight-sensor-gain", "written", ""},
        {"set qz-sensor-exposure-time=3000", "qz-sensor-exposure-time", "overflows",
         "3000000000 does not fit into int32: -1294967296"},
        {"set qz-sensor-iso=99999999999", "qz-sensor-iso", "overflows", "2147483647"},
        {"set qz-exposure-compensation-value=1e39", "qz-exposure-compensation-value", "overflows", "inf"},
        {"set qz-mmi-raw-region=(99999999999,0,1,1)", "qz-mmi-raw-region", "overflows", ": 0"},
    };
    for (const auto& row : kRows) {
        const VerdictRow found = verdictOn(row.key, row.session);
        EXPECT_STREQ(verdictWord(found.verdict), row.verdict) << row.session << ": " << found.reason;
        EXPECT_THAT(found.reason, HasSubstr(row.reason)) << row.session;
    }
    EXPECT_EQ(verdictOn("iso", "set iso=50", withCut("supported_iso_values")).verdict, Verdict::Written);
    EXPECT_EQ(verdictOn("iso", "set iso=50", without("supported_iso_values")).verdict, Verdict::Written);
}

// A later write that does not reach the device does not override the first one.
TEST(Verdict, Overridden) {
    const std::string tag = "com.ambrix.capture.metadata.manualFocusValue";
    const Texts texts{{"qz-magnifier-step-value", "3"}, {"qz-manual-focus-step-value", "4"}};
    const TagNames names(test::builtIn().vendorTags);
    installVendorTags(test::builtIn());
    const android::CameraMetadata characteristics = staticCharacteristics(test::builtIn());
    Trace trace;
    {
        const LogListener silence([](const LogEvent&) {});
        Camera camera(0, characteristics, [](Message&&) {});
        for (const auto& [key, value] : texts) camera.parameters().set(key.c_str(), value.c_str());
        android::CameraMetadata request;
        camera.adapter().watch(&trace);
        camera.translator().paramToMetaData(&request);
    }
    VerdictFinder finder(test::builtIn(), names, characteristics);
    const auto verdict = [&] {
        return finder.find(trace, {texts.begin()->first}, texts, {}).front().verdict;
    };
    EXPECT_EQ(verdict(), Verdict::Overridden);
    const auto last = std::find_if(trace.rbegin(), trace.rend(), [&](const TraceStep& step) {
        return step.kind == TraceStep::Kind::Update && step.name == tag;
    });
    trace.erase(std::next(last).base());
    EXPECT_EQ(verdict(), Verdict::Written);
    android::VendorTagDescriptor::clearGlobalVendorTagDescriptor();
}

// The entry that is written first may have the better verdict.
TEST(Verdict, WorstEntryCounts) {
    Device both = without("proExposureTime");
    tagOf(both, "sensorExposureTime").type = TYPE_BYTE;
    const std::vector<std::pair<Device, const char*>> rows{
        {without("proExposureTime"), "undeclared"},
        {without("sensorExposureTime"), "undeclared"},
        {withType("proExposureTime", TYPE_BYTE), "wrong-type"},
        {both, "wrong-type"},
    };
    for (const auto& [device, verdict] : rows) {
        const VerdictRow row =
            verdictOn("qz-sensor-exposure-time", "set qz-sensor-exposure-time=1/50", device);
        EXPECT_EQ(row.entries.size(), 2U);
        EXPECT_STREQ(verdictWord(row.verdict), verdict) << row.reason;
    }
}

// Entries have the written value, or the value that would be written.
TEST(Verdict, ListsEveryEntry) {
    const VerdictRow row = verdictOn("picture-size", "set picture-size=40x30", without("qz-picture-width"));
    ASSERT_EQ(row.entries.size(), 2U);
    EXPECT_EQ(toText(row.entries[0].values, 0x80000000), "40");
    EXPECT_EQ(row.entries[0].verdict, Verdict::Undeclared);
    EXPECT_EQ(toText(row.entries[1].values, 0x80000000), "30");
    EXPECT_EQ(row.entries[1].verdict, Verdict::GateClosed);
}

TEST(Verdict, OnlySetParameters) {
    const auto keys = [](const std::string& session) {
        std::vector<std::string> found;
        for (const VerdictRow& row : verdicts(session)) found.push_back(row.key);
        return found;
    };
    using testing::ElementsAre;
    EXPECT_THAT(keys("publish\nset iso=100;contrast=0"), ElementsAre("contrast", "iso"));
    EXPECT_THAT(keys("set iso=100;contrast=0\nunset iso"), ElementsAre("contrast"));
    EXPECT_THAT(keys("set qz-vcm-start-value=1\npublish"), ElementsAre());
    EXPECT_THAT(keys("set iso=100\nopen 0\nset contrast=0"), ElementsAre("contrast"));
}

// A verdict has no side effects: neither on the request, nor on the log, nor on later steps.
TEST(Verdict, DoesNotChangeTheCamera) {
    Problems problems("s");
    const Session session = parseSession(
        "open 0\nset iso=9;x=1;zoom=3;key-qz-2dpanorama=on\nrequest\nexpect-no-log error find section\n"
        "expect-entry panorama2DMode 1\nrequest\nexpect-no-entry panorama2DMode\n",
        "s", problems);
    size_t lines = 0;
    Player player(test::builtIn(), [&](const Event& event) {
        const auto* log = std::get_if<LogEvent>(&event);
        if (log && log->text.rfind("CCameraQzParam(", 0) == 0) ++lines;
    });
    EXPECT_TRUE(player.play(session));
    EXPECT_EQ(lines, 1U);
}

}  // namespace
}  // namespace qzcam
