// SPDX-License-Identifier: Apache-2.0
#include "session/Player.h"

#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "qzcam/BuiltIn.h"
#include "session/Assignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <variant>
#include <vector>

namespace qzcam {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Play {
    explicit Play(const std::string& text, const Device& on = test::builtIn()) {
        Problems problems("s");
        const Session session = parseSession(text, "s", problems);
        EXPECT_THAT(problems.first(), IsEmpty());
        Player player(on, [this](const Event& event) { events.push_back(event); });
        allMet = player.play(session);
    }

    template <typename T>
    std::vector<T> all() const {
        std::vector<T> found;
        for (const Event& event : events) {
            if (const auto* each = std::get_if<T>(&event)) found.push_back(*each);
        }
        return found;
    }

    std::vector<Event> events;
    bool allMet = false;
};

TEST(Player, PublishNamesSourcesAndMissingTags) {
    Device other = test::builtIn();
    const auto without = [&](const char* name) {
        const auto found = std::find_if(other.vendorTags.begin(), other.vendorTags.end(),
                                        [&](const Tag& tag) { return tag.name == name; });
        const uint32_t id = found->id;
        other.entries.erase(std::remove_if(other.entries.begin(), other.entries.end(),
                                           [&](const StaticEntry& entry) { return entry.tag == id; }),
                            other.entries.end());
        return found;
    };
    without("availbaleContrast");
    other.vendorTags.erase(without("zslSupported"));
    const Play play("open 0\npublish\n", other);
    const auto published = play.all<PublishEvent>().at(0);
    const auto capabilityOf = [&](const std::string& key) -> std::string {
        for (const ParamRow& row : published.rows) {
            if (row.key == key) return row.value + " from " + row.capability;
        }
        return "nothing";
    };
    const std::string prefix = "com.ambrix.device.capabilities.";
    EXPECT_EQ(capabilityOf("qz-vcm-start-value"), "100 from " + prefix + "manualVcmStartValue");
    EXPECT_EQ(capabilityOf("qz_video_smooth_af_supported"), "true from ");
    EXPECT_EQ(capabilityOf("contrast-values"), "nothing");
    EXPECT_THAT(published.undeclared, ElementsAre(prefix + "zslSupported"));
    EXPECT_THAT(published.absent, ElementsAre(prefix + "availbaleContrast"));
    EXPECT_THAT(published.silent, testing::Contains(prefix + "qz-slow-jpeg-mode-threshold"));
    for (const LogEvent& line : play.all<LogEvent>()) {
        EXPECT_THAT(line.text, testing::Not(HasSubstr("find section"))) << "asking for names shows";
    }
}

// A HAL's text may contain characters that a parameter set refuses.
TEST(Player, PublishShowsRowsAfterOneThatWasRefused) {
    Device other = test::builtIn();
    for (StaticEntry& entry : other.entries) {
        if (TagNames(other.vendorTags).nameOf(entry.tag) !=
            "com.ambrix.device.capabilities.mmiTestFeatureSupported")
            continue;
        entry.values = *parseValues(TYPE_BYTE, entry.tag, "\"a;b=c\",0");
    }
    const auto all = Play("open 0\npublish\n").all<PublishEvent>().at(0).rows;
    const auto rows = Play("open 0\npublish\n", other).all<PublishEvent>().at(0).rows;
    ASSERT_EQ(rows.size(), all.size());
    size_t refused = 0;
    for (size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].key, all[i].key);
        if (rows[i].value == all[i].value) continue;
        ++refused;
        EXPECT_EQ(rows[i].value, "");
        EXPECT_LT(i + 1, rows.size()) << "there are rows behind it";
    }
    EXPECT_EQ(refused, 1U);
}

TEST(Player, WaitsForABackgroundCommandBeforeTheCameraCloses) {
    Problems problems("s");
    const Session session = parseSession(
        "open 0\nsendcommand 203 background\nresult qz-af-mmi-contrast-value=0x40000123\n", "s", problems);
    for (const bool asGuest : {false, true}) {
        std::vector<std::string> end;
        Player player(test::builtIn(), [&](const Event& event) {
            const auto* command = std::get_if<CommandEvent>(&event);
            const auto* status = std::get_if<StatusEvent>(&event);
            if (command && command->line == 0) end.push_back(command->text);
            if (status && status->isAnswer) end.push_back(std::to_string(status->status));
        });
        asGuest ? player.playOnOtherDevice(session) : player.play(session);
        EXPECT_THAT(end, ElementsAre("wait", "291", "close"));
    }
}

