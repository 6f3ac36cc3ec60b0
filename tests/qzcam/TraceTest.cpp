// SPDX-License-Identifier: Apache-2.0
#include "Tool.h"
#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "device/Properties.h"
#include "session/Player.h"
#include "support/Phone.h"
#include "trace/Filter.h"
#include "trace/ParameterTable.h"
#include "trace/Timeline.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <random>
#include <set>

namespace qzcam {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// A session, and the log and events that a phone writes for it.
struct Recorded {
    explicit Recorded(std::string_view session, std::string dump = std::string(builtInDevice()))
        : deviceText(std::move(dump)) {
        const ScopedProperties properties;
        setProperty("camera.qzperformex.loglevel", "0");  // other tests may have left one
        Problems problems("s");
        const Device device = parseDump(deviceText, "device", "", problems);
        std::vector<Event> played;
        Player player(device, [&played](const Event& event) { played.push_back(event); });
        player.playOnOtherDevice(parseSession(session, "s", problems));
        events = test::onPhone(played);
        for (const test::PhoneLine& line : test::logOf(events)) {
            if (line.message.find("failed to update iso") != std::string::npos)
                lines.push_back(mistyped(line));
            lines.push_back(line);
        }
    }

    // The platform of a phone logs this line before.
    static test::PhoneLine mistyped(test::PhoneLine line) {
        line.nanoseconds -= 1;
        line.tag = "Camera2-Metadata";
        line.message =
            "Mismatched tag type when updating entry iso (-2147483648) of type int32; got type byte data instead ";
        return line;
    }

    std::string report(const std::vector<test::PhoneLine>& log,
                       test::MonitorFormat format = test::MonitorFormat::Android10) const {
        test::LogFormat threadtime;
        threadtime.uid = true;
        threadtime.printable = true;
        return test::bugreportWith(test::dumpWith(deviceText, test::monitorText(events, format)),
                                   test::logText(log, threadtime));
    }
    std::string report() const { return report(lines); }

