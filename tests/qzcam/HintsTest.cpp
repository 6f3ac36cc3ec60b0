// SPDX-License-Identifier: Apache-2.0
#include "facts/Hints.h"

#include "Tool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace qzcam {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(Hints, Distance) {
    const struct {
        const char* one;
        const char* other;
        size_t distance;
    } kRows[] = {{"", "", 0},       {"iso", "iso", 0},    {"isoo", "iso", 1}, {"iso", "", 3},
                 {"osi", "iso", 2}, {"sio", "iso", 1},    {"ios", "iso", 1},  {"ca", "abc", 3},
                 {"ab", "ba", 1},   {"flahs", "flash", 1}};
    for (const auto& row : kRows) {
        EXPECT_EQ(typingDistance(row.one, row.other), row.distance) << row.one;
        EXPECT_EQ(typingDistance(row.other, row.one), row.distance) << row.one;
    }
}

// Returns the first hint of each name; "" for none.
TEST(Hints, Keys) {
    const struct {
        const char* name;
        const char* first;
    } kRows[] = {
        {"isoo", "iso"},
        {"ISO", "iso"},
        {"qz-facebeauty", "qz-face-beauty"},
        {"qzFaceBeauty", "qz-face-beauty"},
        {"face_beauty", "qz-face-beauty"},
        {"rotatoin", "rotation"},
        {"jpeg-qualty", "jpeg-quality"},
        {"flash-mod", "flash-mode"},
        {"contrast-mode", "contrast"},
        {"ois", "qz_ois_check"},
        {"hdr", "key-hdr-movie"},
        {"bokeh", "qz-set-aperture-value"},
        {"bokeh-level", "qz-set-aperture-value"},
        {"stabilization", "video-stabilization"},
        {"light painting", "qz-exposure-mode"},
        {"night", "scene-mode"},
        {"super-nigth", "qz-exposure-mode"},
        {"torch", "front_flash_level"},
        {"lowlight", "mmitest-lowlight-sensor-mode"},
        {"x", ""},
        {"", ""},
        {"qz", ""},
        {"on", ""},
        {"wxyzwxyz", ""},
    };
    for (const auto& row : kRows) {
        const auto keys = likelyKeys(row.name);
        EXPECT_EQ(keys.empty() ? "" : keys.front(), row.first) << row.name << testing::PrintToString(keys);
        EXPECT_LE(keys.size(), 4U);
    }
    EXPECT_THAT(likelyKeys("isoo"), ElementsAre("iso"));
    EXPECT_THAT(likelyKeys("ISO"), ElementsAre("iso"));
    EXPECT_THAT(likelyKeys(std::string(100000, 'i')), IsEmpty());
}

TEST(Hints, NearestFirst) {
    EXPECT_THAT(nearest("opne", {"close", "open", "opened"}), ElementsAre("open"));
    EXPECT_THAT(nearest("contrasts", {"contrasted", "contrast"}), ElementsAre("contrast", "contrasted"));
}

TEST_F(RunTool, KeysOfThePlatformAreCountedInOneLine) {
    const std::string session = file("s.qzs",
                                     "open 0\nset flash-mode=torch;effect=mono;iso-mode-values=auto;"
                                     "isoo=100;qz-exposure-mode=super-nigth\nrequest\nrequest\n");
    EXPECT_EQ(tool({"run", session}), kFine);
    EXPECT_THAT(mOut, HasSubstr("parameters: 1 fallback written, 1 read by no setter\n"
                                "        2 standard keys that the platform handles\n"
                                "        a key that the library publishes and does not read\n"));
    EXPECT_THAT(mOut, HasSubstr("read by no setter: perhaps iso is meant\n"));
    EXPECT_THAT(mOut, HasSubstr("'super-nigth' is not recognised; perhaps super-night\n"));
    EXPECT_THAT(mOut, Not(HasSubstr("flash-mode=torch  ")));
    EXPECT_EQ(tool({"run", "--json", session}), kFine);
    EXPECT_THAT(mOut, HasSubstr(R"({"key":"flash-mode","value":"torch","verdict":"unread","line":2,"reason":)"
                                R"("it is a standard key, which the platform handles","owner":"platform")"));
    EXPECT_THAT(mOut, HasSubstr(R"("perhaps":["iso"])"));
}

TEST_F(RunTool, UnknownNamesGetHints) {
    const std::string session = file("s.qzs", "opne 0\nopen 0\nresult focusVcmValu=3\n");
    const struct {
        std::vector<std::string> words;
        const char* message;
    } kRows[] = {
        {{"explain", "isoo"}, "no setter reads 'isoo'; perhaps iso\n"},
        {{"explain", "bokeh"}, "perhaps qz-set-aperture-value or qz-big-aperture-mode\n"},
        {{"explain", "flash-mode"}, "it is a standard key, which the platform handles\n"},
        {{"explain", "iso-mode-values"}, "the library publishes it and does not read it\n"},
        {{"params", "setIos"}, "'setIos'; perhaps setIso\n"},
        {{"params", "bokeh"}, "perhaps qz-set-aperture-value or qz-big-aperture-mode\n"},
        {{"params", "antibanding"}, "it is a standard key"},
        {{"run", session}, "unknown command 'opne': perhaps 'open' is meant; expected one of"},
        {{"chek"}, "no command 'chek'; perhaps 'check'\n"},
    };
    for (const auto& row : kRows) {
        EXPECT_NE(tool(row.words), kFine);
        EXPECT_THAT(mErr, HasSubstr(row.message)) << row.words[0];
    }
    EXPECT_NE(tool({"run", file("t.qzs", "open 0\nresult focusVcmValu=3\n")}), kFine);
    EXPECT_THAT(
        mErr,
        HasSubstr(
            "unknown tag 'focusVcmValu': expected a tag of this device or of the library; perhaps focusVcmValue\n"));
}

}  // namespace
}  // namespace qzcam
