// SPDX-License-Identifier: Apache-2.0
#include "verdict/Verdicts.h"

#include "host/Camera.h"
#include "host/LogCapture.h"
#include "qzcam/BuiltIn.h"
#include "session/Player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <camera/VendorTagDescriptor.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace qzcam {
namespace {

// Returns the verdicts after the last request of a session.
std::vector<VerdictRow> verdicts(const std::string& session) {
    Problems problems("s");
    const Session parsed = parseSession("open 0\n" + session + "\nrequest\n", "s", problems);
    EXPECT_TRUE(problems.empty());
    std::vector<VerdictRow> rows;
    Player player(test::builtIn(), [&](const Event& event) {
        if (const auto* each = std::get_if<VerdictsEvent>(&event)) rows = each->rows;
    });
    player.play(parsed);
    return rows;
}

// A later write that does not reach the device does not override the first one.
TEST(Verdict, Overridden) {
    const std::string tag = "com.ambrix.capture.metadata.manualFocusValue";
    const Texts texts{{"qz-magnifier-step-value", "3"}, {"qz-manual-focus-step-value", "4"}};
    const TagNames names(test::builtIn().vendorTags);
    installVendorTags(test::builtIn());
    const android::CameraMetadata characteristics = staticCharacteristics(test::builtIn());
    PassSteps steps;
    {
        const LogListener silence([](const LogEvent&) {});
        Camera camera(0, characteristics, [](Message&&) {});
        for (const auto& [key, value] : texts) camera.parameters().set(key.c_str(), value.c_str());
        android::CameraMetadata request;
        camera.adapter().watch(&steps);
        camera.translator().paramToMetaData(&request);
    }
    VerdictFinder finder(test::builtIn(), names, characteristics);
    const auto verdict = [&] {
        return finder.find(steps, {texts.begin()->first}, texts, {}).front().verdict;
    };
    EXPECT_EQ(verdict(), Verdict::Overridden);
    const auto last = std::find_if(steps.rbegin(), steps.rend(), [&](const PassStep& step) {
        return step.kind == PassStep::Kind::Update && step.name == tag;
    });
    steps.erase(std::next(last).base());
    EXPECT_EQ(verdict(), Verdict::Written);
    android::VendorTagDescriptor::clearGlobalVendorTagDescriptor();
}

TEST(Verdict, OnlySetParameters) {
    const auto keys = [](const std::string& session) {
        std::vector<std::string> found;
        for (const VerdictRow& row : verdicts(session)) found.push_back(row.key);
        return found;
    };
    using testing::ElementsAre;
    EXPECT_THAT(keys("publish\nset iso=100;contrast=0"), ElementsAre("contrast", "iso"));
    EXPECT_THAT(keys("set iso=100;contrast=0\nunset iso"), ElementsAre("contrast"));
    EXPECT_THAT(keys("set qz-vcm-start-value=1\npublish"), ElementsAre());
    EXPECT_THAT(keys("set iso=100\nopen 0\nset contrast=0"), ElementsAre("contrast"));
}

// A verdict has no side effects: neither on the request, nor on the log, nor on later steps.
TEST(Verdict, DoesNotChangeTheCamera) {
    Problems problems("s");
    const Session session = parseSession(
        "open 0\nset iso=9;x=1;zoom=3;key-qz-2dpanorama=on\nrequest\nexpect-no-log error find section\n"
        "expect-entry panorama2DMode 1\nrequest\nexpect-no-entry panorama2DMode\n",
        "s", problems);
    size_t lines = 0;
    Player player(test::builtIn(), [&](const Event& event) {
        const auto* log = std::get_if<LogEvent>(&event);
        if (log && log->text.rfind("CCameraQzParam(", 0) == 0) ++lines;
    });
    EXPECT_TRUE(player.play(session));
    EXPECT_EQ(lines, 1U);
}

}  // namespace
}  // namespace qzcam
