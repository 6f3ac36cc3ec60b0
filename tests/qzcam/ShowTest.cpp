// SPDX-License-Identifier: Apache-2.0
#include "show/Contents.h"

#include "Tool.h"
#include "base/Text.h"
#include "support/DumpComposer.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <regex>
#include <string>

namespace qzcam {
namespace {

using testing::HasSubstr;

// A dump with an open camera, a closed one and an earlier session, a log and properties.
constexpr const char* kDump = R"(== Service global info: ==

Number of camera devices: 2
    Device 0 maps to "0"
    Device 1 maps to "1"
Active Camera Clients:
[]
== Camera service events log (most recent at top): ==
  03-05 10:11:12 : CONNECT device 0 client for package com.example.camera (PID 1301)
  03-05 10:10:12 : CONNECT device 1 client for package com.example.other (PID 99)
  03-05 10:10:10 : DISCONNECT device 1 client for package com.example.other (PID 99)

== Camera device 0 dynamic info: ==
  Camera1 API shim is using parameters:
        CameraParameters::dump: mMap.size = 2
	antibanding: auto
	iso: 100
  03-05 10:11:12 : Device 0 is open. Client instance dump:
    Client priority score: 0 state: 2
    Client PID: 1301
    Client package: com.example.camera
  CameraDeviceClient[0] (0x7b1234) dump:
    Latest received frame:
      Dumping camera metadata array: 1 / 4 entries, 0 / 0 bytes of extra data.
        Version: 1, Flags: 00000000
        com.ambrix.capture.metadata.iso (80000000): byte[1]
          [7 ]
  Device dump:
    Last request sent:
      Dumping camera metadata array: 2 / 4 entries, 0 / 0 bytes of extra data.
        Version: 1, Flags: 00000000
        com.ambrix.capture.metadata.iso (80000000): byte[1]
          [7 ]
        android.control.mode (1000f): byte[1]
          [AUTO ]
     Tag monitoring enabled for tags:
        com.ambrix.capture.metadata.iso
     Monitored tag event log:
        f2:81234567890124ns:                           RES:com.ambrix.capture.metadata.iso: [7 ]
        f1:81234567890123ns:             REQ:com.ambrix.capture.metadata.iso: [7 ]
        f1:81234567890123ns:             REQ:com.ambrix.capture.metadata.burst-delay-ms: [3 ]
     HAL device dump:
      free text
== Camera device 1 dynamic info: ==
  Device 1 is closed, no client instance

== Camera Provider HAL legacy/0 (v2.4, remote) static info: 2 devices: ==
== Camera HAL device device@3.4/legacy/0 (v3.4) static information: ==
  Resource cost: 100
  Conflicting devices: None
  API1 info:
    Has a flash unit: true
    Facing: Back
    Orientation: 90
  API2 camera characteristics:
    Dumping camera metadata array: 2 / 9 entries, 8 / 64 bytes of extra data.
      Version: 1, Flags: 00000000
      android.info.supportedHardwareLevel (150000): byte[1]
        [FULL ]
      android.future.thing (99990001): int32[2]
        [3 4 ]
== Camera HAL device device@3.4/legacy/1 (v3.4) static information: ==
  Resource cost: 100
  Conflicting devices: None
  API1 info:
    Has a flash unit: false
    Facing: Front
    Orientation: 270
  API2 camera characteristics:
    Dumping camera metadata array: 0 / 0 entries, 0 / 0 bytes of extra data.
      Version: 1, Flags: 00000000
== Vendor tags: ==

  Dumping vendor tag descriptors for vendor with id 3571857947 
  Dumping configured vendor tag descriptors: 2 entries
    0x80000000 (iso) with type 0 (byte) defined in section com.ambrix.capture.metadata
    0x80000001 (burst-delay-ms) with type 1 (int32) defined in section com.ambrix.capture.metadata

== Camera error traces (0): ==
  No camera traces collected.
**********Dumpsys from previous open session**********
== Camera device 1 dynamic info: ==
  03-05 09:00:00 : Device 1 is open. Client instance dump:
    Client package: com.example.other
  Device dump:
    Last request sent:
      Dumping camera metadata array: 1 / 4 entries, 0 / 0 bytes of extra data.
        Version: 1, Flags: 00000000
        com.ambrix.capture.metadata.burst-delay-ms (80000001): int32[1]
          [40 ]
**********End of Dumpsys from previous open session**********
)";

constexpr const char* kAround = R"(------ SYSTEM LOG (logcat -v threadtime -v printable -v uid -d *:v) ------
--------- beginning of main
03-05 10:11:12.345  1047   812  2207 D CameraQzParam: setIso(), iso: 1600
03-05 10:11:12.346  1047   812  2207 E CameraQzParam: setZslMode(), failed to update zslmode :  1, return: -38
03-05 10:11:13.400 10087  1301  1301 I ActivityManager: hello
------ 0.123s was the duration of 'SYSTEM LOG' ------
------ SYSTEM PROPERTIES (getprop) ------
[persist.vendor.camera.x]: [1]
[ro.build.version.release]: [14]
------ 0.010s was the duration of 'SYSTEM PROPERTIES' ------
)";

std::string bugreport() {
    return std::string(
               "========================================================\n"
               "== dumpstate: 2024-03-05 10:11:12\n"
               "========================================================\n\n"
               "Build fingerprint: 'maker/product/device:14/UP1A/42:userdebug/dev-keys'\n\n") +
           kAround + "------ DUMPSYS (/system/bin/dumpsys) ------\n" + std::string(79, '-') +
           "\nDUMP OF SERVICE media.camera:\n" + kDump +
           "--------- 0.412s was the duration of dumpsys media.camera, ending at: 2024-03-05 10:11:40\n";
}

