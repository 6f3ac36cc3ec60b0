// SPDX-License-Identifier: Apache-2.0
// Sessions are written as events of a phone's tag monitor, recorded and played again.
#include "Tool.h"
#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "qzcam/BuiltIn.h"
#include "session/Player.h"
#include "support/Phone.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {
namespace {

using testing::HasSubstr;
using testing::Not;

std::vector<Event> played(const std::string& text) {
    Problems problems("s");
    const Session session = parseSession(text, "s", problems);
    EXPECT_TRUE(problems.empty()) << text;
    std::vector<Event> events;
    Player player(test::builtIn(), [&](const Event& event) { events.push_back(event); });
    EXPECT_TRUE(player.play(session)) << text;
    return events;
}

template <typename Entries>
std::string entriesText(const Entries& entries) {
    std::map<std::string, std::string> sorted;
    for (const EntryRow& row : entries) {
        if (row.change != Change::Gone) sorted[row.name] = toText(row.values, row.tag);
    }
    return testing::PrintToString(sorted);
}

// Requests, results and their messages. A request or result that equals the previous one changes no tag, so a
// phone's monitor does not show it.
std::vector<std::string> story(const std::vector<Event>& events) {
    std::vector<std::string> lines;
    std::string request;
    std::string result;
    bool isNews = true;
    for (const Event& event : events) {
        if (const auto* each = std::get_if<RequestEvent>(&event)) {
            isNews = std::exchange(request, entriesText(each->entries)) != request;
            if (isNews) lines.push_back("request " + request);
        } else if (const auto* answer = std::get_if<ResultEvent>(&event)) {
            const std::string before = result;
            result = entriesText(answer->entries);
            isNews = before != result;
            if (isNews) lines.push_back("result " + result);
        } else if (const auto* callback = std::get_if<CallbackEvent>(&event); callback && isNews) {
            lines.push_back("message " + callback->message.name + " " +
                            testing::PrintToString(callback->message.numbers));
        }
    }
    return lines;
}

// Parameters whose entries have no other source. The monitor of Android 13 prints bytes without blanks
// between them, so a text cannot be read back.
std::string randomSession(std::mt19937& random, bool withTexts = true) {
    std::vector<std::pair<const char*, std::vector<const char*>>> keys{
        {"iso", {"auto", "100", "1600"}},
        {"contrast", {"0", "150"}},
        {"zsl-mode", {"on", "off"}},
        {"qz-effect", {"zy-lofi", "sketch_gray"}},
        {"qz-omron-face-beauty-level", {"0", "7"}},
        {"rotation", {"90", "270"}},
        {"picture-size", {"4608x3456", "4000x3000"}},
        {"metering-areas", {"(0,0,100,100,1)", "(5,6,7,8,9)"}},
        {"key_exposure_time", {"20000", "100"}},
        {"qz-sensor-exposure-time", {"auto", "1/50", "1.5", "2"}},
        {"qz-sensor-iso", {"auto", "410"}},
        {"qz-professional-mode", {"on", "off"}},
        {"qz-exposure-compensation-value", {"0.5", "-1.5"}},
        {"qz_ois_gryo_offset_calib", {"on", "off"}},
    };
    if (withTexts) keys.push_back({"post-process-picture-name", {"P1.jpg", "a b"}});
    const std::vector<const char*> results{
        "result focusVcmValue=312",
        "result focusVcmValue=318 dualSensorAbnormal=2",
        "result dualSensorAbnormal=1",
        "result android.sensor.exposureTime=20000000 isoState=410 qz_algo_mean_y=120",
        "result oisGryoOffsetCalibResult=0,-12,7",
    };
    std::string session = "open 0\n";
    const auto pick = [&](const auto& list) { return list[random() % list.size()]; };
    for (int i = 0; i < 6; ++i) {
        for (int j = 0; j < 3; ++j) {
            const auto& [key, values] = keys[random() % keys.size()];
            session += random() % 4 == 0 ? std::string("unset ") + key + "\n"
                                         : std::string("set \"") + key + "=" + pick(values) + "\"\n";
        }
        session += "request\n" + std::string(pick(results)) + "\n";
    }
    return session;
}

std::string contentOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

class RecordTool : public RunTool {
  public:
    // A dump is recorded, and the recording meets its own expectations.
    std::string recorded(const std::string& dump) {
        const std::string input = file("phone.txt", dump);
        const std::string output = file("recorded.qzs", "");
        EXPECT_EQ(tool({"record", input, "-o", output}), kFine) << mErr;
        EXPECT_EQ(tool({"run", output, "--device", input, "--log", "silent"}), kFine) << mErr << mOut;
        return contentOf(output);
    }
};

TEST_F(RecordTool, ARecordedSessionGivesTheSameEntriesAndMessages) {
    std::mt19937 random(20240305);
    size_t messages = 0;
    for (const test::MonitorFormat format : test::kMonitorFormats) {
        if (format == test::MonitorFormat::Watch) continue;  // no dump around it
        for (int i = 0; i < 4; ++i) {
            const std::string session = randomSession(random, format != test::MonitorFormat::Android13);
            const std::vector<Event> events = played(session);
            const auto phone = test::onPhone(events);
            const std::string dump =
                test::dumpWith(std::string(builtInDevice()), test::monitorText(phone, format));
            const std::string text = recorded(dump);
            const auto expected = story(events);
            EXPECT_EQ(story(played(text)), expected) << session << text;
            for (const std::string& line : expected) messages += line.rfind("message", 0) == 0 ? 1U : 0U;
        }
    }
    EXPECT_GT(messages, 20U);
}

// The log adds no values to those of the events, whatever its layout.
TEST_F(RecordTool, TheLogOfASessionChangesNothing) {
    using Layout = test::LogFormat::Layout;
    std::mt19937 random(7);
    const std::vector<Event> events = played(randomSession(random));
    const auto phone = test::onPhone(events);
    const std::string dump = test::dumpWith(std::string(builtInDevice()),
                                            test::monitorText(phone, test::MonitorFormat::Android10));
    for (const Layout layout : {Layout::Threadtime, Layout::Brief, Layout::Long, Layout::Time}) {
        test::LogFormat format;
        format.layout = layout;
        format.uid = layout == Layout::Threadtime;
        const std::string text =
            recorded(test::bugreportWith(dump, test::logText(test::logOf(phone), format)));
        EXPECT_EQ(story(played(text)), story(events)) << text;
    }
}

TEST_F(RecordTool, UnknownValuesBecomeComments) {
    const std::vector<Event> events = played(
        "open 0\nset iso=1601;qz-dual-primary-mode=primary;qz-manual-focus-step-value=350;contrast=50\nrequest\n");
    const std::string text =
        recorded(test::dumpWith(std::string(builtInDevice()),
                                test::monitorText(test::onPhone(events), test::MonitorFormat::Android14)));
    EXPECT_THAT(
        text,
        HasSubstr("# com.ambrix.capture.metadata.iso 255: iso with a text that is not one of its words"));
    EXPECT_THAT(text, HasSubstr(": qz-dual-primary-mode=primary or qz-dual-primary-mode=default"));
    EXPECT_THAT(text, HasSubstr(": qz-magnifier-step-value=350 or qz-manual-focus-step-value=350"));
    EXPECT_THAT(text, HasSubstr("\nset contrast=50  # line "));
    EXPECT_THAT(text, HasSubstr("\nexpect-entry com.ambrix.capture.metadata.constrastValue 1  # line "));
    EXPECT_THAT(text, HasSubstr("\n# expect-entry com.ambrix.capture.metadata.iso 255  # line "));
    EXPECT_THAT(text, Not(HasSubstr("\nset iso")));
}

TEST_F(RecordTool, TakesParametersFromTheLogAndRefusesAnInputWithoutASession) {
    const std::string device(builtInDevice());
    const std::string log =
        "03-05 10:11:12.345   812  2207 D CameraClient: setParameters (pid 1301) (iso=1600;preview-size=640x480)\n"
        "03-05 10:11:13.345   812  2207 D CameraClient: setParameters (pid 1301) (zsl-mode=on)\n";
    const std::string text = recorded(test::bugreportWith(device, log));
    EXPECT_THAT(text, testing::ContainsRegex("set iso=1600  # line [0-9]+\nrequest"));
    EXPECT_THAT(text, testing::ContainsRegex("unset iso  # line [0-9]+\nset zsl-mode=on"));
    EXPECT_THAT(text, Not(HasSubstr("preview-size")));
    const std::string closed = file("closed.txt", device);
    EXPECT_EQ(tool({"record", closed, "-o", temporary("none.qzs")}), kBadInput);
    EXPECT_THAT(mErr, HasSubstr("no requests or results in it"));
    EXPECT_EQ(tool({"record", closed, "-o", closed}), kUsage);
}

}  // namespace
}  // namespace qzcam