    std::string deviceText;
    std::vector<test::PhoneEvent> events;
    std::vector<test::PhoneLine> lines;
};

Timeline timeline(const std::string& text) {
    Evidence evidence;
    evidence.read(textInput("report", text));
    return timelineOf(std::move(evidence));
}

std::vector<TraceItem> itemsOf(const Timeline& timeline) {
    std::vector<TraceItem> items;
    for (const TraceGroup& group : timeline.groups)
        items.insert(items.end(), group.items.begin(), group.items.end());
    return items;
}

std::string fieldsOf(const std::string& name, const std::vector<Message::Field>& fields) {
    std::string text = name;
    for (const Message::Field& field : fields) text += fmt::format(" {}={}", field.name, field.value);
    return text;
}

std::vector<std::string> messagesOf(const std::vector<TraceItem>& items) {
    std::vector<std::string> messages;
    for (const TraceItem& item : items) {
        if (item.kind == TraceItem::Kind::Message) messages.push_back(fieldsOf(item.message, item.fields));
    }
    std::sort(messages.begin(), messages.end());
    return messages;
}

std::vector<std::string> entriesOf(const std::vector<TraceItem>& items) {
    std::vector<std::string> entries;
    for (const TraceItem& item : items) {
        const bool isEvent = item.kind == TraceItem::Kind::Entry && item.pid < 0;
        if (isEvent)
            entries.push_back(
                fmt::format("{} {} {}: {}", *item.frame, nameOf(item.side), item.tag, item.value));
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

// Returns the same facts from the player, in the same words.
void addEntries(std::vector<std::string>& all, int64_t frame, const char* side,
                const std::vector<EntryRow>& entries) {
    for (const EntryRow& entry : entries) {
        if (entry.change == Change::None) continue;
        all.push_back(fmt::format("{} {} {}: {}", frame, side, entry.name,
                                  entry.change == Change::Gone ? "" : toText(entry.values, entry.tag)));
    }
}

const char* const kMistypedIso = "iso) with type 1 (int32)";

std::string withMistypedIso() {
    std::string dump(builtInDevice());
    const std::string byte = "(iso) with type 0 (byte)";
    dump.replace(dump.find(byte), byte.size(), std::string("(") + kMistypedIso);
    return dump;
}

TEST(Trace, BuiltInSessionIsReadFromABugReport) {
    for (const std::string& dump : {std::string(builtInDevice()), withMistypedIso()}) {
        const Recorded recorded(builtInSession(), dump);
        std::vector<std::string> entries;
        std::vector<std::string> messages;
        for (const test::PhoneEvent& each : recorded.events) {
            if (const auto* request = std::get_if<RequestEvent>(&each.event))
                addEntries(entries, each.frame, "request", request->entries);
            if (const auto* result = std::get_if<ResultEvent>(&each.event))
                addEntries(entries, each.frame, "result", result->entries);
            if (const auto* callback = std::get_if<CallbackEvent>(&each.event))
                messages.push_back(fieldsOf(callback->message.name, callback->message.fields));
        }
        std::sort(entries.begin(), entries.end());
        std::sort(messages.begin(), messages.end());
        for (const test::MonitorFormat format :
             {test::MonitorFormat::Android9, test::MonitorFormat::Android10,
              test::MonitorFormat::Android14}) {
            const auto items = itemsOf(timeline(recorded.report(recorded.lines, format)));
            EXPECT_EQ(entriesOf(items), entries);
            EXPECT_EQ(messagesOf(items), messages);
            ParameterTable table;
            for (const TraceItem& item : items) table.add(item);
            const auto& iso = table.rows().at("iso");
            const bool isMistyped = dump != builtInDevice();
            EXPECT_EQ(iso.refused.times != 0, isMistyped);
            EXPECT_EQ(iso.declared.count("int32"), isMistyped ? 1U : 0U);
            EXPECT_EQ(iso.written.times == 0, isMistyped);
            EXPECT_EQ(table.rows().at("zsl-mode").refused.times, 0U);
        }
    }
}

// Returns each statement of a fact, with its side and without it: damage may hide the side.
std::vector<std::string> statementsOf(const TraceItem& item) {
    using Kind = TraceItem::Kind;
    std::vector<std::string> all;
    const auto state = [&](const std::string& what) {
        all.push_back(what);
        if (item.side != TraceItem::Side::Unknown)
            all.push_back(fmt::format("{}: {}", nameOf(item.side), what));
    };
    const bool isNamed = !item.tag.empty() && !startsWith(item.tag, "0x");  // the name may be in a lost line
    const bool isValue = item.kind == Kind::Entry || item.kind == Kind::Logged || item.kind == Kind::Refused;
    if (isNamed && isValue && item.isRemoved) state(fmt::format("{} {} absent", nameOf(item.kind), item.tag));
    const auto elements = split(item.value, ' ');
    for (size_t i = 0; isNamed && isValue && i < elements.size(); ++i) {
        if (elements[i] == "?" || elements[i].empty()) continue;
        state(
            fmt::format("{} {} {} of {}: {}", nameOf(item.kind), item.tag, i, elements.size(), elements[i]));
    }
    if (item.kind == Kind::Undeclared || item.kind == Kind::Gated)
        state(nameOf(item.kind) + (" " + item.tag));
    if (item.status) state(fmt::format("{} has status {}", item.tag, *item.status));
    if (!item.declared.empty()) state(fmt::format("{} is declared {}", item.tag, item.declared));
    if (item.frame) state(fmt::format("frame {}", *item.frame));
    if (!item.camera.empty()) state("camera " + item.camera);
    for (const std::string& tag : item.tags) state("has " + tag);
    if (item.kind == Kind::List && !item.cause.empty()) state(item.cause);
    if (item.kind == Kind::Line && item.tag.empty()) state(item.text);
    for (const Message::Field& field : item.fields) {
        if (field.value != "?") state(fmt::format("{} {}={}", item.message, field.name, field.value));
    }
    for (const VerdictRow& verdict : item.verdicts)
        state(verdict.key + "=" + verdict.value + " " + verdict.reason);
    return all;
}

std::set<std::string> statementsOf(const std::vector<TraceItem>& items) {
    std::set<std::string> all;
    for (const TraceItem& item : items) {
        for (std::string& statement : statementsOf(item)) all.insert(std::move(statement));
    }
    return all;
}

// A line is missing, single or doubled, each in a third of the cases; half of the logs are out of order.
std::vector<test::PhoneLine> damaged(const std::vector<test::PhoneLine>& lines, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<test::PhoneLine> log;
    for (const test::PhoneLine& line : lines) log.insert(log.end(), random() % 3, line);
    if (seed % 2 == 0) std::shuffle(log.begin(), log.end(), random);
    return log;
}

// Every fact from a damaged log must also be a fact from the whole log. Only a layout with times
// distinguishes a repeated line from a line that was written twice.
TEST(Trace, DamagedLogGivesNoWrongFacts) {
    const char* session =
        "open 0\ninspect 4 captag com.ambrix.device.capabilities.sensorWbRange\nrequest\nopen 0\npublish\n"
        "inspect 5 ctrltag com.ambrix.capture.metadata.iso stattag "
        "com.ambrix.capture.metadata.focusVcmValue\nset iso=1600;qz-mmi-afc-mode=on;zsl-mode=on\nrequest\n"
        "result focusVcmValue=3\nset iso=100\nrequest\nrequest\nresult focusVcmValue=4\nresult focusVcmValue=5\n"
        "set iso=50\nrequest\nresult oisGryoOffsetCalibResult=0,-12,7\n";
    const Recorded recorded(session, withMistypedIso());
    using Layout = test::LogFormat::Layout;
    for (const Layout layout : {Layout::Threadtime, Layout::Brief, Layout::Long}) {
        test::LogFormat format;
        format.layout = layout;
        const auto whole = itemsOf(timeline(test::logText(recorded.lines, format)));
        const auto truth = statementsOf(whole);
        ParameterTable all;
        for (const TraceItem& item : whole) all.add(item);
        for (unsigned seed = 1; seed <= 60; ++seed) {
            const std::string log = test::logText(damaged(recorded.lines, seed), format);
            const auto items = itemsOf(timeline(log));
            for (const std::string& statement : statementsOf(items)) {
                if (truth.count(statement) == 0) ADD_FAILURE() << seed << " untrue: " << statement;
            }
            ParameterTable table;
            for (const TraceItem& item : items) table.add(item);
            for (const auto& [key, row] : table.rows()) {
                if (layout == Layout::Brief) continue;
                EXPECT_LE(row.refused.times, all.rows().at(key).refused.times) << seed << key;
                EXPECT_LE(row.written.times, all.rows().at(key).written.times) << seed << key;
            }
        }
    }
}

// The clock of the phone's start puts log and frames in one order, and so do values that are the same in
// both. Otherwise they are shown one after the other.
TEST(Trace, LogAndFramesAreMergedByClockOrFrameNumber) {
    const Recorded recorded(
        "open 0\nset iso=1600;qz-mmi-afc-mode=on\nrequest\nresult focusVcmValue=3\nset iso=50\nrequest\n");
    const std::string dump = test::dumpWith(
        recorded.deviceText, test::monitorText(recorded.events, test::MonitorFormat::Android10));
    test::LogFormat monotonic;
    monotonic.monotonic = true;
    monotonic.digits = 6;
    const Timeline tied = timeline(test::logText(recorded.lines, monotonic) + dump);
    ASSERT_EQ(tied.groups.size(), 1U);
    const auto& items = tied.groups.front().items;
    const auto place = [&items](const std::string& tag, const std::string& value) {
        return std::find_if(items.begin(), items.end(), [&](const TraceItem& item) {
            return item.tag == "com.ambrix.capture.metadata." + tag && item.value == value;
        });
    };
    EXPECT_LT(place("mmiAfcMode", "1"), place("iso", "7"));
    EXPECT_LT(place("iso", "7"), place("iso", "1"));
    const auto placed = [&](const char* verify) {
        std::string log = test::logText(recorded.lines, {});
        const std::string on = "verify: 1, on";
        for (size_t at = log.find(on); at != std::string::npos; at = log.find(on, at + 1))
            log.replace(at, on.size(), verify);
        const Timeline timeline = qzcam::timeline(log + dump);
        std::string order;
        for (const TraceItem& item : itemsOf(timeline)) {
            const bool isAfc = item.tag == "com.ambrix.capture.metadata.mmiAfcMode";
            if (isAfc && item.side == TraceItem::Side::Request) order += item.frame ? " sent" : " logged";
        }
        return order + "; " + timeline.notes.back();
    };
    EXPECT_THAT(placed("verify: 1, on"),
                HasSubstr(" logged sent logged; log and frames are put in one order by the values"));
    EXPECT_THAT(placed("verify: 0, off"),
                HasSubstr(" sent logged logged; the log and the frames have different clocks"));
}

TEST(Trace, FoldedAndRepeatedLinesCountOnce) {
    const std::string refusal =
        "03-05 10:11:12.345   812  2207 E CameraQzParam: setIso(), failed to update iso: 7, return: -22\n";
    const std::string folded =
        "03-05 10:11:12.400   812  2207 I chatty  : uid=1047(cameraserver) C3Dev-0-ReqQueu identical 3 lines\n";
    const std::string last =
        "03-05 10:11:12.401   812  2207 E CameraQzParam: setIso(), failed to update iso: 7, return: -22\n";
    const Timeline told =
        timeline(refusal + folded + last + "------ SYSTEM LOG (logcat -T 1) ------\n" + last);
    ParameterTable table;
    for (const TraceItem& item : itemsOf(told)) table.add(item);
    EXPECT_EQ(table.rows().at("iso").refused.times, 5U);
    EXPECT_THAT(table.rows().at("iso").statuses, ElementsAre(-22));
    EXPECT_THAT(told.notes, Contains(HasSubstr("1 line left out as repeated")));
    EXPECT_THAT(table.neverSeen(), Contains("zsl-mode"));
    EXPECT_THAT(table.neverSeen(), Not(Contains("iso")));
}

TEST(Trace, MessageOfUnmonitoredEntriesIsUnknown) {
    const Recorded recorded(
        "open 0\nset qz-professional-mode=on\nrequest\nresult android.sensor.exposureTime=20000000 isoState=410 "
        "qz_algo_mean_y=120\n");
    std::string report = recorded.report();
    EXPECT_THAT(messagesOf(itemsOf(timeline(report))),
                ElementsAre("preview-parameters exposure-time-us=20000 iso=400 hint=1"));
    const std::string hint = "        com.ambrix.capture.metadata.exposureStateHint\n";
    report.erase(report.find(hint), hint.size());
    EXPECT_THAT(timeline(report).notes, Contains(HasSubstr("exposureStateHint was not monitored")));
    EXPECT_THAT(messagesOf(itemsOf(timeline(report))), IsEmpty());
}

class TraceTool : public RunTool {
  public:
    int toolWithInput(const std::vector<std::string>& words, const std::string& path) {
        const int before = dup(STDIN_FILENO);
        const int input = open(path.c_str(), O_RDONLY);
        dup2(input, STDIN_FILENO);
        close(input);
        const int status = tool(words);
        dup2(before, STDIN_FILENO);
        close(before);
        return status;
    }

    size_t lines(const std::string& event) const {
        size_t count = 0;
        for (const std::string_view line : split(mOut, '\n')) {
            if (!line.empty() && nlohmann::json::parse(line).value("event", "") == event) ++count;
        }
        return count;
    }
};

TEST_F(TraceTool, PrintsColumnsAndFiltersThem) {
    const Recorded recorded(builtInSession(), withMistypedIso());
    const std::string path = file("report.txt", recorded.report());
    EXPECT_EQ(tool({"trace", path}), kFine);
    EXPECT_THAT(mOut, HasSubstr("colorEffectMode: 16"));
    EXPECT_THAT(mOut, HasSubstr("qz-effect=zy-lofi"));
    EXPECT_THAT(mOut, HasSubstr("iso: 7 REFUSED"));
    EXPECT_THAT(mOut, HasSubstr("ois-gyro-offset result=0 x=-12 y=7"));
    EXPECT_THAT(mOut, HasSubstr("never seen:"));
    EXPECT_EQ(tool({"trace", path, "--key", "iso"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("iso: 7 REFUSED"));
    EXPECT_THAT(mOut, Not(HasSubstr("colorEffectMode")));
    EXPECT_EQ(tool({"trace", path, "--entry", "focusVcmValue", "--json"}), kFine);
    EXPECT_EQ(lines("entry"), 4U);
    EXPECT_EQ(lines("refused"), 0U);
    EXPECT_EQ(tool({"trace", path, "--frames", "0..0", "--json"}), kFine);
    EXPECT_GT(lines("entry"), 2U);
    EXPECT_EQ(tool({"trace", path, "--frames", "5..1"}), kUsage);
    EXPECT_EQ(tool({"trace", file("empty", "nothing here\n")}), kBadInput);
    EXPECT_THAT(mErr, HasSubstr("no camera session found"));
}

TEST_F(TraceTool, StandardInputIsPrintedAsItArrives) {
    const Recorded recorded(builtInSession(), withMistypedIso());
    const std::string path = file("log", test::logText(recorded.lines, {}));
    EXPECT_EQ(toolWithInput({"trace", "-", "--json"}, path), kFine);
    EXPECT_GT(lines("refused"), 0U);
    EXPECT_EQ(lines("never-seen"), 1U);
    const std::string watch = file("watch", test::monitorText(recorded.events, test::MonitorFormat::Watch));
    EXPECT_EQ(toolWithInput({"trace", "-"}, watch), kFine);
    EXPECT_THAT(mOut, HasSubstr("oisGryoOffsetCalibResult: 0 -12 7"));
}

}  // namespace
}  // namespace qzcam