TEST(Player, BackgroundCommandGetsTheResultsOfTheSession) {
    const Play play(
        "open 0\nsendcommand 203 background\nresult qz-af-mmi-contrast-value=0x40000123\nwait\nexpect-status "
        "0x123\n"
        "expect-log debug FocusContrastValue 40000123\n"
        "sendcommand 203 background\nresult qz-af-mmi-contrast-value=0xC0000010\n");
    EXPECT_TRUE(play.allMet);
    const auto statuses = play.all<StatusEvent>();
    EXPECT_EQ(statuses.back().status, 0x10);  // the end of a session also waits for the command
}

TEST(Player, ClosesEachCameraThatItOpens) {
    const Play play("open 0\nopen 1\nset a=1\nparams\n");
    int open = 0;
    for (const LogEvent& line : play.all<LogEvent>()) {
        if (line.text.rfind("CCameraQzParam(", 0) == 0) ++open;
        if (line.text.rfind("~CCameraQzParam(", 0) == 0) --open;
        EXPECT_LE(open, 1);
    }
    EXPECT_EQ(open, 0);
    EXPECT_EQ(play.all<ParamsEvent>().at(0).rows.size(), 1U);
}

TEST(Player, RefreshDoesWhatAServiceDoesBeforeReading) {
    const Play play(
        "open 0\npublish\nset qz-image-post-process=off;camera_sound_state=0\nresult "
        "qz-otp-check=7\nrefresh\n"
        "expect-param super-resolution-picture-size-values \"\"\nexpect-param qz-otp-check 7\n"
        "expect-query shutter-mute yes\nexpect-query otp-result 7\n");
    EXPECT_TRUE(play.allMet);
    EXPECT_EQ(play.all<ParamsEvent>().at(0).rows.size(), 2U);
}

// Only complete names of the library are not reported as typing errors.
TEST(Player, UndeclaredTagFailsExpectations) {
    const Device bare;
    const std::string text =
        "open 0\nset iso=1600\nrequest\nexpect-entry iso 7\nexpect-no-entry iso\nexpect-change iso none\n"
        "expect-no-entry panorama2DHeight\npublish\nexpect-capability zslSupported undeclared\n"
        "result focusVcmValue=1 com.other.section.x=1\nexpect-status 0\n";
    Problems problems("s");
    checkAgainstDevice(parseSession(text, "s", problems), TagNames({}), problems);
    checkAgainstDevice(
        parseSession("open 0\nexpect-no-entry isoo\nexpect-no-entry android.x\n", "s", problems),
        TagNames({}), problems);
    EXPECT_THAT(problems.first(),
                ElementsAre("s:2: unknown tag 'isoo': expected a tag of this device or of the library",
                            "s:3: unknown tag 'android.x': expected a tag of this device or of the library"));

    const Play play(text, bare);
    std::vector<bool> met;
    for (const auto& expectation : play.all<ExpectationEvent>()) met.push_back(expectation.met);
    EXPECT_THAT(met, ElementsAre(false, false, false, false, true, true));
    EXPECT_THAT(play.all<ExpectationEvent>()[1].actual, HasSubstr("this device declares no tag 'iso'"));
    EXPECT_THAT(play.all<NoteEvent>().back().text,
                HasSubstr("left out: this device declares no tag 'com.other.section.x'"));
}

TEST(Player, GuestSessionSkipsUndeclaredTags) {
    Problems problems("s");
    const Session session = parseSession(builtInSession(), "s", problems);
    Device bare;
    std::vector<Event> events;
    Player player(bare, [&](const Event& event) { events.push_back(event); });
    player.playOnOtherDevice(session);
    size_t notes = 0;
    for (const Event& event : events) {
        EXPECT_FALSE(std::holds_alternative<ExpectationEvent>(event));
        const auto* request = std::get_if<RequestEvent>(&event);
        EXPECT_TRUE(!request || request->entries.empty());
        if (std::holds_alternative<NoteEvent>(event)) ++notes;
        const auto* command = std::get_if<CommandEvent>(&event);
        EXPECT_FALSE(command && command->text == "wait") << "for a result that cannot come";
    }
    EXPECT_GT(notes, 0U);
}

}  // namespace
}  // namespace qzcam