size_t countOf(const std::string& text, const char* pattern) {
    const std::regex regex(pattern);
    size_t count = 0;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find('\n', begin), text.size());
        if (std::regex_search(text.substr(begin, end - begin), regex)) ++count;
        begin = end + 1;
    }
    return count;
}

size_t announcedIn(const std::string& text) {
    const std::regex header(R"(metadata array: (\d+) / )");
    size_t sum = 0;
    for (std::sregex_iterator each(text.begin(), text.end(), header), end; each != end; ++each)
        sum += std::stoul((*each)[1]);
    return sum;
}

TEST_F(RunTool, ShowCountsTheContents) {
    const std::string text = bugreport();
    EXPECT_EQ(tool({"show", file("bugreport.txt", text), "--json"}), kFine) << mErr;
    const auto json = nlohmann::json::parse(mOut);
    EXPECT_EQ(json["format"], "qzcam-show");
    EXPECT_EQ(json["version"], 1);
    EXPECT_EQ(json["kind"], "a bugreport");
    EXPECT_EQ(json["lines"], countOf(text, ""));
    EXPECT_EQ(json["cameras"].size(), countOf(text, "^== Camera HAL device"));
    EXPECT_EQ(json["arrays"].size(), countOf(text, "Dumping camera metadata array"));
    size_t entries = 0;
    for (const auto& array : json["arrays"]) entries += array["entries"].get<size_t>();
    EXPECT_EQ(entries, countOf(text, R"(^ +\S+ \([0-9a-f]+\): [a-z0-9]+\[\d+\]$)"));
    EXPECT_EQ(json["vendorBlocks"][0]["tags"], countOf(text, "with type . .* defined in section"));
    EXPECT_EQ(json["vendorBlocks"][0]["vendorId"], 3571857947);
    EXPECT_EQ(json["parameters"][0]["count"], countOf(text, "^\t"));
    EXPECT_EQ(json["properties"]["count"], countOf(text, R"(^\[.*\]: \[)"));
    EXPECT_EQ(json["monitors"][0]["requests"], countOf(text, " REQ:"));
    EXPECT_EQ(json["monitors"][0]["results"], countOf(text, " RES:"));
    EXPECT_EQ(json["events"].size(), countOf(text, "CONNECT device"));
    EXPECT_EQ(json["log"]["lines"], countOf(text, "^03-05 .*: "));
    EXPECT_EQ(json["log"]["tags"][0]["tag"], "CameraQzParam");
    EXPECT_EQ(json["log"]["tags"][0]["lines"], countOf(text, " CameraQzParam: "));
    EXPECT_EQ(json["log"]["tags"][0]["levels"], (nlohmann::json{{"D", 1}, {"E", 1}}));
    EXPECT_EQ(json["log"]["to"], "03-05 10:11:13.400");
    EXPECT_EQ(json["header"]["dumpstate"], "2024-03-05 10:11:12");
    EXPECT_EQ(json["arrays"].back()["previousSession"], true);
    EXPECT_EQ(json["cuts"], nlohmann::json::array());
}

// Counts every version of the platform line by line.
TEST_F(RunTool, ShowCountsDumpsOfEveryVersion) {
    for (const int platform : test::kPlatforms) {
        SCOPED_TRACE(platform);
        const std::string text = test::dumpOf(test::samplePhone(platform));
        EXPECT_EQ(tool({"show", file("dump.txt", text), "--json"}), kFine) << mErr;
        const auto json = nlohmann::json::parse(mOut);
        EXPECT_EQ(json["lines"], countOf(text, ""));
        EXPECT_EQ(json["arrays"].size(), countOf(text, "Dumping camera metadata array"));
        size_t entries = 0;
        for (const auto& array : json["arrays"]) entries += array["entries"].get<size_t>();
        EXPECT_EQ(entries, announcedIn(text));  // a HAL prints lines of its own that look like entries
        size_t tags = 0;
        for (const auto& block : json["vendorBlocks"]) tags += block["tags"].get<size_t>();
        EXPECT_EQ(tags, countOf(text, "with type . .* defined in section"));
        EXPECT_EQ(json["cuts"], nlohmann::json::array());
        EXPECT_EQ(json["differences"], nlohmann::json::array());
        EXPECT_EQ(json["faults"], nlohmann::json::array());
    }
}

TEST_F(RunTool, ShowReadsADumpThatWasLogged) {
    std::string log;
    Lines lines(kDump);
    for (std::string_view line; lines.next(line);) log += fmt::format("I/Dump    (  812): {}\n", line);
    const auto arraysOf = [&](const std::string& text) {
        EXPECT_EQ(tool({"show", file("text.txt", text), "--json"}), kFine) << mErr;
        return nlohmann::json::parse(mOut)["arrays"];
    };
    const auto plain = arraysOf(kDump);
    EXPECT_EQ(plain.size(), countOf(kDump, "Dumping camera metadata array"));
    EXPECT_EQ(arraysOf(log), plain);
}

TEST_F(RunTool, ShowFindsNamesAndValues) {
    const std::string text = bugreport();
    const std::string path = file("bugreport.txt", text);
    for (const char* word : {"iso", "com.ambrix", "7", "camera", "CONNECT", "nowhere"}) {
        EXPECT_EQ(tool({"show", path, "--find", word, "--json"}), kFine);
        EXPECT_EQ(nlohmann::json::parse(mOut)["count"], countOf(text, word)) << word;
    }
    EXPECT_EQ(tool({"show", path, "--find", "40 ]"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("last request sent, camera 1, previous session: "
                                "com.ambrix.capture.metadata.burst-delay-ms: [40 ]\n1 line with '40 ]'\n"));
}

}  // namespace
}  // namespace qzcam
