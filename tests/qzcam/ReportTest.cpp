// SPDX-License-Identifier: Apache-2.0
#include "device/Report.h"

#include "device/Cameras.h"
#include "device/DumpParser.h"
#include "support/DumpComposer.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace qzcam {
namespace {

using test::dumpOf;
using test::DumpPhone;
using test::kPlatforms;
using test::samplePhone;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

std::string described(const MetadataArray& array) {
    std::string text =
        nameOf(array) + (array.previousSession ? " before" : "") + " of " + std::string(array.camera);
    for (const ArrayEntry& entry : array.entries) text += fmt::format(" {}", entry.name);
    return text;
}

std::string described(const std::string& name, const std::vector<test::DumpEntry>& entries) {
    std::string text = name;
    for (const test::DumpEntry& entry : entries) text += " " + entry.name;
    return text;
}

// Each part that the composer has put into the dump is at its place.
std::vector<std::string> composed(const DumpPhone& phone) {
    std::vector<std::string> arrays;
    for (const test::DumpCamera& camera : phone.cameras) {
        arrays.push_back(described("static of " + camera.id, camera.entries));
        for (const auto& [id, entries] : camera.physical) {
            if (phone.platform < 10) continue;
            arrays.push_back(described("static of physical camera " + id + " of " + camera.id, entries));
        }
        if (camera.client.empty()) continue;
        arrays.push_back(described("latest received frame of " + camera.id, camera.client[0].entries));
        arrays.push_back(described("last request sent of " + camera.id, camera.client[1].entries));
    }
    if (phone.platform < 12) return arrays;
    arrays.push_back(described("latest received frame before of 0", phone.previousSession[0].entries));
    arrays.push_back(described("last request sent before of 0", phone.previousSession[1].entries));
    return arrays;
}

TEST(Report, ReadsEveryEntryOfEachVersion) {
    for (const int platform : kPlatforms) {
        const DumpPhone phone = samplePhone(platform);
        const std::string text = dumpOf(phone);
        const Report report = readDump(text);
        std::vector<std::string> arrays;
        for (const MetadataArray& array : report.arrays) arrays.push_back(described(array));
        EXPECT_THAT(arrays, UnorderedElementsAreArray(composed(phone))) << platform;

        Problems problems("d");
        addDamage(report, problems);
        for (const test::DumpCamera& camera : phone.cameras) {
            const Device device = deviceOf(report, camera.id, problems);
            EXPECT_EQ(device.entries.size(), camera.entries.size()) << platform << " " << camera.id;
            EXPECT_THAT(device.notes, IsEmpty());
            for (const UnusedPart& part : device.unused) {
                EXPECT_TRUE(part.kind == UnusedPart::Kind::HalText ||
                            part.kind == UnusedPart::Kind::OtherBlock)
                    << textOf(part);
            }
        }
        EXPECT_THAT(problems.first(), IsEmpty()) << platform;
        EXPECT_THAT(report.faults, IsEmpty());
        EXPECT_EQ(report.vendorBlocks.size(), phone.blocks.size());
        EXPECT_EQ(report.providers.size(), platform == 7 ? 0U : 2U);
        EXPECT_EQ(report.apiMap.size(), platform < 9 ? 0U : 2U);
        EXPECT_EQ(report.monitors.size(), 1U);
        EXPECT_EQ(report.events.size(), 1U);
        ASSERT_EQ(report.shimParameters.size(), 1U);
        const auto& shim = report.shimParameters[0].parameters;
        ASSERT_EQ(shim.size(), 3U) << platform;
        EXPECT_EQ(shim[2].key, "zoom");
        EXPECT_TRUE(!shim[0].cut && shim[1].cut && !shim[2].cut) << "lines of 254 bytes run together";
    }
}

TEST(Report, DescribesCameras) {
    for (const int platform : kPlatforms) {
        const std::string text = dumpOf(samplePhone(platform));
        const Report report = readDump(text);
        ASSERT_EQ(report.cameras.size(), 2U);
        const ReportedCamera& back = report.cameras[0];
        EXPECT_EQ(back.facing, "back");
        EXPECT_EQ(back.orientation, 90);
        EXPECT_EQ(back.level, "FULL");
        EXPECT_EQ(back.version, platform == 7 ? "0x303" : "3.4");
        EXPECT_EQ(back.client, "com.example.camera");
        EXPECT_TRUE(back.isOpen && !report.cameras[1].isOpen);
        EXPECT_EQ(report.cameras[1].facing, "front");
        EXPECT_EQ(back.physicalIds.size(), platform < 9 ? 0U : 2U);
    }
}

// Vendor blocks may use a number for different tags.
TEST(Report, GivesEachCameraTheBlockOfItsProvider) {
    const std::string text = dumpOf(samplePhone(13));
    const auto report = std::make_shared<Report>(readDump(text));
    Cameras cameras(report, "d");
    EXPECT_THAT(cameras.numbers(), ElementsAre(0, 1));
    EXPECT_EQ(cameras.find(0)->vendorTags[0].name, "iso");
    EXPECT_EQ(cameras.find(1)->vendorTags[0].name, "image.brightness");
    EXPECT_EQ(cameras.find(2), nullptr);

    DumpPhone phone = samplePhone(13);
    phone.blocks[1].tags.push_back(phone.blocks[0].tags[2]);
    phone.cameras[0].client.clear();  // no other line has the client
    phone.previousSession.clear();
    const std::string alike = dumpOf(phone);
    Problems problems("d");
    EXPECT_THAT(deviceOf(readDump(alike), "0", problems).notes,
                ElementsAre(HasSubstr("vendor block 3571857947 (line ")));
}

std::string withoutVendorTags(std::string text) { return text.substr(0, text.find("== Vendor tags")); }

TEST(Report, ReportsWhereADumpIsCut) {
    const std::string text = dumpOf(samplePhone(11));
    const std::string closed = dumpOf(samplePhone(13));
    const std::string inArray = text.substr(0, text.find("        [33 4000"));
    const struct {
        std::string text;
        const char* cut;
    } kRows[] = {
        {withoutVendorTags(text), "the dump ends before its vendor tags"},
        {inArray, "the dump ends here: the array 'static' of camera 0 has 5 of 8 entries"},
        {text.substr(0, text.find("    0x80010000")),
         "the dump ends here: the list of vendor tags has 2 of 3 tags"},
        {withoutVendorTags(text) + "\n*** SERVICE 'media.camera' DUMP TIMEOUT (10000ms) EXPIRED ***\n",
         "the service did not finish its dump in time"},
        {dumpOf(samplePhone(7)).substr(0, dumpOf(samplePhone(7)).find("Camera 1 information")),
         "the dump ends with 1 of 2 cameras"},
        {dumpOf(samplePhone(7)).substr(0, dumpOf(samplePhone(7)).find("Camera 0 information")),
         "the dump ends with 0 of 2 cameras"},
        {text.substr(0, text.find("  Dumping vendor tag", text.find("with id 3571857947"))),
         "the dump ends before its camera traces"},
        {closed.substr(0, closed.rfind("    Last request sent")),
         "the dump ends within a session that was closed before"},
    };
    for (const auto& row : kRows) {
        const Report report = readDump(row.text);
        ASSERT_FALSE(report.cuts.empty()) << row.cut;
        EXPECT_EQ(report.cuts[0].text, row.cut);
    }
    Problems problems("d");
    const std::string cut = withoutVendorTags(text);
    const Device device = deviceOf(readDump(cut), "0", problems);
    EXPECT_FALSE(device.hasVendorSection);
    EXPECT_EQ(device.vendorTags.size(), 3U) << "those that entries name";
    EXPECT_EQ(device.entries.size(), samplePhone(11).cameras[0].entries.size());
}

TEST(Report, NamesFaultsOfTheHal) {
    DumpPhone phone = samplePhone(8);
    auto& tags = phone.blocks[0].tags;
    tags.push_back({0x80000002, 1, "com.ambrix.capture.metadata", "iso"});
    tags.push_back({0x80000001, 1, "org.other", "delay"});
    phone.cameras[0].entries.push_back({"android.jpeg.maxSize", 0x70008, "int32", {"1"}});
    std::string text = dumpOf(phone);
    const size_t count = text.find("int32[1]", text.find("android.jpeg.maxSize"));
    text[count + 6] = '3';
    Problems problems("d");
    const Device device = deviceOf(readDump(text), "0", problems);
    std::vector<std::string> faults;
    for (const Fault& fault : device.faults) faults.push_back(fault.text);
    EXPECT_THAT(faults,
                ElementsAre(HasSubstr("com.ambrix.capture.metadata.iso is declared twice, as byte in line"),
                            HasSubstr("org.other.delay has the number 0x80000001 of "
                                      "com.ambrix.capture.metadata.burst-delay-ms in line"),
                            "android.jpeg.maxSize is int32[3], but has 1 value"));
}

// A garbled line costs only this line, whatever its indentation. A text may also have lost its indentation.
TEST(Report, ContinuesAfterGarbledLines) {
    const DumpPhone phone = samplePhone(10);
    const std::string whole = dumpOf(phone);
    size_t lines = 0;
    for (size_t start = whole.find("API2 camera"); start < whole.find("dumpState");
         start = whole.find('\n', start) + 1) {
        std::string text = whole;
        text.replace(start, whole.find('\n', start) - start, ++lines % 2 == 0 ? "%%%" : "             %%%");
        Problems problems("d");
        const Device device = deviceOf(readDump(text), "0", problems);
        EXPECT_GE(device.entries.size() + 1, phone.cameras[0].entries.size()) << lines;
    }
    std::string flat;
    bool blank = true;
    for (const char c : whole) {
        if (!blank || c != ' ') flat += c;
        blank = c == '\n' || (blank && c == ' ');
    }
    Problems problems("d");
    const Report report = readDump(flat);
    EXPECT_EQ(deviceOf(report, "0", problems).entries.size(), phone.cameras[0].entries.size());
    EXPECT_EQ(report.arrays.size(), readDump(whole).arrays.size());
    EXPECT_THAT(report.differences, IsEmpty());
}

}  // namespace
}  // namespace qzcam
