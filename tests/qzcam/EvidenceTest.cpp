// SPDX-License-Identifier: Apache-2.0
// Evidence that `trace` takes from dumps: whole requests and results, vendor tags of several providers, and
// the values that the device offers.
#include "Tool.h"
#include "base/Text.h"
#include "support/DumpComposer.h"
#include "trace/Timeline.h"
#include "trace/TraceOutput.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <sys/ioctl.h>
#include <sys/wait.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <csignal>
#include <map>
#include <thread>

namespace qzcam {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kCapture = "com.ambrix.capture.metadata.";

std::vector<TraceItem> itemsOf(const std::string& text) {
    Evidence evidence;
    evidence.read(textInput("dump", text));
    std::vector<TraceItem> items;
    for (const TraceGroup& group : timelineOf(std::move(evidence)).groups)
        items.insert(items.end(), group.items.begin(), group.items.end());
    return items;
}

// "request iso=7 [frame]" of all entries of the library, in their order.
std::vector<std::string> toldBy(const std::vector<TraceItem>& items) {
    std::vector<std::string> told;
    for (const TraceItem& item : items) {
        if (item.kind != TraceItem::Kind::Entry || item.isHiddenByDefault) continue;
        told.push_back(fmt::format("{} {}={}{}", nameOf(item.side), item.tag.substr(item.tag.rfind('.') + 1),
                                   item.value, item.frame ? fmt::format(" {}", *item.frame) : ""));
    }
    return told;
}

// The sample phone with the iso of a monitored frame, of its last request and its latest result.
test::DumpPhone phone(int platform) {
    test::DumpPhone phone = test::samplePhone(platform);
    const test::DumpEntry vcm{std::string(kCapture) + "focusVcmValue", 0x80000002, "int32", {"318"}};
    const test::DumpEntry mode{"android.control.mode", 0x1000f, "byte", {"AUTO"}};
    const test::DumpEntry iso{std::string(kCapture) + "iso", 0x80000000, "byte", {"2"}};
    phone.blocks[0].tags.push_back({vcm.id, 1, "com.ambrix.capture.metadata", "focusVcmValue"});
    phone.cameras[0].client = {{"Latest received frame:",
                                {{"android.request.frameCount", 0xc0001, "int32", {"1203"}},
                                 {"android.sensor.timestamp", 0xe0010, "int64", {"81234567800123"}},
                                 vcm}},
                               {"Last request sent:", {mode, iso}}};
    phone.previousSession = {{"Last request sent:", {iso}}};
    return phone;
}

TEST(Arrays, AreFactsBehindTheEventsOfTheirSession) {
    for (const int platform : test::kPlatforms) {
        const auto items = itemsOf(test::dumpOf(phone(platform)));
        std::vector<std::string> expected{"request iso=7 1203", "result focusVcmValue=318 1203",
                                          "request iso=2"};
        if (platform >= 12) expected.emplace_back("request iso=2");
        EXPECT_EQ(toldBy(items), expected) << platform;
        const auto result = std::find_if(items.begin(), items.end(), [](const TraceItem& item) {
            return item.kind == TraceItem::Kind::Result;
        });
        ASSERT_NE(result, items.end());
        EXPECT_EQ(result->time.nanoseconds, 81'234'567'800'123);
    }
}

// Lines keep their numbers where the dump has gone through a log.
TEST(Arrays, LoggedDumpGivesLineNumbers) {
    const std::string dump = test::dumpOf(phone(11));
    std::string log;
    for (const std::string_view line : split(dump, '\n'))
        log += fmt::format("03-05 10:11:12.345   812  2207 I Dump    : {}\n", line);
    const auto plain = itemsOf(dump);
    const auto logged = itemsOf(log);
    ASSERT_EQ(logged.size(), plain.size());
    for (size_t i = 0; i < plain.size(); ++i) EXPECT_EQ(logged[i].line, plain[i].line) << plain[i].tag;
}

// Two providers declare one name with different numbers and types: each camera's values are its own.
TEST(Arrays, ProvidersAreNotMixedUp) {
    test::DumpPhone two = phone(14);
    two.blocks[1].tags.push_back({0x80000002, 1, "com.ambrix.capture.metadata", "iso"});
    two.cameras[1].entries.push_back({std::string(kCapture) + "iso", 0x80000002, "int32", {"1"}});
    const std::string watch =
        "0:com.example.camera  f17:81234567890123ns:             REQ:com.ambrix.capture.metadata.iso: [7 ]\n"
        "1:com.example.other  f18:81234567990123ns:             REQ:com.ambrix.capture.metadata.iso: [7 ]\n"
        "9:com.example.third  f19:81234568990123ns:             REQ:com.ambrix.capture.metadata.iso: [7 ]\n";
    Evidence evidence;
    evidence.read(textInput("watch", watch));
    evidence.read(textInput("dump", test::dumpOf(two)));
    const Timeline timeline = timelineOf(std::move(evidence));
    std::map<std::string, int> types;
    for (const TraceGroup& group : timeline.groups) {
        for (const TraceItem& item : group.items) {
            const bool isWatched = item.frame && *item.frame < 100;
            if (isWatched) types[item.camera] = item.values ? item.values->type : -1;
        }
    }
    EXPECT_THAT(types,
                ElementsAre(std::pair("0", TYPE_BYTE), std::pair("1", TYPE_INT32), std::pair("9", -1)));
    EXPECT_THAT(timeline.notes,
                testing::Contains(HasSubstr("0x80000000 byte for camera 0, 0x80000002 int32 for camera 1")));
}

class EvidenceTool : public RunTool {
  public:
    // "iso=50 not-offered" of all facts.
    std::vector<std::string> verdicts() const {
        std::vector<std::string> all;
        for (const std::string_view line : split(mOut, '\n')) {
            if (line.empty()) continue;
            const auto json = nlohmann::json::parse(line);
            for (const auto& verdict : json.value("verdicts", nlohmann::json::array())) {
                all.push_back(fmt::format("{}={} {}", verdict["key"].get<std::string>(),
                                          verdict["value"].get<std::string>(),
                                          verdict["verdict"].get<std::string>()));
            }
        }
        return all;
    }

