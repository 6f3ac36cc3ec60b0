#include "facts/Reference.h"

#include "Tool.h"
#include "facts/Survey.h"

#include <CameraQzSendCmd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <vector>

namespace qzcam {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class ReferenceTest : public RunTool {
  protected:
    static const Reference& whole() { return wholeReference(); }
    static const ParameterDoc& parameter(const std::string& key) {
        static const ParameterDoc none;
        const Reference found = only(whole(), key);
        EXPECT_THAT(found.parameters, SizeIs(testing::Ge(1U))) << key;
        for (const ParameterDoc& doc : whole().parameters) {
            if (doc.key == key) return doc;
        }
        return none;
    }
};

std::string joined(const std::vector<Mapping>& mappings) {
    std::string text;
    for (const Mapping& row : mappings) text += (text.empty() ? "" : " ") + row.from + ">" + row.to;
    return text;
}

struct ParameterRow {
    const char* key;
    const char* readAs;
    const char* tag;  // without section
    const char* type;
    const char* words;  // their beginning
    const char* otherwise;
};

TEST_F(ReferenceTest, SaysWhatBecomesOfAParameter) {
    const ParameterRow rows[] = {
        {"iso", "text", "iso", "byte[1]", "auto>0 50>1 100>2 200>3 400>4 800>5 1250>6 1600>7 3200>8 6400>9",
         "255"},
        {"qz-manual-exposure-value", "text", "manualExposureValue", "byte[1]", "auto>0", "255"},
        {"zsl-mode", "text", "qz-zsl-mode", "byte[1]", "off>0 on>1", "255"},
        {"qz-dual-primary-mode", "text", "dualSensorMode", "byte[1]",
         "primary>dualSensorMode 0 default>dualSensorMode 0", "dualSensorMode 255"},
        {"qz_ois_enable", "integer", "qz_ois_enable", "int32[1]", "", ""},
        {"qz-sensor-exposure-time", "text", "sensorExposureTime", "int32[1]", "", ""},
        {"qz-exposure-compensation-value", "text", "exposureCompValue", "float[1]", "", ""},
        {"qz-relayout-mode", "text", "lightPaintingRelayoutMode", "byte[1]", "none>0 snapshot2preview>1",
         "0"},
    };
    for (const ParameterRow& row : rows) {
        SCOPED_TRACE(row.key);
        const ParameterDoc& doc = parameter(row.key);
        EXPECT_EQ(doc.readAs, row.readAs);
        ASSERT_THAT(doc.entries, Not(IsEmpty()));
        EXPECT_EQ(doc.entries[0].tag, std::string("com.ambrix.capture.metadata.") + row.tag);
        EXPECT_EQ(doc.entries[0].type + "[" + doc.entries[0].count + "]", row.type);
        EXPECT_THAT(joined(doc.words), testing::StartsWith(row.words));
        if (*row.words != '\0') {
            EXPECT_EQ(doc.otherwise, row.otherwise);
        }
    }
    EXPECT_THAT(parameter("qz-relayout-mode").conditions,
                ElementsAre(HasSubstr("only while qz-exposure-mode is")));
    EXPECT_THAT(parameter("zoom").conditions, Contains(HasSubstr("max-zoom")));
}

TEST_F(ReferenceTest, SaysWhatIsPublishedAndSent) {
    const auto iso = only(whole(), "iso-mode-values");
    ASSERT_THAT(iso.published, SizeIs(1));
    EXPECT_EQ(iso.published[0].capability.tag, "com.ambrix.device.capabilities.supported_iso_values");
    EXPECT_THAT(joined(iso.published[0].words), HasSubstr("0>auto"));
    EXPECT_THAT(joined(iso.published[0].words), HasSubstr("9>6400"));

    const auto smart = only(whole(), "0x100");
    ASSERT_THAT(smart.messages, SizeIs(1));
    EXPECT_EQ(smart.messages[0].carriedBy, "data block");
    EXPECT_EQ(smart.messages[0].from.at(0).tag, "com.ambrix.capture.metadata.hintUser");

    EXPECT_THAT(only(whole(), std::to_string(qz::CMD_GET_FOCUS_CONTRAST_VALUE)).commands, SizeIs(1));
    EXPECT_THAT(only(whole(), "camera.debug.mode").properties, SizeIs(1));
    // A tag names all that has to do with it.
    EXPECT_THAT(only(whole(), "manualFocusValue").parameters, SizeIs(2));
}

// What is written by hand must not outlive what it is about.
TEST_F(ReferenceTest, NotesAreOnThingsThatTheLibraryHas) {
    Probe probe;
    const Survey survey = surveyLibrary(probe, Depth::Tags);
    for (const auto& [key, note] : parameterNotes()) EXPECT_NE(survey.parameter(key), nullptr) << key;
    for (const PublishedDoc& doc : adapterPublished())
        EXPECT_TRUE(survey.isVendor(doc.capability.tag)) << doc.key;
    // The adapter's own keys are no part of a pass; in one they would need no hand.
    for (const ParameterDoc& doc : adapterParameters())
        EXPECT_EQ(survey.parameter(doc.key), nullptr) << doc.key;
}

TEST_F(ReferenceTest, ParamsPrintsOneThingOrAll) {
    EXPECT_EQ(tool({"params", "iso"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("iso: a parameter, read as text\n"));
    EXPECT_THAT(mOut, HasSubstr("1250  -> 6\n"));
    EXPECT_EQ(tool({"params", "qz-nothing"}), kUsage);
    EXPECT_EQ(mOut, "");
    EXPECT_EQ(mErr, "qzcam: no parameter, message, command, property or tag 'qz-nothing'\n");
    EXPECT_EQ(tool({"params", "hdr-movie"}), kUsage);
    EXPECT_THAT(mErr, HasSubstr("; there is key-hdr-movie"));
    EXPECT_EQ(tool({"params", "--json", "--markdown"}), kUsage);

    EXPECT_EQ(tool({"params", "--json"}), kFine);
    const auto json = nlohmann::json::parse(mOut);
    EXPECT_EQ(json["format"], "qzcam-reference");
    EXPECT_EQ(json["parameters"].size(), whole().parameters.size());
    EXPECT_EQ(tool({"params"}), kFine);
    for (const ParameterDoc& doc : whole().parameters) EXPECT_THAT(mOut, HasSubstr(doc.key));
}

}  // namespace
}  // namespace qzcam
