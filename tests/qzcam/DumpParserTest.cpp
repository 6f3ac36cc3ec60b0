// SPDX-License-Identifier: Apache-2.0
#include "device/DumpParser.h"

#include "device/BuiltIn.h"

#include <camera/CameraMetadata.h>
#include <camera/VendorTagDescriptor.h>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace qzcam {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Parsed {
    explicit Parsed(const std::string& text, const std::string& camera = "")
        : problems("d"), device(parseDump(text, "d", camera, problems)) {}

    // Returns "section.name type[count] values" for each entry.
    std::vector<std::string> entries() const {
        const TagNames names(device.vendorTags);
        std::vector<std::string> texts;
        for (const StaticEntry& entry : device.entries) {
            texts.push_back(names.nameOf(entry.tag) + " " + typeAndCount(entry.values) + " " +
                            toText(entry.values, entry.tag));
        }
        return texts;
    }
    std::vector<std::string> complaints() const {
        std::vector<std::string> texts = problems.first();
        for (const Fault& fault : device.faults) texts.push_back(fault.text);
        return texts;
    }
    std::vector<std::string> left() const {
        std::vector<std::string> texts;
        for (const UnusedPart& each : device.unused) texts.push_back(textOf(each));
        return texts;
    }

    Problems problems;
    Device device;
};

constexpr const char* kTitle = "== Camera HAL device device@3.4/legacy/0 (v3.4) static information: ==\n";

// Entries of a camera, in an array that announces them.
std::string entry(const std::string& lines) {
    size_t count = 0;
    for (size_t head = lines.find("): "); head != std::string::npos; head = lines.find("): ", head + 1))
        ++count;
    return fmt::format("{}    Dumping camera metadata array: {} / 9 entries\n{}", kTitle, count, lines);
}

constexpr const char* kVendor =
    "== Vendor tags: ==\n\n"
    "  Dumping configured vendor tag descriptors: 2 entries\n"
    "    0x80000000 (iso) with type 0 (byte) defined in section com.ambrix.capture.metadata\n"
    "    0x80010004 (gain) with type 2 (float) defined in section com.ambrix.device.capabilities\n";

TEST(DumpParser, ReadsEveryKindOfValue) {
    const struct {
        const char* lines;
        const char* entry;
    } kRows[] = {
        {"android.flash.info.available (50000): byte[1]\n[TRUE ]",
         "android.flash.info.available byte[1] 1 (TRUE)"},
        {"android.scaler.availableStreamConfigurations (d000a): int32[8]\n[33 40 30 OUTPUT ]\n[35 20 -2 "
         "INPUT ]",
         "android.scaler.availableStreamConfigurations int32[8] 33 40 30 0 (OUTPUT) 35 20 -2 1 (INPUT)"},
        {"android.control.aeCompensationStep (10016): rational[2]\n[(1 / 3) (-1 / 6) ]",
         "android.control.aeCompensationStep rational[2] 1/3 -1/6"},
        {"android.sensor.exposureTime (e0000): int64[1]\n[-8000000000 ]",
         "android.sensor.exposureTime int64[1] -8000000000"},
        {"com.ambrix.device.capabilities.gain (80010004): float[2]\n[0.98000002 nan ]",
         "com.ambrix.device.capabilities.gain float[2] 0.98 nan"},
        {"android.control.maxRegions (1001c): int32[0]", "android.control.maxRegions int32[0] "},
        // Numbers differ from platform to platform; names do not.
        {"com.ambrix.capture.metadata.iso (99999999): byte[1]\n[7 ]",
         "com.ambrix.capture.metadata.iso byte[1] 7"},
        {"unknownSection.unknownTag (80000000): byte[1]\n[7 ]", "com.ambrix.capture.metadata.iso byte[1] 7"},
    };
    for (const auto& row : kRows) {
        const Parsed parsed(entry(row.lines) + "\n" + kVendor);
        EXPECT_THAT(parsed.entries(), ElementsAre(row.entry)) << row.lines;
        EXPECT_THAT(parsed.problems.first(), IsEmpty()) << row.lines;
        EXPECT_THAT(parsed.left(), IsEmpty()) << row.lines;
    }
}

