// SPDX-License-Identifier: Apache-2.0
#include "verdict/Explanation.h"

#include "device/BuiltIn.h"
#include "device/DumpParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qzcam {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

Device builtIn() {
    Problems problems("device");
    return parseDump(builtInDevice(), "device", "", problems);
}

std::vector<std::string> mappings(const Explanation& found) {
    std::vector<std::string> texts;
    for (const auto& value : found.values) texts.push_back(value.value + ">" + value.becomes);
    return texts;
}

TEST(Explanation, Parameter) {
    const Device device = builtIn();
    Explainer explainer(device);

    const auto iso = explainer.explain("iso", {{"iso", "1234"}});
    ASSERT_TRUE(iso);
    EXPECT_TRUE(iso->asText && !iso->asInteger && iso->hasVocabulary);
    EXPECT_THAT(iso->setters, ElementsAre("setIso"));
    EXPECT_THAT(mappings(*iso), ElementsAre("auto>0", "50>1", "100>2", "200>3", "400>4", "800>5", "1250>6",
                                            "1600>7", "3200>8", "6400>9"));
    EXPECT_EQ(iso->otherwise->becomes, "255");
    ASSERT_EQ(iso->targets.size(), 1U);
    EXPECT_EQ(iso->targets[0].declared, "byte");
    ASSERT_EQ(iso->choices.size(), 1U);
    EXPECT_EQ(iso->choices[0].key, "iso-mode-values");
    EXPECT_EQ(iso->given->verdict, Verdict::Fallback);

    const auto ae = explainer.explain("qz-exposure-try-ae", {});
    EXPECT_THAT(ae->setters, ElementsAre("setExposureTryAe"));
    EXPECT_THAT(ae->conditions, Contains(HasSubstr("while qz-exposure-mode is")));
    EXPECT_THAT(mappings(*ae), ElementsAre("off>0", "on>1"));

    const auto panorama = explainer.explain("key-qz-2dpanorama", {});
    EXPECT_THAT(panorama->setters, Contains("setpanorama2DMode"));

    // The largest zoom of this device is four.
    const auto zoom = explainer.explain("zoom", {{"max-zoom", "7"}});
    EXPECT_THAT(mappings(*zoom), Contains("7>4"));
    EXPECT_FALSE(zoom->given);

    const auto sensor = explainer.explain("qz-sensor-iso", {});
    EXPECT_FALSE(sensor->hasVocabulary);
    EXPECT_THAT(mappings(*sensor), Contains("300>300"));
    EXPECT_EQ(sensor->otherwise->becomes, "0");

    const auto areas = explainer.explain("focus-areas", {});
    ASSERT_EQ(areas->limits.size(), 1U);
    EXPECT_THAT(toText(areas->limits[0]), HasSubstr("(4608,3456)"));

    EXPECT_FALSE(explainer.explain("iso-mode", {}));
}

TEST(Explanation, MissingTags) {
    const Device bare;
    Explainer explainer(bare);
    const auto iso = explainer.explain("iso", {});
    EXPECT_EQ(iso->targets.at(0).declared, "");
    EXPECT_EQ(iso->values.at(0).verdict.verdict, Verdict::Undeclared);
    EXPECT_THAT(iso->choices, testing::IsEmpty());
}

}  // namespace
}  // namespace qzcam
