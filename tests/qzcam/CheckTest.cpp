// SPDX-License-Identifier: Apache-2.0
#include "verdict/Check.h"

#include "Tool.h"
#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "facts/Tags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <vector>

namespace qzcam {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

// Returns the built-in device with another entry, or with another type for a tag.
std::string capability(const std::string& name, const std::string& entry, const std::string& values) {
    const std::string text(builtInDevice());
    const std::string begin = "com.ambrix.device.capabilities." + name + " (";
    const size_t place = text.find(begin);
    EXPECT_NE(place, std::string::npos) << name;
    const size_t type = text.find("): ", place) + 3;
    size_t end = text.find('\n', type);
    while (text.compare(end, 10, "\n        [") == 0) end = text.find('\n', end + 1);
    return text.substr(0, type) + entry + "\n        [" + values + " ]" + text.substr(end);
}

std::string builtInDeviceWith(const std::string& from, const std::string& to) {
    std::string text(builtInDevice());
    return text.replace(text.find(from), from.size(), to);
}

std::string declared(const std::string& tag, const std::string& type) {
    std::string text(builtInDevice());
    const size_t place = text.find("(" + tag + ") with type ");
    EXPECT_NE(place, std::string::npos) << tag;
    const size_t begin = text.find("type ", place);
    return text.replace(begin, text.find(" defined", place) - begin, "type " + type);
}

// A list of the dump that shows 16 of its values.
std::string cut(std::string text) {
    const std::string whole = "aeAvailableTargetFpsRanges (10014): int32[6]";
    const size_t place = text.find(whole);
    const size_t end = text.find("android.", place);
    return text.replace(
        place, end - place,
        "aeAvailableTargetFpsRanges (10014): int32[18]\n[1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 ]\n");
}

struct Case {
    const char* what;
    std::string dump;
    TagVerdict verdict;
    const char* tag;
    const char* says;
};

TEST(Check, Findings) {
    using V = TagVerdict;
    const std::vector<Case> cases{
        {"a request's type", declared("iso", "1 (int32)"), V::Mistyped, ".iso", "the update fails (-38)"},
        {"a result's type", declared("isoState", "0 (byte)"), V::Mistyped, "isoState", "read as empty"},
        {"a capability's type", declared("zslSupported", "1 (int32)"), V::Mistyped, "zslSupported",
         "read as empty: zsl-mode-supported is not published"},
        {"an inspected list's type", declared("qzSubSensorJpegSize", "3 (int64)"), V::Mistyped,
         "qzSubSensorJpegSize", ""},
        {"half a range", capability("sensorWbRange", "int32[1]", "5"), V::Malformed, "sensorWbRange",
         "1 value, where exactly 2 are expected: the library ignores it: qz-sensor-wb-range is not "
         "published"},
        {"more than a range", capability("faceBeautyRange", "int32[3]", "0 9 4"), V::Malformed,
         "faceBeautyRange", "3 values, where exactly 2"},
        {"a range backwards", capability("qz-sensor-iso-range", "int32[2]", "3200 50"), V::Malformed,
         "qz-sensor-iso-range", "from 3200 down to 50"},
        {"an odd list of sizes", capability("superResolutionPictureSize", "int32[3]", "652 489 652"),
         V::Malformed, "superResolutionPictureSize", "unpaired"},
        {"half a size", capability("qzSubSensorJpegSize", "int32[1]", "4000"), V::Malformed,
         "qzSubSensorJpegSize", "published as an empty text"},
        {"an unknown number", capability("supported_iso_values", "byte[3]", "0 2 200"), V::Malformed,
         "supported_iso_values", "unknown number 200"},
        {"many unknown numbers",
         capability("supported_iso_values", "byte[12]", "0 99 98 97 96 95 94 93 92 91 90 89"), V::Malformed,
         "supported_iso_values", "92 (published as 'unknown'), and more"},
        {"a text that does not end", capability("mmiTestFeatureSupported", "byte[3]", "97 98 99"),
         V::Malformed, "mmiTestFeatureSupported", "without terminator"},
        {"an area of three", capability("qzSubActiveArraySize", "int32[3]", "0 0 9"), V::Malformed,
         "qzSubActiveArraySize", "2 or 4"},
        {"a range that its buffer cannot hold",
         capability("qz-sensor-iso-range", "int32[2]", "-2147483648 2147483647"), V::Malformed,
         "qz-sensor-iso-range", "the library logs an error: getSensorISORange(), snprintf_s failed!"},
        {"a flag of seven", capability("burstModeSupported", "byte[1]", "7"), V::Doubtful,
         "burstModeSupported", "a flag of 7"},
        {"two values for one", capability("burstCountSupported", "int32[2]", "7 8"), V::Doubtful,
         "burstCountSupported", "only the first is read"},
        {"no values", capability("exposureLevelRange", "int32[0]", ""), V::NoEntry, "exposureLevelRange",
         "this camera's entry has no values"},
        {"an entry of another type than its tag", capability("qz-sensor-iso-range", "byte[2]", "50 200"),
         V::Malformed, "qz-sensor-iso-range",
         "entry is byte[2], tag declares int32: read as empty (line 255)"},
        {"a standard entry of another type",
         builtInDeviceWith("availableMaxDigitalZoom (d0004): float",
                           "availableMaxDigitalZoom (d0004): int32"),
         V::Malformed, "android.scaler.availableMaxDigitalZoom", "entry is int32[1], tag declares float"},
        {"an entry of no type", capability("qz-sensor-iso-range", "int33[2]", "50 3200"), V::Malformed,
         "qz-sensor-iso-range", "entry is int33[2], tag declares int32: read as empty"},
        {"a text that does not end beside a list that is cut",
         cut(capability("apertureValueSupported", "byte[16]", "9 9 9 9 9 9 9 9 9 9 9 9 9 9 9 9")),
         V::Malformed, "apertureValueSupported", "without terminator"},
        {"a text that is cut",
         capability("apertureValueSupported", "byte[17]", "57 57 57 57 57 57 57 57 57 57 57 57 57 57 57 57"),
         V::Fine, "apertureValueSupported", ""},
        {"a single gain", capability("oisDefaultGryoGain", "float[1]", "0.5"), V::Fine, "oisDefaultGryoGain",
         ""},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.what);
        Problems problems("d");
        const DeviceCheck check = checkDevice(parseDump(row.dump, "d", "", problems));
        EXPECT_EQ(check.failed(), row.verdict == V::Mistyped || row.verdict == V::Malformed);
        if (row.verdict == V::Fine) {
            EXPECT_EQ(check.count(V::Fine) + 1, check.tags.size());  // and the name without a section
            continue;
        }
        const auto isIt = [&](const TagCheck& tag) {
            return endsWith(tag.tag(), row.tag) && tag.verdict == row.verdict;
        };
        const auto found = std::find_if(check.tags.begin(), check.tags.end(), isIt);
        ASSERT_NE(found, check.tags.end()) << check.tags.front().tag() << ": " << check.tags.front().problem;
        EXPECT_THAT(found->problem, HasSubstr(row.says));
        EXPECT_TRUE(found == check.tags.begin() || !check.failed()) << "the worst comes first";
    }
}