TEST(DumpParser, ChoosesTheCameraInEverySpellingOfItsTitle) {
    const std::string text =
        "Camera module HAL API version: 0x1\n"
        "Camera 0 information:\n  Device static metadata:\n    Dumping camera metadata array: 1 / 1 entries\n"
        "      android.lens.facing (80005): byte[1]\n        [FRONT ]\n"
        "== Camera device 1 static information: ==\nDumping camera metadata array: 1 / 1 entries\n"
        "android.lens.facing (80005): byte[1]\n[BACK ]\n"
        "Facing: Back\n"
        "  Dumping camera metadata array: 1 / 1 entries\n    android.lens.facing (80005): byte[1]\n      [9 "
        "]\n"
        "== Camera Provider HAL legacy/0 (v2.4, passthrough) static info: 2 devices: ==\n"
        "== Camera HAL device device@3.4/legacy/12 (v3.4) static information: ==\n  API2 characteristics:\n"
        "    Dumping camera metadata array: 1 / 9 entries\n"
        "      android.lens.facing (80005): byte[1]\n        [EXTERNAL ]\n"
        "== Camera device 12 dynamic info: ==\n  Dumping camera metadata array: Not allocated\n"
        "Camera traces (0):\n";
    const struct {
        const char* camera;
        const char* chosen;
        const char* entry;
    } kRows[] = {
        {"", "0", "android.lens.facing byte[1] 0 (FRONT)"},
        {"1", "1", "android.lens.facing byte[1] 1 (BACK)"},
        {"12", "device@3.4/legacy/12", "android.lens.facing byte[1] 2 (EXTERNAL)"},
        {"device@3.4/legacy/12", "device@3.4/legacy/12", "android.lens.facing byte[1] 2 (EXTERNAL)"},
    };
    for (const auto& row : kRows) {
        const Parsed parsed(text, row.camera);
        EXPECT_EQ(parsed.device.camera, row.chosen);
        EXPECT_THAT(parsed.entries(), ElementsAre(row.entry)) << row.camera;
        EXPECT_THAT(parsed.problems.first(), IsEmpty()) << row.camera;
    }
    for (const std::string camera : {"7", "2", "legacy/12"}) {  // not part of a name or number
        const Parsed missing(text, camera);
        EXPECT_THAT(missing.problems.first(), ElementsAre("d: no camera '" + camera +
                                                          "': expected 0 or 1 or 12 (device@3.4/legacy/12)"));
    }
}

TEST(DumpParser, ListsUnusedParts) {
    const Parsed parsed(
        "== Service global info: ==\nNumber of camera devices: 2\n" +
        entry("      android.newest.location (1c0000): byte[1]\n        [INTERIOR ]\n"
              "      unknownSection.unknownTag (80990000): unknown[3]\n"
              "      android.request.availableCapabilities (c000c): byte[2]\n        [RAW NEWEST_CASE_2 ]\n"
              "      android.control.maxRegions (1001c): byte[1]\n        [1 ]\n"
              "      android.jpeg.availableThumbnailSizes (70007): int32[18]\n        [0 1 2 3 ]\n        [4 "
              "5 6 7 ]\n"
              "        [8 9 10 11 ]\n        [12 13 14 15 ]\n"
              "      android.jpeg.quality (70004): byte[1]\n        [9 ]\n"
              "      android.jpeg.quality (70004): byte[1]\n        [8 ]\n") +
        "== Another: ==\n" + kVendor + "== Camera error traces (0): ==\n");
    EXPECT_THAT(
        parsed.left(),
        ElementsAre("line 5: entries of unknown tags: android.newest.location (1c0000) byte[1]",
                    "line 7: entries of unknown tags: unknownSection.unknownTag (80990000) unknown[3]",
                    "line 8: entries with unknown words: android.request.availableCapabilities (c000c) "
                    "byte[2] NEWEST_CASE_2",
                    "line 10: entries of another type than their tag's: android.control.maxRegions (1001c) "
                    "byte[1]",
                    "line 19: repeated entries: android.jpeg.quality (70004) byte[1]",
                    "line 21: other sections: Another"));
    EXPECT_EQ(
        summaryOf(parsed.device.unused),
        "entries of unknown tags (2), entries of another type than their tag's (1), entries with unknown words "
        "(1), repeated entries (1), other sections (1)");
    EXPECT_EQ(parsed.device.cutLists, 1U);
    EXPECT_THAT(parsed.entries(), ElementsAre("android.request.availableCapabilities byte[2] 3 (RAW) 255",
                                              "android.jpeg.availableThumbnailSizes int32[16] "
                                              "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15",
                                              "android.jpeg.quality byte[1] 9"));
    const StaticEntry& marked = parsed.device.entries[0];
    EXPECT_EQ(toText(marked.values, marked.tag, marked.words), "3 (RAW) ? (NEWEST_CASE_2)");
    EXPECT_THAT(parsed.problems.first(), IsEmpty());
}

