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

// Each expectation is met by the actual value and by no other.
TEST(Player, ExamineExpectations) {
    const struct {
        const char* commands;
        const char* met;
        const char* failed;
        const char* actual;  // message of the failed one
    } kRows[] = {
        {"set a=1", "expect-param a 1", "expect-param a 2", "'1'"},
        {"unset a", "expect-no-param a", "expect-param a 1", "nothing"},
        {"set a=1", "expect-param a 1", "expect-no-param a", "'1'"},
        {"set iso=1600\nrequest", "expect-entry iso 7", "expect-entry iso 8", "byte[1] 7"},
        {"set iso=1600\nrequest", "expect-entry iso 7", "expect-entry iso 7,7", "byte[1] 7"},
        {"set iso=1600\nrequest", "expect-no-entry qz-zsl-mode", "expect-no-entry iso", "byte[1] 7"},
        {"set iso=1600\nrequest\nunset iso\nrequest", "expect-no-entry iso", "expect-entry iso 7", "nothing"},
        {"callback hdc-calib 3", "expect-callback 0x2000000 3 0", "expect-callback 0x2000000 3 0", "nothing"},
        {"callback hdc-calib 3", "expect-status 0", "expect-callback hdc-calib-result 4",
         "0x2000000 3,0 (hdc-calib-result)"},
        {"callback hdc-calib 3", "expect-callback hdc-calib-result result=3", "expect-callback 0x2000000",
         "nothing"},
        {"callback hdc-calib 3", "expect-status 0", "expect-no-callback", "0x2000000 3,0 (hdc-calib-result)"},
        {"callback hdc-calib -1", "expect-callback hdc-calib-result 0xffffffff",
         "expect-callback hdc-calib-result 1", "nothing"},
        {"callback smart-mode 2", "expect-callback 0x100 bytes 65656565 02 00 00 00",
         "expect-callback 0x100 mode=3", "nothing"},
        {"callback smart-mode 0", "expect-no-callback", "expect-callback 0x100", "nothing"},
        {"sendcommand 7 1 2", "expect-status -22", "expect-status 0", "-22"},
        {"sendcommand 7 1 2", "expect-log error command 7 (arguments 1, 2)", "expect-log info command 7",
         "none in 1"},
        {"sendcommand 7 1 2", "expect-no-log info command 7", "expect-no-log error command 7",
         "Unknown command 7"},
        {"skip 3264x2448 0x23", "expect-skip yes", "expect-skip no", "yes"},
        {"result oisHallCheckResult=0", "expect-status 0", "expect-callback ois-gyro-offset",
         "ois-hall-check"},
        {"result oisHallCheckResult=0", "expect-callback ois-hall-check result=0",
         "expect-callback 0x40000000", "nothing"},
        {"set iso=7\nrequest", "expect-verdict iso fallback", "expect-verdict iso written", "fallback ("},
        {"set iso=100\nrequest", "expect-verdict iso written", "expect-verdict contrast written", "nothing"},
        {"request\nset iso=50\nrequest", "expect-change iso new", "expect-change iso changed", "new"},
        {"set iso=50\nrequest\nunset iso\nrequest", "expect-change iso gone", "expect-change iso none",
         "gone"},
        {"set iso=50\nrequest\nunset iso\nrequest\nset iso=50\nrequest", "expect-change iso new",
         "expect-change iso none", "new"},
        {"publish", "expect-capability manualVcmStartValue published",
         "expect-capability manualVcmStartValue absent", "published"},
        {"publish", "expect-capability qz-slow-jpeg-mode-threshold silent",
         "expect-capability iso undeclared", "nothing"},
        {"set a=1", "expect-query recording no", "expect-skip yes", "nothing"},
        {"query ext-scene hdr", "expect-query ext-scene hdr yes", "expect-query ext-scene sun yes", "no"},
    };
    for (const auto& row : kRows) {
        const Play play(std::string("open 0\n") + row.commands + "\n" + row.met + "\n" + row.failed + "\n");
        const auto expectations = play.all<ExpectationEvent>();
        ASSERT_EQ(expectations.size(), 2U) << row.met;
        EXPECT_TRUE(expectations[0].met) << row.met << ": there is " << expectations[0].actual;
        EXPECT_FALSE(expectations[1].met) << row.failed;
        EXPECT_THAT(expectations[1].actual, HasSubstr(row.actual)) << row.failed;
        EXPECT_FALSE(play.allMet);
        EXPECT_EQ(play.all<SummaryEvent>().at(0).failed, 1U);
    }
}

TEST(Player, MarksChangesBetweenRequests) {
    const Play play(
        "open 0\nset iso=1600;zsl-mode=on\nrequest\nset iso=50;contrast=150\nunset "
        "zsl-mode\nrequest\nrequest\n"
        "open 0\nset iso=50\nrequest\n");
    const auto requests = play.all<RequestEvent>();
    std::vector<std::vector<std::string>> shown;
    for (const RequestEvent& request : requests) {
        shown.emplace_back();
        for (const EntryRow& row : request.entries) {
            static const char* const kMarks[] = {"", "+", "~", "-"};
            if (row.name.find("capture.metadata") == std::string::npos) continue;
            shown.back().push_back(kMarks[static_cast<size_t>(row.change)] +
                                   row.name.substr(row.name.rfind('.') + 1) + " " +
                                   toText(row.values, row.tag));
        }
    }
    using testing::Contains;
    using testing::Not;
    ASSERT_EQ(shown.size(), 4U);
    EXPECT_THAT(shown[0], Contains("+iso 7"));
    EXPECT_THAT(shown[0], Contains("+qz-zsl-mode 1"));
    EXPECT_THAT(shown[1], Contains("~iso 1"));
    EXPECT_THAT(shown[1], Contains("-qz-zsl-mode 1"));
    EXPECT_THAT(shown[1], Contains("+constrastValue 3"));
    EXPECT_THAT(shown[2], Contains("iso 1"));
    EXPECT_THAT(shown[2], Not(Contains(HasSubstr("zsl"))));
    EXPECT_THAT(shown[3], Contains("+iso 1"));  // another camera has no earlier entries to compare with
}

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

TEST(Player, ChecksTagsAndValuesAgainstTheDevice) {
    const struct {
        const char* command;
        const char* problem;
    } kRows[] = {
        {"result focusVcmValue=1", nullptr},
        {"result nothing=1", "s:2: unknown tag 'nothing'"},
        {"result focusVcmValue=x",
         "s:2: expected a number of 32 bits of com.ambrix.capture.metadata.focusVcmValue (type int32), not "
         "'x'"},
        {"expect-entry iso 256", "s:2: expected a number from 0 to 255"},
        {"expect-entry nothing 1", "s:2: unknown tag"},
        {"expect-no-entry nothing", "s:2: unknown tag 'nothing'"},
        {"expect-no-entry iso", nullptr},
        {"expect-change nothing new", "s:2: unknown tag 'nothing'"},
    };
    for (const auto& row : kRows) {
        Problems problems("s");
        const Session session = parseSession(std::string("open 0\n") + row.command, "s", problems);
        checkAgainstDevice(session, TagNames(test::builtIn().vendorTags), problems);
        ASSERT_EQ(problems.count(), row.problem ? 1U : 0U) << row.command;
        EXPECT_THAT(problems.empty() ? "" : problems.first().front(),
                    HasSubstr(row.problem ? row.problem : ""));
    }
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
    EXPECT_THAT(problems.first(), ElementsAre("s:2: unknown tag 'isoo'", "s:3: unknown tag 'android.x'"));

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