// A feature with two mistyped tags comes before a feature with one. Malformed entries come after mistyped
// tags.
TEST(Check, SortsWorstFirst) {
    std::string text = capability("denoiseSupported", "byte[1]", "7");
    const auto change = [&](const std::string& tag, const std::string& with) {
        const size_t place = text.find("(" + tag + ") with type ");
        ASSERT_NE(place, std::string::npos) << tag;
        text.replace(place, text.find(" defined", place) - place, with);
    };
    change("oisHallCalib", "(oisHallCalib) with type 1 (int32)");
    change("sensorIso", "(sensorIso) with type 0 (byte)");
    change("proExposureTime", "(proExposureTime) with type 0 (byte)");
    change("sensorWbRange", "(sensorWbRanje) with type 1 (int32)");
    Problems problems("d");
    const DeviceCheck check = checkDevice(parseDump(text, "d", "", problems));
    std::vector<std::string> features;
    for (const FeatureCheck& feature : byFeature(check)) {
        features.emplace_back(feature.name());
        EXPECT_TRUE(std::is_sorted(feature.begin, feature.end, [](const TagCheck& a, const TagCheck& b) {
            return a.verdict < b.verdict;
        })) << feature.name();
    }
    ASSERT_GE(features.size(), 3U);
    EXPECT_EQ(features[0], "professional");
    EXPECT_EQ(features[1], "stabilisation");
    EXPECT_EQ(features[2], "image");
}