// Tags and names that are newer than the headers of this build. A newer platform may give them other numbers.
TEST(DumpParser, ReadsNewerPlatforms) {
    const Parsed parsed(entry(
        "      android.control.zoomRatioRange (1002e): float[2]\n        [1.00000000 8.00000000 ]\n"
        "      android.control.aeMode (10003): byte[1]\n        [ON_EXTERNAL_FLASH ]\n"
        "      android.scaler.rotateAndCrop (d0011): byte[2]\n        [90 AUTO ]\n"
        "      android.request.availableColorSpaceProfilesMap (c0015): int64[3]\n        [UNSPECIFIED "
        "16 ]\n        [7 ]\n"
        "      android.automotive.location (1c0000): byte[1]\n        [INTERIOR ]\n"
        "      android.request.availableSessionKeys (c0010): int32[3]\n        [65537 (mode) -2147483648 (iso) "
        "7 ]\n"
        "      android.control.aeAvailableModes (10013): byte[0]\n"));
    EXPECT_THAT(parsed.problems.first(), IsEmpty());
    EXPECT_THAT(parsed.entries(),
                ElementsAre("android.control.zoomRatioRange float[2] 1 8",
                            "android.control.aeMode byte[1] 5 (ON_EXTERNAL_FLASH)",
                            "android.scaler.rotateAndCrop byte[2] 1 (90) 4 (AUTO)",
                            "android.request.availableColorSpaceProfilesMap int64[3] -1 (UNSPECIFIED) 16 "
                            "(BT2020_HLG) 7 (DISPLAY_P3)",
                            "android.automotive.location byte[1] 0 (INTERIOR)",
                            "android.request.availableSessionKeys int32[3] 65537 -2147483648 7",
                            "android.control.aeAvailableModes byte[0] "));
    EXPECT_EQ(staticCharacteristics(parsed.device).entryCount(), 7U);
}

TEST(DumpParser, TakesAsManyVendorTagsAsThePlatform) {
    std::string text = "== Vendor tags: ==\n\n  Dumping configured vendor tag descriptors: 65538 entries\n";
    for (unsigned i = 0; i < 65538; ++i) {
        text += fmt::format("    {:#x} (n{}) with type 0 (byte) defined in section s\n", 0x80000000U + i, i);
    }
    const Parsed parsed(text + entry("      android.control.mode (1000f): byte[1]\n        [AUTO ]\n"));
    EXPECT_EQ(parsed.device.vendorTags.size(), 65536U);
    EXPECT_THAT(
        parsed.problems.first(),
        ElementsAre("d:65540: more than 65536 vendor tags: this one and those after it are left out"));
    EXPECT_EQ(summaryOf(parsed.device.unused), "vendor tags beyond the limit of the host platform (2)");
    installVendorTags(parsed.device);
    EXPECT_EQ(android::VendorTagDescriptor::getGlobalVendorTagDescriptor()->getTagCount(), 65536);
    android::VendorTagDescriptor::clearGlobalVendorTagDescriptor();
}

