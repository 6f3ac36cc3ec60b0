// SPDX-License-Identifier: Apache-2.0
// Compares requests of a phone with those of the library.
#include "Tool.h"

#include "device/BuiltIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qzcam {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kCapture = "com.ambrix.capture.metadata.";

// The built-in device with an open client.
std::string openDevice(const std::string& lastRequest, const std::string& latestFrame = "") {
    const std::string dump(builtInDevice());
    const size_t place = dump.find("== Camera HAL device");
    return dump.substr(0, place) +
           "== Camera device 0 dynamic info: ==\n"
           "  Device 0 is open. Client instance dump:\n"
           "    Client priority score: 0 state: 2\n"
           "    Client PID: 1301\n"
           "    Client package: com.example.camera\n" +
           (latestFrame.empty() ? "" : "    Latest received frame:\n" + latestFrame) +
           "  Device dump:\n"
           "    Device status: ACTIVE\n"
           "    Last request sent:\n" +
           lastRequest + "\n" + dump.substr(place);
}

std::string arrayOf(const std::string& entries, int count) {
    return "      Dumping camera metadata array: " + std::to_string(count) +
           " / 9 entries, 20 / 640 bytes of extra data.\n        Version: 1, Flags: 00000000\n" + entries;
}

const std::string kRequest = arrayOf(
    "        android.control.mode (1000f): byte[1]\n          [AUTO ]\n"
    "        com.ambrix.capture.metadata.iso (80000000): byte[1]\n          [7 ]\n"
    "        com.ambrix.capture.metadata.constrastValue (80000001): byte[1]\n          [3 ]\n"
    "        com.ambrix.capture.metadata.qz-zsl-mode (80000004): byte[1]\n          [1 ]\n",
    4);

TEST_F(RunTool, ComparesARequestOfThePhoneWithASession) {
    const std::string dump = file("open.txt", openDevice(kRequest));
    const std::string session = file("s.qzs", "open 0\nset iso=1600;contrast=50;saturation=0\nrequest\n");
    EXPECT_EQ(tool({"compare", dump, session}), kFailed) << mErr;
    const auto row = [&](const std::string& kind, const std::string& tag, const std::string& rest) {
        EXPECT_THAT(mOut, testing::ContainsRegex(kind + " +" + kCapture + tag + " +" + rest));
    };
    row("same", "iso", "7 +7 .*<- iso=1600");
    row("different", "constrastValue", "3 +1 .*<- contrast=50; contrast=150 there");
    row("only there", "qz-zsl-mode", "1 +- +zsl-mode=on there, not set here");
    row("only here", "saturationValue", "- +0 .*<- saturation=0");
    EXPECT_THAT(mOut, HasSubstr("android.control.mode"));
    EXPECT_THAT(mOut, HasSubstr("no parameter of the library writes it"));
    EXPECT_THAT(mOut, HasSubstr("1 same, 1 different, 1 only there, 2 only here"));

    const std::string same = file("same.qzs", "open 0\nset iso=1600;contrast=150;zsl-mode=on\nrequest\n");
    EXPECT_EQ(tool({"compare", dump, same, "--json"}), kFailed);  // the low-light test's entry
    EXPECT_THAT(mOut, HasSubstr(R"("format": "qzcam-compare")"));
    EXPECT_THAT(mOut, HasSubstr("written on every request of the library"));
}

TEST_F(RunTool, ComparesWithTheParametersOfTheInput) {
    const std::string dump = file("open.txt", openDevice(kRequest));
    EXPECT_EQ(tool({"compare", dump}), kBadInput);
    EXPECT_THAT(mErr, HasSubstr("no parameters of the application in it to compare with"));
    EXPECT_EQ(tool({"compare", dump, "--params", "iso=50"}), kFailed);
    EXPECT_THAT(mOut, HasSubstr("iso=1600 there"));
    EXPECT_EQ(tool({"compare", dump, "--params", "iso=50", "--array", "preview request"}), kUsage);
    EXPECT_THAT(mErr, HasSubstr("expected last request sent"));
    EXPECT_EQ(tool({"compare", file("closed.txt", std::string(builtInDevice()))}), kBadInput);
    EXPECT_THAT(mErr, HasSubstr("no request or result of an open camera"));
}

TEST_F(RunTool, ComparesAFrameWithTheResultOfASession) {
    const std::string frame = arrayOf(
        "        com.ambrix.capture.metadata.focusVcmValue (80000074): int32[1]\n          [318 ]\n", 1);
    const std::string dump = file("open.txt", openDevice(kRequest, frame));
    const std::string session = file("s.qzs", "open 0\nrequest\nresult focusVcmValue=318\n");
    EXPECT_EQ(tool({"compare", dump, session, "--array", "latest received frame"}), kFine) << mErr << mOut;
    EXPECT_THAT(mOut, Not(HasSubstr("different  ")));
}

}  // namespace
}  // namespace qzcam