TEST(Check, NamesKeysOfATag) {
    const auto namesOf = [](Use use, const std::string& tag) {
        const auto& facts = tagFacts();
        const auto found = std::find_if(facts.begin(), facts.end(), [&](const TagFact& fact) {
            return fact.use == use && endsWith(fact.entry.tag, "." + tag);
        });
        return found == facts.end() ? std::vector<std::string>{"none"} : found->names;
    };
    EXPECT_THAT(namesOf(Use::Capability, "qzSubActiveArraySize"),
                ElementsAre("qz-dual-primary-mode", "zoom"));
    EXPECT_THAT(namesOf(Use::Capability, "availableMaxDigitalZoom"),
                ElementsAre("zoom", "max-zoom", "qz-dual-primary-mode"));
    EXPECT_THAT(namesOf(Use::Capability, "superResolutionPictureSize"),
                ElementsAre("super-resolution-picture-size-values"));
    EXPECT_THAT(namesOf(Use::Request, "manualFocusValue"),
                ElementsAre("qz-magnifier-step-value", "qz-manual-focus-step-value"));
    EXPECT_THAT(namesOf(Use::Request, "qz-jpeg-quality"), ElementsAre("jpeg-quality"));
    EXPECT_THAT(namesOf(Use::Request, "qz-picture-height"), ElementsAre("picture-size"));
    EXPECT_THAT(namesOf(Use::Result, "hintUser"), ElementsAre("smart-mode"));
}