TEST(DumpParser, ReadsVendorBlocks) {
    const Parsed parsed(entry("") + "Vendor tags:\n" +
                        "    Dumping configured vendor tag descriptors: 4 entries\n"
                        "      0x80000000 (fps (max)) with type 1 (int32) defined in section org.other\n"
                        "      0x80000000 (fps) with type 1 (int32) defined in section org.other\n"
                        "      0x80000009 (odd) with type 9 (blob) defined in section org.other\n"
                        "      0x80000008 (fps) with type 1 (int32) defined in section org.other\n");
    std::vector<std::string> tags;
    for (const Tag& tag : parsed.device.vendorTags)
        tags.push_back(fmt::format("{:x} {}", tag.id, tag.fullName()));
    EXPECT_THAT(tags, ElementsAre("80000000 org.other.fps (max)", "80000008 org.other.fps"));
    EXPECT_EQ(summaryOf(parsed.device.unused), "entries of unknown types (1), repeated vendor tags (1)");
    EXPECT_THAT(parsed.problems.first(), IsEmpty());
    ASSERT_EQ(parsed.device.faults.size(), 1U);
    EXPECT_EQ(parsed.device.faults[0].text,
              "org.other.fps has the number 0x80000000 of org.other.fps (max) in line 5");

    const Parsed none(entry("") +
                      "== Vendor tags: ==\n\n  Dumping configured vendor tag descriptors: None set\n");
    installVendorTags(none.device);
    EXPECT_EQ(android::VendorTagDescriptor::getGlobalVendorTagDescriptor(), nullptr);
    EXPECT_THAT(none.problems.first(), IsEmpty());
    EXPECT_TRUE(none.device.hasVendorSection && !none.device.hasVendorTags);
}

TEST(DumpParser, ReportsBrokenPartsWithTheirLine) {
    const struct {
        std::string text;
        const char* problem;  // part of the message
    } kRows[] = {
        {"", "d: no camera in it"},
        {entry("      android.flash.info.available (50000): byte[1]\n        [TRUE \n"),
         "d:4: expected ']' at the end"},
        {entry("      android.flash.info.available (50000): byte[1\n"),
         "d:3: expected an entry, its values or a vendor tag, not"},
        {entry("      android.flash.info.available (5zz00): byte[1]\n"), "d:3: expected an entry"},
        {entry("        [TRUE ]\n"), "d:3: expected an entry, its values"},
        {entry("      android.flash.info.available (50000): byte[1]\n        [TRUE ] ]\n"),
         "android.flash.info.available is byte[1], but has more values"},
        {entry("      android.flash.info.available (50000): byte[2]\n        [TRUE ]\n"),
         "android.flash.info.available is byte[2], but has 1 value"},
        {entry("      android.flash.info.available (50000): byte[4000000000]\n"),
         "android.flash.info.available is byte[4000000000], but has no values"},
        {entry("      android.flash.info.available (50000): byte[1]\n        [256 ]\n"),
         "d:4: expected a number from 0 to 255, not '256'"},
        {entry("      android.control.aeCompensationStep (10016): rational[1]\n        [1 / 3 ]\n"),
         "d:4: expected '(n / d)', not '1 / 3'"},
        {entry("      android.control.aeCompensationStep (10016): rational[1]\n        [(1 / 3 ]\n"),
         "d:4: expected '(n"},
        {entry("") + kVendor + "    0x80000001 (burst) with type 0 (byte\n",
         "d:8: expected an entry, its values or a vendor tag"},
        {entry("") + kVendor + "    0x80000001 (\033[31m) with type 0 (byte) defined in section s\n",
         R"(d:8: expected an entry, its values or a vendor tag, not '0x80000001 (\x1b[31m))"},
        {entry("") + kVendor + "    0x80000001 (burst) with type 5 (float) defined in section s\n",
         "d:8: type 5 of burst is rational, not 'float'"},
        {entry("") + kVendor + "    0x80000000 (burst) with type 0 (byte) defined in section s\n",
         "s.burst has the number 0x80000000 of com.ambrix.capture.metadata.iso in line 6"},
        {entry("      android.lens.facing (80005): b\033e[1]\n"), "d:3: expected an entry"},
        {entry("") + kVendor + "    0x00000001 (burst) with type 0 (byte) defined in section s\n",
         "d:8: expected an entry, its values or a vendor tag"},
        {entry("") + "Dumping configured vendor tag descriptors: 3 entries\n" +
             std::strstr(kVendor, "    0x"),
         "d:5: the dump ends here: the list of vendor tags has 2 of 3 tags"},
        {std::string(kTitle) +
             "Dumping camera metadata array: 2 / 2 entries\n android.lens.facing (80005): byte[1]\n [1 ]",
         "d:4: the dump ends here: the array 'static' of camera 0 has 1 of 2 entries"},
    };
    for (const auto& row : kRows) {
        const Parsed parsed(row.text);
        EXPECT_THAT(parsed.complaints(), Contains(HasSubstr(row.problem))) << row.text;
    }
}

