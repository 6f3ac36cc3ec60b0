// SPDX-License-Identifier: Apache-2.0
#include "facts/Reference.h"

#include "Tool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Returns the sections in which a name is found, and the number of rows in each.
std::vector<std::pair<std::string, size_t>> foundBy(const std::string& name) {
    std::vector<std::pair<std::string, size_t>> found;
    for (const Section& section : rowsNamed(wholeReference(), name)) {
        if (!section.docs.empty()) found.emplace_back(section.json, section.docs.size());
    }
    return found;
}

TEST(Reference, FindsARowByEachOfItsNames) {
    using Found = std::vector<std::pair<std::string, size_t>>;
    const std::vector<std::pair<const char*, Found>> rows{
        {"iso", {{"parameters", 1}}},
        {"setIso", {{"parameters", 1}}},
        {"manualFocusValue", {{"parameters", 2}}},
        {"qz_ois_hall_check", {{"parameters", 1}}},
        {"iso-mode-values", {{"published", 1}}},
        {"com.ambrix.device.capabilities.supported_iso_values", {{"published", 1}}},
        {"hintUser", {{"results", 1}}},
        {"qz-zsl-mode", {{"parameters", 1}, {"results", 1}}},
        {"0x100", {{"messages", 1}}},
        {"MSG_OIS_CALIB_RESULT", {{"messages", 3}}},
        {"isoModeEnumToString", {{"vocabularies", 1}}},
        {"203", {{"commands", 1}}},
        {"camera.debug.mode", {{"properties", 1}}},
        {"camera_sound_state", {{"hostKeys", 1}}},
        {"%s(), KEY_MAX_ZOOM = 0, error!", {{"lines", 1}}},
        {"qz-nothing", {}},
    };
    for (const auto& [name, found] : rows) EXPECT_EQ(foundBy(name), found) << name;
}

TEST(Reference, HasACellForEachColumn) {
    for (const Section& section : wholeReference()) {
        for (const Doc& doc : section.docs)
            EXPECT_EQ(doc.cells.size(), section.columns.size()) << doc.heading;
    }
}

TEST_F(RunTool, ParamsPrintsOneThingOrAll) {
    EXPECT_EQ(tool({"params", "iso"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("iso: a parameter\n  setter      setIso\n"));
    EXPECT_THAT(mOut, HasSubstr("              1250  -> 6\n"));
    EXPECT_THAT(mOut, HasSubstr("  any other   255\n"));
    EXPECT_EQ(tool({"params", "qz-af-mmi-control-mode"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("  any other   -1\n"));
    EXPECT_EQ(tool({"params", "qz-nothing"}), kUsage);
    EXPECT_EQ(mOut, "");
    EXPECT_THAT(mErr, HasSubstr("other name 'qz-nothing'; 'qzcam params' lists the names\n"));
    EXPECT_EQ(tool({"params", "hdr-movie"}), kUsage);
    EXPECT_THAT(mErr, HasSubstr("; perhaps key-hdr-movie"));
    EXPECT_EQ(tool({"params", "--json", "--markdown"}), kUsage);
    EXPECT_EQ(tool({"params"}), kFine);
    EXPECT_THAT(
        mOut,
        HasSubstr("\n  iso                                      com.ambrix.capture.metadata.iso  byte[1]\n"));
}

TEST_F(RunTool, ParamsPrintsTheReferenceAsJson) {
    EXPECT_EQ(tool({"params", "--json"}), kFine);
    const auto json = nlohmann::json::parse(mOut);
    EXPECT_EQ(json["format"], "qzcam-reference");
    EXPECT_EQ(json["version"], 2);
    const auto& iso = json["parameters"][0];
    EXPECT_EQ(iso["setter"], "setIso");
    EXPECT_EQ(iso["keys"][0], (nlohmann::json{{"key", "iso"}, {"readAs", "text"}, {"form", "a word"}}));
    EXPECT_EQ(iso["words"][1], (nlohmann::json{{"from", "50"}, {"to", "1"}}));
    EXPECT_EQ(iso["entries"][0],
              (nlohmann::json{{"tag", "com.ambrix.capture.metadata.iso"}, {"type", "byte"}, {"count", "1"}}));
    EXPECT_THAT(iso["offeredBy"], ElementsAre("iso-mode-values"));
    EXPECT_EQ(json["messages"][0]["code"], 0x100);
    EXPECT_EQ(json["commands"][0]["number"], 202);
}

}  // namespace
}  // namespace qzcam
