// SPDX-License-Identifier: Apache-2.0
#include "QzName2Tag.h"

#include "support/Device.h"
#include "support/Rows.h"

#include <gmock/gmock.h>

#include <initializer_list>

namespace qz::test {
namespace {

constexpr uint32_t kNone = 0xFFFFFFFF;

std::vector<LogLine>& startLines() {
    static std::vector<LogLine> lines;
    return lines;
}

// Runs before the library's own initialisation, which logs.
__attribute__((constructor(101))) void keepStartLines() {
    __android_log_set_logger([](const __android_logger_data* data, const char* message) {
        startLines().push_back({data->priority, data->tag, message});
    });
}

TEST(QzName2Tag, ExistsAfterLoading) {
    std::ostringstream text;
    text << "QzName2Tag(" << static_cast<void*>(QzName2Tag::getInstance()) << ")";
    EXPECT_EQ(startLines(), lineOf(ANDROID_LOG_INFO, "QzName2Tag", text.str()));
    EXPECT_EQ(sizeof(QzName2Tag), 1U);
    for (const uint32_t tag : {0U, 1U, 0x80000000U, 0xFFFFFFFEU}) {
        EXPECT_EQ(QzName2Tag::getInstance()->validTag(tag), 1) << tag;
    }
    EXPECT_EQ(QzName2Tag::getInstance()->validTag(kNone), 0);
}

// The line is an error line, or an information line if it begins with '-'.
void expectTag(const char* name, uint32_t tag, const std::string& line = "",
               uint32_t (QzName2Tag::*find)(const char*) const = &QzName2Tag::vendorTagFromName) {
    SCOPED_TRACE(name != nullptr ? name : "null");
    LogCapture log;
    EXPECT_EQ((QzName2Tag::getInstance()->*find)(name), tag);
    const bool info = line.rfind('-', 0) == 0;
    EXPECT_EQ(log.take("QzName2Tag"),
              lineOf(info ? ANDROID_LOG_INFO : ANDROID_LOG_ERROR, "QzName2Tag", line.substr(info ? 1 : 0)));
}

TEST(QzName2Tag, VendorNames) {
    expectTag(nullptr, kNone, "vendorTagFromName: tag name is NULL!");
    expectTag("a.b", kNone, "vendorTagFromName: vendor tag descriptor is NULL!");
    const std::string section = "com.ambrix.capture.metadata";
    {
        const VendorTags none(Declarations{});
        expectTag("a.b", kNone, "-vendorTagFromName: cann't find section for tag 'a.b'!");
    }
    {
        const VendorTags one({{"a.b", TYPE_BYTE}});
        expectTag("a.b", 0x80000000);
    }
    const VendorTags tags({{"com.ambrix.capture.short", TYPE_BYTE},
                           {section + ".iso", TYPE_BYTE},
                           {"com.ambrix.device.iso", TYPE_BYTE},
                           {"a.b", TYPE_BYTE}});
    expectTag("a.b", 0x80000003);  // looked up again
    expectTag("com.ambrix.device.iso", 0x80000002);
    expectTag("com.ambrix.capture.short", 0x80000000);
    expectTag("com.ambrix.capture.iso", kNone);
    expectTag((section + ".iso").c_str(), 0x80000001);
    expectTag((section + "Xiso").c_str(), 0x80000001);
    expectTag((section + ".short").c_str(), kNone);
    expectTag(section.c_str(), kNone, "vendorTagFromName: Key length too short for key '" + section + "'.");
    expectTag("a.", kNone, "vendorTagFromName: Key length too short for key 'a.'.");
    expectTag("A.b", kNone, "-vendorTagFromName: cann't find section for tag 'A.b'!");
}

// Enough sections for a binary search, with similar names beside the right one.
TEST(QzName2Tag, LongestOfManySections) {
    const VendorTags tags({{"a.b.tag", TYPE_BYTE},
                           {"a.b.c.tag", TYPE_BYTE},
                           {"a.b.c.a.tag", TYPE_BYTE},
                           {"a.b.c.z.tag", TYPE_BYTE},
                           {"a.b.cc.tag", TYPE_BYTE},
                           {"a.b.d.tag", TYPE_BYTE},
                           {"z.tag", TYPE_BYTE},
                           {"a.b.c", TYPE_BYTE}});
    expectTag("a.b.tag", 0x80000000);
    expectTag("a.b.c.tag", 0x80000001);
    expectTag("a.b.c.a.tag", 0x80000002);
    expectTag("a.b.c.z.tag", 0x80000003);
    expectTag("a.b.cc.tag", 0x80000004);
    expectTag("a.b.d.tag", 0x80000005);
    expectTag("z.tag", 0x80000006);
    // The name of a section is not a tag of that section or of a shorter one.
    expectTag("a.b.c", kNone, "vendorTagFromName: Key length too short for key 'a.b.c'.");
    expectTag("z", kNone, "vendorTagFromName: Key length too short for key 'z'.");
    expectTag("a.b.x.tag", kNone);  // in a.b, which has no "x.tag"
    expectTag("a.tag", kNone, "-vendorTagFromName: cann't find section for tag 'a.tag'!");
    expectTag("zz", kNone, "vendorTagFromName: Key length too short for key 'zz'.");
}

// Sections of any length that differ in one byte.
TEST(QzName2Tag, EveryByteOfASectionCounts) {
    for (const size_t length :
         std::initializer_list<size_t>{1, 2, 3, 4, 5, 7, 8, 9, 11, 12, 15, 16, 17, 25}) {
        const std::string section(length, 's');
        const VendorTags tags({{section + ".tag", TYPE_BYTE}});
        expectTag((section + ".tag").c_str(), 0x80000000);
        for (size_t i = 0; i < length; ++i) {
            std::string name = section + ".tag";
            name[i] = 'r';
            expectTag(name.c_str(), kNone, "-vendorTagFromName: cann't find section for tag '" + name + "'!");
        }
    }
}

TEST(QzName2Tag, StandardNames) {
    const auto expectStandard = [](const char* name, uint32_t tag, const std::string& line = "") {
        expectTag(name, tag, line, &QzName2Tag::androidTagFromName);
    };
    expectStandard(nullptr, kNone, "androidTagFromName: tag name is NULL!");
    expectStandard("com.ambrix.iso", kNone, "androidTagFromName: cann't find section, invalid tag name!");
    for (const std::string name : {"android.control", "android.control."}) {
        expectStandard(name.c_str(), kNone,
                       "androidTagFromName: Key length too short for key '" + name + "'.");
    }
    for (const std::string name : {"android.control.aemode", "android.flash.available"}) {
        expectStandard(name.c_str(), kNone,
                       "androidTagFromName: Could not find tag name for key '" + name + "'.");
    }
    expectStandard("android.controlXaeMode", 0x10003);
    size_t found = 0;
    for (size_t section = 0; section < 26; ++section) {
        const auto& bounds = camera_metadata_section_bounds[section];
        for (uint32_t tag = bounds[0]; tag < bounds[1]; ++tag, ++found) {
            const std::string name = camera_metadata_section_names[section];
            expectStandard((name + "." + get_camera_metadata_tag_name(tag)).c_str(), tag);
        }
    }
    EXPECT_EQ(found, 219U);
}

}  // namespace
}  // namespace qz::test