TEST(DumpParser, UsesTheRestOfABrokenDump) {
    const Parsed parsed(
        entry("      android.lens.facing (80005): byte[1]\n        [BACK \n"
              "      android.flash.info.available (50000): byte[1]\n        [TRUE ]\n"
              "      android.jpeg.orientation (70003): int32[1\n        [90 ]\n"
              "      android.jpeg.quality (70004): byte[1]\n        [9 ]\n"));
    EXPECT_THAT(parsed.entries(), ElementsAre("android.flash.info.available byte[1] 1 (TRUE)",
                                              "android.jpeg.quality byte[1] 9"));
    EXPECT_EQ(parsed.problems.count(), 3U) << "both lines, and the array has fewer entries than it says";
}

// A dump that is cut or overwritten at any place is parsed, and every entry has the type of its tag.
TEST(DumpParser, SurvivesCutsAndGarbage) {
    const std::string whole(builtInDevice());
    uint32_t state = 7;
    const auto random = [&] { return (state = state * 1664525 + 1013904223) >> 8U; };
    for (int round = 0; round < 200; ++round) {
        std::string text = whole.substr(0, round % 2 == 0 ? whole.size() : random() % whole.size());
        for (size_t hit = random() % 40; hit > 0 && !text.empty(); --hit) {
            text[random() % text.size()] = static_cast<char>(random() % 256);
        }
        const Parsed parsed(text);
        installVendorTags(parsed.device);
        EXPECT_EQ(staticCharacteristics(parsed.device).entryCount(), parsed.device.entries.size());
    }
    android::VendorTagDescriptor::clearGlobalVendorTagDescriptor();
}

TEST(TagNames, ResolvesShortNamesThatAreClear) {
    const TagNames names({{0x80000000, TYPE_BYTE, "a.b", "iso"},
                          {0x80000001, TYPE_BYTE, "a.b", "both"},
                          {0x80000002, TYPE_BYTE, "c.d", "both"}});
    const struct {
        const char* name;
        uint32_t tag;
        const char* wrong;
    } kRows[] = {
        {"iso", 0x80000000, nullptr},
        {"c.d.both", 0x80000002, nullptr},
        {"exposureTime", ANDROID_SENSOR_EXPOSURE_TIME, nullptr},
        {"android.lens.info.availableApertures", ANDROID_LENS_INFO_AVAILABLE_APERTURES, nullptr},
        {"both", 0, "'both' may be a.b.both or c.d.both: expected one of these"},
        {"availableModes", 0,
         "'availableModes' may be android.control.availableModes or "
         "android.distortionCorrection.availableModes or android.shading.availableModes: expected one of "
         "these"},
        {"nothing", 0, "this device declares no tag 'nothing'"},
    };
    for (const auto& row : kRows) {
        const auto found = names.resolve(row.name);
        if (row.wrong) {
            EXPECT_EQ(std::get<std::string>(found), row.wrong);
        } else {
            EXPECT_EQ(std::get<const Tag*>(found)->id, row.tag) << row.name;
        }
    }
}

}  // namespace
}  // namespace qzcam