TEST_F(RunTool, CheckSortsByWorstAndSetsTheStatus) {
    const std::string mistyped = file("mistyped.txt", declared("oisHallCalib", "1 (int32)"));
    EXPECT_EQ(tool({"check", "--device", mistyped}), kFailed);
    EXPECT_THAT(
        mOut,
        HasSubstr("\nstabilisation\n  mistyped   request     com.ambrix.capture.metadata.oisHallCalib\n"));
    EXPECT_THAT(mOut, HasSubstr("declared int32, expected byte"));
    EXPECT_LT(mOut.find("\nstabilisation"), mOut.find("\npanorama"));
    EXPECT_THAT(mOut, Not(HasSubstr("\033")));
    EXPECT_THAT(mOut, EndsWith("\n1 mistyped, 0 malformed, 1 missing\n"));

    EXPECT_EQ(tool({"check", "--device", mistyped, "--json"}), kFailed);
    const auto json = nlohmann::json::parse(mOut);
    EXPECT_EQ(json["format"], "qzcam-check");
    EXPECT_EQ(json["version"], 1);
    EXPECT_EQ(json["counts"]["mistyped"], 1);
    EXPECT_EQ(json["counts"]["noEntry"], 0);
    const auto& worst = json["features"][0];
    EXPECT_EQ(worst["feature"], "stabilisation");
    EXPECT_EQ(worst["tags"][0]["tag"], "com.ambrix.capture.metadata.oisHallCalib");
    EXPECT_EQ(worst["tags"][0]["declared"], "int32");
    EXPECT_EQ(worst["tags"][0]["expected"], "byte");
    EXPECT_EQ(worst["tags"][0]["counts"], 1);
    EXPECT_THAT(worst["tags"][0]["for"], ElementsAre("qz_ois_hall_calib"));

    EXPECT_EQ(tool({"check"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("Nothing is mistyped or malformed; 1 missing."));
    EXPECT_THAT(mOut, Not(HasSubstr("other cameras:")));
}

// The second camera has one entry, with a value that the library cannot use.
TEST_F(RunTool, CheckOfAllCamerasIsATable) {
    const std::string path = file(
        "two.txt", std::string(builtInDevice()) +
                       "== Camera HAL device device@3.4/legacy/1 (v3.4) static information: ==\n"
                       "  API2 camera characteristics:\n"
                       "    Dumping camera metadata array: 1 / 1 entries, 8 / 8 bytes of extra data.\n"
                       "      Version: 1, Flags: 00000000\n"
                       "      com.ambrix.device.capabilities.qz-sensor-exposure-range (80010038): int32[1]\n"
                       "        [5 ]\n");
    EXPECT_EQ(tool({"check", "--device", path}), kFailed) << mErr;
    EXPECT_THAT(mOut, testing::ContainsRegex("\n +camera 0 +camera 1\n"));
    EXPECT_THAT(mOut, testing::ContainsRegex("\nprofessional +fine +1 malformed\n"));
    EXPECT_THAT(mOut, HasSubstr("capabilities.qz-sensor-exposure-range  (camera 1)\n"));
    const std::string table = mOut;
    EXPECT_EQ(tool({"check", "--device", path, "--camera", "all"}), kFailed);
    EXPECT_EQ(mOut, table);
    EXPECT_EQ(tool({"check", "--device", path, "--camera", "0"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("\n  other cameras: device@3.4/legacy/1; --camera chooses one\n"));

    EXPECT_EQ(tool({"check", "--device", path, "--json"}), kFailed);
    const auto json = nlohmann::json::parse(mOut);
    EXPECT_EQ(json["format"], "qzcam-check-all");
    ASSERT_EQ(json["cameras"].size(), 2U);
    EXPECT_EQ(json["cameras"][0]["failed"], false);
    EXPECT_EQ(json["cameras"][1]["camera"], "device@3.4/legacy/1");
    EXPECT_EQ(json["cameras"][1]["counts"]["malformed"], 1);
}

TEST_F(RunTool, CheckOfAPhoneWithoutTheTagsPrintsATable) {
    const std::string camera = "== Camera HAL device device@3.4/legacy/0 (v3.4) static information: ==\n";
    const std::string foreign =
        "  Dumping configured vendor tag descriptors: 1 entries\n"
        "    0x80000000 (mode) with type 0 (byte) defined in section org.example\n";
    const std::vector<std::pair<std::string, const char*>> phones{
        {camera + foreign, "declares none of the library's vendor tags"},
        {camera + "  Dumping configured vendor tag descriptors: None set\n", "has no vendor tags"},
        {camera + "Vendor tags:\n0xfffffffe (last) with type 0 (byte) defined in section org.example\n" +
             foreign,
         "declares none of the library's vendor tags"},
    };
    for (const auto& [dump, says] : phones) {
        const std::string path = file("phone.txt", dump);
        EXPECT_EQ(tool({"explain", "iso", "--device", path}), kFine) << mErr;
        EXPECT_EQ(tool({"check", "--device", path}), kFine) << mErr;
        EXPECT_THAT(mOut, HasSubstr(says));
        EXPECT_THAT(mOut, testing::ContainsRegex("\nstabilisation +15 +- +- +- +15 +- +-\n"));
        EXPECT_LT(std::count(mOut.begin(), mOut.end(), '\n'), 24) << "a table, no list";
    }
}

// Every command that reads a dump reports the problem with its line, and uses the readable part of the dump.
TEST_F(RunTool, BrokenDumpIsReported) {
    const std::string whole(builtInDevice());
    const auto iso = whole.begin() + static_cast<std::ptrdiff_t>(whole.find("(iso) with"));
    const std::string lineOfIso = std::to_string(std::count(whole.begin(), iso, '\n') + 1);
    const struct {
        const char* what;
        std::string dump;
        std::string says;  // after the name of the file
        bool usable;
        bool others = false;  // commands other than run
    } kRows[] = {
        {"cut", whole.substr(0, whole.find("[-12")),
         ":17: the dump ends here: the array 'static' of camera 0 has 4 of ", true, true},
        {"brackets", builtInDeviceWith("[-12 12 ]", "(-12 12 )"),
         ":18: expected an entry, its values or a vendor tag, not '(-12 12 )'", true},
        {"a number that is none", builtInDeviceWith("[-12 12 ]", "[-12 1x ]"),
         ":18: expected a number of 32 bits, not '1x'", true},
        {"a tag cut off", builtInDeviceWith("(iso) with type 0 (byte) defined", "(iso) wi"),
         ":" + lineOfIso + ": expected an entry, its values or a vendor tag", true},
        {"garbage within", builtInDeviceWith("[-12 12 ]", "\xff\x01[\n\0\0"), ":18: expected", true},
        {"garbage",
         std::string("\x7f"
                     "ELF\0\1\2\3\xff\xfe",
                     10),
         ": no camera in it", false, true},
        {"nothing", "", ": it is empty", false},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        const std::string path = file("broken.txt", row.dump);
        std::vector<std::vector<std::string>> commands{{"run", "--device", path}};
        if (row.others) {
            commands.push_back({"check", "--device", path});
            commands.push_back({"explain", "iso", "--device", path});
            commands.push_back({"diff", "--as", "devices", path});
        }
        for (const auto& words : commands) {
            auto strict = words;
            strict.emplace_back("--strict");
            EXPECT_EQ(tool(strict), kBadInput) << words.front();
            EXPECT_EQ(tool(words) == kBadInput, !row.usable) << words.front();
            EXPECT_THAT(mErr, HasSubstr("broken.txt" + row.says));
            EXPECT_EQ(mOut.empty(), !row.usable);
        }
    }
}

TEST_F(RunTool, ReportsFaultsOfTheHal) {
    const struct {
        std::string dump;
        const char* says;
    } kRows[] = {
        {builtInDeviceWith("[-12 12 ]", "[-12 ]"),
         ":17: android.control.aeCompensationRange is int32[2], but has 1 value: a reader would use the announced number"},
        {builtInDeviceWith("0x80000001 (", "0x80000000 ("), "has the number 0x80000000 of "},
    };
    for (const auto& row : kRows) {
        const std::string path = file("fault.txt", row.dump);
        EXPECT_EQ(tool({"check", "--device", path}), kFailed) << row.says;
        EXPECT_THAT(mErr, HasSubstr(row.says));
        EXPECT_EQ(tool({"run", "--device", path, "--strict"}), kFine) << "the dump is whole";
    }
}

// A part of a dump is enough for the commands that need only this part.
TEST_F(RunTool, TakesPartsOfADump) {
    const std::string whole(builtInDevice());
    const size_t vendor = whole.find("== Vendor tags");
    const std::string tags = file("tags.txt", whole.substr(vendor));
    EXPECT_EQ(tool({"check", "--device", tags}), kFine);
    EXPECT_THAT(mErr, HasSubstr("no camera in it"));
    EXPECT_EQ(tool({"run", "--device", tags}), kBadInput);

    const std::string camera = file("camera.txt", whole.substr(0, vendor));
    EXPECT_EQ(tool({"check", "--device", camera}), kFine);
    EXPECT_THAT(mOut, HasSubstr("No vendor tag section in this text"));
}

}  // namespace
}  // namespace qzcam