    // Starts the tool with pipes for its input and output.
    pid_t start(const std::vector<std::string>& words) {
        int input[2];
        int output[2];
        EXPECT_EQ(pipe(input) + pipe(output), 0);
        const pid_t process = fork();
        if (process == 0) {
            dup2(input[0], STDIN_FILENO);
            dup2(output[1], STDOUT_FILENO);
            for (const int each : {input[0], input[1], output[0], output[1]}) close(each);
            std::vector<const char*> argv{"qzcam"};
            for (const std::string& word : words) argv.push_back(word.c_str());
            std::_Exit(runTool(static_cast<int>(argv.size()), argv.data()));
        }
        close(input[0]);
        close(output[1]);
        mInput = input[1];
        mOutput = output[0];
        return process;
    }
    std::string readUntil(const std::string& expected) const {
        std::string text;
        char piece[4096];
        for (ssize_t size = 1; size > 0 && text.find(expected) == std::string::npos;) {
            size = read(mOutput, piece, sizeof(piece));
            text.append(piece, static_cast<size_t>(std::max<ssize_t>(size, 0)));
        }
        return text;
    }

    int mInput = -1;
    int mOutput = -1;
};

const char* const kRefusal =
    "03-05 10:11:12.345   812  2207 E CameraQzParam: setIso(), failed to update iso: 7, return: -22\n";

TEST_F(EvidenceTool, HiddenEntriesAreShownByAFilter) {
    const std::string path = file("dump", test::dumpOf(phone(11)));
    EXPECT_EQ(tool({"trace", path, "--all"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("2 entries, 1 of which is not the library's"));
    EXPECT_THAT(mOut, Not(HasSubstr("android.control.mode")));
    EXPECT_EQ(tool({"trace", path, "--entry", "android.control.mode"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("android.control.mode: 1 (AUTO)"));
    EXPECT_EQ(tool({"trace", path, "--key", "zsl-mode"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("qz-zsl-mode: absent"));
    EXPECT_THAT(mOut, HasSubstr("last request sent has no such entry"));
    EXPECT_THAT(mOut, Not(HasSubstr("iso")));
}

TEST_F(EvidenceTool, ValuesAreComparedWithTheDevice) {
    const std::string device = file("device", test::dumpOf(phone(14)));  // offers auto and 100 to 6400
    const auto set = [](const std::string& parameters) {
        return "03-05 10:11:12.301   812  2207 D CameraClient: setParameters (pid 1301) (" + parameters +
               ")\n";
    };
    const auto event = [](const std::string& value) {
        return "0:com.example.camera  f17:81234567890123ns:             REQ:com.ambrix.capture.metadata.iso: [" +
               value + " ]\n";
    };
    const std::string offers = set("iso-mode-values=auto,100");
    struct {
        std::string text;
        bool withDevice;
        std::vector<std::string> verdicts;
    } const rows[] = {
        {set("iso=50;picture-size=4000x3000"), true, {"iso=50 not-offered"}},
        {set("iso=1600;picture-size=1x1"), true, {"picture-size=1x1 not-offered"}},
        {set("iso=50;unknown=1"), false, {}},  // nothing tells what the device offers
        {set("iso=foo"), true, {"iso=foo fallback"}},
        {set("rotation=3000000000"), false, {"rotation=3000000000 overflows"}},
        {offers + set("iso=50"), false, {"iso=50 not-offered"}},
        {offers + set("iso=100"), false, {}},
        {offers + set("iso-mode-values=50") + set("iso=50"), false, {}},  // contradictory
        {event("1"), true, {"iso=50 not-offered"}},
        {event("7"), true, {}},
        {event("255"), true, {"iso= fallback"}},  // the text is unknown
        {"03-05 10:11:12.345   812  2207 E CameraQzParam: setIso(), failed to update iso: 1, return: -22\n",
         true,
         {"iso=50 not-offered"}},
    };
    for (const auto& row : rows) {
        std::vector<std::string> words{"trace", file("log", row.text), "--json"};
        if (row.withDevice) words.insert(words.end(), {"--device", device});
        EXPECT_EQ(tool(words), kFine) << row.text;
        EXPECT_EQ(verdicts(), row.verdicts) << row.text;
    }
    const std::string input = file("input", set("iso=50;rotation=3000000000") + test::dumpOf(phone(14)));
    EXPECT_EQ(tool({"trace", input, "--key", "iso", "--all"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("iso=50 not offered: iso-mode-values: auto,100,200"));
    EXPECT_THAT(mOut, testing::ContainsRegex("\niso +1 set, [0-9]+ written, 1 not offered "));
    EXPECT_THAT(mOut, Not(HasSubstr("overflows: 3000000000")));
    EXPECT_THAT(mErr, HasSubstr("the camera dump from line 2, the log from line 1"));
}

TEST_F(EvidenceTool, StreamPrintsItsSummaryOnCtrlC) {
    const std::string lines = std::string(kRefusal) + kRefusal;
    for (const bool isInterrupted : {true, false}) {
        const std::string timeline = temporary("timeline");
        const pid_t process = start({"trace", "-", "--perfetto", timeline});
        EXPECT_EQ(write(mInput, lines.data(), lines.size()), static_cast<ssize_t>(lines.size()));
        EXPECT_THAT(readUntil("REFUSED"), HasSubstr("iso: 7 REFUSED"));  // before the input ends
        if (isInterrupted) {
            EXPECT_EQ(kill(process, SIGINT), 0);
            EXPECT_THAT(readUntil("never seen:"), HasSubstr("1 refused (status -22)"));
        }
        close(mOutput);
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);  // its input is still open
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), kFine);
        EXPECT_EQ(std::remove(timeline.c_str()), 0);
        close(mInput);
    }
}

// A dump is read after its end, even if it arrives slowly.
TEST_F(EvidenceTool, ADumpOnStandardInputIsReadToItsEnd) {
    const std::string dump = test::dumpOf(phone(14));
    const pid_t process = start({"trace", "-", "--key", "iso"});
    std::thread writer([&] {
        EXPECT_EQ(write(mInput, dump.data(), 2000), 2000);
        usleep(300'000);
        EXPECT_GT(write(mInput, dump.data() + 2000, dump.size() - 2000), 0);
        close(mInput);
    });
    EXPECT_THAT(readUntil("parameters:"), HasSubstr("iso=100; last request sent"));
    close(mOutput);
    writer.join();
    int status = 0;
    waitpid(process, &status, 0);
}

}  // namespace
}  // namespace qzcam
