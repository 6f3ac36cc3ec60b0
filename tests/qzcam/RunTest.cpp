#include "Run.h"

#include "BuiltIn.h"
#include "Tool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace qzcam {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST_F(RunTool, ExitStatusTellsWhatWentWrong) {
    const std::string good =
        file("good.qzs", "inspect 0\nopen 0\nset iso=1600\nrequest\nexpect-entry iso 7\n");
    const std::string failing = file("failing.qzs", "open 0\n\nexpect-param iso 1\nexpect-no-param iso\n");
    const std::string wrong = file("wrong.qzs", "open 0\nrequst\n");
    const std::string foreign = file("foreign.qzs", "open 0\nresult nothing=1\n");
    const std::string unplayable = file("unplayable.qzs", "open -1\n");
    const std::string marked = file("marked.qzs", "\xef\xbb\xbfopen 0\nset iso=100\nrequest\n");
    const std::string cut =
        file("cut.dump", std::string(builtInDevice().substr(0, builtInDevice().size() - 500)));
    const std::string empty = file("empty.dump", "");
    const std::string props = file("props", "[camera.x]\n");
    const struct {
        std::vector<std::string> words;
        int status;
        std::string out;  // parts
        std::string err;
    } kRows[] = {
        {{}, kFine, "expectations met, 0 failed", ""},
        {{"run"}, kFine, "expectations met, 0 failed", ""},
        {{"run", good}, kFine, "com.ambrix.capture.metadata.iso ", ""},
        {{"run", failing},
         kExpectationFailed,
         failing + ":3: FAILED expect-param iso 1: expected '1', but there is nothing\n",
         ""},
        {{"run", failing}, kExpectationFailed, "1 expectation met, 1 failed", ""},
        {{"run", wrong}, kBadInput, "", wrong + ":2: unknown command 'requst'"},
        {{"run", foreign}, kBadInput, "", foreign + ":2: unknown tag 'nothing'"},
        {{"run", good + "x"}, kBadInput, "", "cannot read it"},
        {{"run", testing::TempDir()}, kBadInput, "", "cannot read it"},
        {{"run", good, "--device", cut}, kBadInput, "1 expectation met", cut + ":"},
        {{"run", good, "--device", empty}, kBadInput, "", "no camera in it"},
        {{"run", good, "--camera", "9"}, kBadInput, "", "no camera '9'"},
        {{"run", good, "--props", props}, kBadInput, "", props + ":1: expected '[name]: [value]'"},
        {{"run", "--log", "loud"}, kUsage, "", "expected verbose, debug"},
        {{"run", "--nothing"}, kUsage, "", "--nothing"},
        {{"run", "-", "--device", "-"}, kUsage, "", "only one of"},
        {{"run", "--json", "--monitor"}, kUsage, "", "excludes"},
        {{"run", good, "--params", "contrast=50;iso"}, kBadInput, "", "--params:1: expected 'key=value"},
        {{"run", good, "--params", good + "x"}, kBadInput, "", "cannot read it"},
        {{"run", good, "--junit", good + "/x"}, kBadInput, "1 expectation met", good + "/x: cannot write it"},
        {{"explain", "iso"}, kFine, "read as text by setIso", ""},
        {{"explain", "iso", "--params", "iso=9"}, kFine, "9: fallback written", ""},
        {{"explain", "iso-mode"}, kUsage, "", "no setter reads 'iso-mode'; perhaps iso"},
        {{"explain"}, kUsage, "", "KEY"},
        {{"run", unplayable, good}, kBadInput, "1 expectation met", unplayable + ":1: expected a number"},
        {{"run", marked}, kFine, "parameters: 1 written", ""},
        {{"run", marked}, kFine, "! no expectations: nothing was tested", ""},
        {{"run", good, "--params", "my/iso=1.txt"}, kBadInput, "", "--params:1: expected 'key=value"},
        {{"run", good, "--params", file("json", "{\"iso\": 100}\n")},
         kBadInput,
         "",
         "expected 'key: value', not '{\"iso"},
        {{"run", good, "--params", file("heading", "Parameters:\n\tiso: 1\n\tempty:\n")},
         kBadInput,
         "",
         ":1: expected 'key: value', not 'Parameters:'"},
        {{"run", ""}, kUsage, "", "qzcam: SESSION: expected no empty text"},
        {{"run", good, "--device", ""}, kUsage, "", "no empty text"},
        {{"run", good, "--junit", ""}, kUsage, "", "no empty text"},
        {{"diff", good, ""}, kUsage, "", "no empty text"},
        {{"explain", "iso", "--device", "-", "--params", "-"}, kUsage, "", "only one of"},
        {{"diff", "-", good, "--device", "-"}, kUsage, "", "only one of"},
        {{"play"}, kUsage, "", "qzcam: no command 'play'\n"},
        {{"rum", "x"}, kUsage, "", "qzcam: no command 'rum'; perhaps 'run'\n"},
        {{"--version"}, kFine, "qzcam ", ""},
        {{"run", "--help"}, kFine, "expect-query WHAT [ARGUMENT] ANSWER", ""},
    };
    for (const auto& row : kRows) {
        const std::string what = testing::PrintToString(row.words);
        EXPECT_EQ(tool(row.words), row.status) << what << mErr;
        EXPECT_THAT(mOut, HasSubstr(row.out)) << what;
        EXPECT_THAT(mErr,
                    row.err.empty() ? testing::Matcher<std::string>(testing::IsEmpty()) : HasSubstr(row.err))
            << what;
    }
}

TEST_F(RunTool, ShowsTheLogAsAskedFor) {
    const std::string session =
        file("log.qzs", "open 0\nsendcommand 7 1 2\nset iso=1600\nrequest\nsendcommand 9\nsendcommand 9\n");
    EXPECT_EQ(tool({"run", session, "--log", "info"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("      I CameraQzSendCmd: CameraQzSendCmd()\n"));
    EXPECT_THAT(mOut,
                HasSubstr("      E CameraQzSendCmd: sendCommand: Unknown command 7 (arguments 1, 2)\n"));
    EXPECT_THAT(mOut, Not(HasSubstr("\033[")));
    EXPECT_EQ(tool({"run", session}), kFine);
    EXPECT_THAT(mOut, Not(HasSubstr(" I CameraQz")));
    EXPECT_THAT(mOut, HasSubstr(" E CameraQz"));
    EXPECT_EQ(tool({"run", session, "--log", "CameraQzParam:V *:S"}), kFine);
    EXPECT_THAT(mOut, HasSubstr(" I CameraQzParam"));
    EXPECT_THAT(mOut, Not(HasSubstr(" CameraQzSendCmd: ")));
    EXPECT_EQ(tool({"run", session, "--log", "silent"}), kFine);
    EXPECT_THAT(mOut, Not(HasSubstr("CameraQz")));
    EXPECT_THAT(mOut, HasSubstr("= command 7 returned -22 (0xffffffea)\n"));
}

TEST_F(RunTool, PropertiesReachTheLibrary) {
    const std::string props = file(
        "getprop", "[camera.ignore.qz.customized.zsl]: [1]\n[ro.long]: [" + std::string(200, 'x') + "]\n");
    const std::string session =
        file("zsl.qzs", "open 0\nset qz-qzcamera-flag=on\nrequest\nexpect-query customized-zsl yes\n");
    EXPECT_EQ(tool({"run", session}), kFine);
    EXPECT_EQ(tool({"run", session, "--props", props}), kExpectationFailed);
    EXPECT_EQ(tool({"run", file("reset.qzs", "setprop camera.ignore.qz.customized.zsl \"\"\n")}), kFine);
}

TEST_F(RunTool, ParametersAreSetAfterEachOpen) {
    const std::string session = file("params.qzs",
                                     "open 0\nrequest\nexpect-entry iso 7\nexpect-verdict contrast fallback\n"
                                     "open 1\nrequest\nexpect-entry iso 7\n");
    EXPECT_EQ(tool({"run", session}), kExpectationFailed);
    EXPECT_EQ(tool({"run", session, "--params", "iso=1600;contrast=1"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("parameters: 1 written, 1 fallback written"));
    EXPECT_EQ(tool({"run", session, "--params", file("params", "\tiso: 1600\n\tcontrast: 1\n")}), kFine);
}

TEST_F(RunTool, SeveralSessionsLeaveEachOtherAlone) {
    const std::string first = file("first.qzs",
                                   "setprop camera.ignore.qz.customized.zsl 1\nopen 0\n"
                                   "set qz-qzcamera-flag=on\nrequest\nexpect-query customized-zsl no\n");
    const std::string second =
        file("second.qzs", "open 0\nset qz-qzcamera-flag=on\nrequest\nexpect-query customized-zsl yes\n");
    const std::string junit = file("junit.xml", "");
    EXPECT_EQ(tool({"run", first, second, "--junit", junit}), kFine) << mOut;
    std::ifstream xml(junit);
    const std::string text((std::istreambuf_iterator<char>(xml)), {});
    EXPECT_THAT(text,
                HasSubstr("<testsuite name=\"" + first + "\" tests=\"1\" failures=\"0\" errors=\"0\">"));
    EXPECT_THAT(text,
                HasSubstr("<testsuite name=\"" + second + "\" tests=\"1\" failures=\"0\" errors=\"0\">"));
}

// Who reads only the report must hear of it too, and not find one from before.
TEST_F(RunTool, ReportsSessionsThatCannotBePlayed) {
    const std::string wrong = file("wrong.qzs", "open 0\nrequst\nresult nothing=1\n");
    const std::string good = file("good.qzs", "open 0\nexpect-no-param iso\n");
    const std::string junit = file("junit.xml", "from before");
    const auto report = [&] {
        std::ifstream xml(junit);
        return std::string((std::istreambuf_iterator<char>(xml)), {});
    };
    EXPECT_EQ(tool({"run", wrong, good, good + "x", "--junit", junit, "--json"}), kBadInput);
    EXPECT_THAT(mOut, StartsWith("{\"format\":"));
    EXPECT_THAT(mOut, HasSubstr("{\"event\":\"error\",\"text\":\"" + wrong + ":2: unknown command 'requst'"));
    EXPECT_THAT(report(),
                HasSubstr("<testsuite name=\"" + wrong + "\" tests=\"2\" failures=\"0\" errors=\"2\">"));
    EXPECT_THAT(report(), HasSubstr("<error message=\"" + wrong + ":3: unknown tag &apos;nothing&apos;\"/>"));
    EXPECT_THAT(report(),
                HasSubstr("<testsuite name=\"" + good + "\" tests=\"1\" failures=\"0\" errors=\"0\">"));
    EXPECT_THAT(report(), HasSubstr("<error message=\"" + good + "x: cannot read it: "));
    file("junit.xml", "from before");
    EXPECT_EQ(tool({"run", good, "--junit", junit, "--device", good + "x"}), kBadInput);
    EXPECT_THAT(report(), HasSubstr("errors=\"1\">"));
}

TEST_F(RunTool, EveryLineOfJsonIsAnObject) {
    EXPECT_EQ(tool({"run", "--json"}), kFine);
    std::istringstream lines(mOut);
    std::set<std::string> events;
    for (std::string line; std::getline(lines, line);) {
        const auto object = nlohmann::json::parse(line);
        events.insert(object.value("event", "first line"));
    }
    EXPECT_EQ(events, (std::set<std::string>{"first line", "answer", "callback", "command", "device",
                                             "expectation", "log", "publish", "request", "result", "session",
                                             "status", "summary", "verdicts"}));
}

TEST_F(RunTool, ABuiltInSessionOnAnotherDeviceExpectsNothing) {
    const std::string dump =
        file("other.dump", "Camera 0 information:\n Dumping camera metadata array: 0 / 0 entries\n");
    EXPECT_EQ(tool({"run", "--device", dump, "--log", "info"}), kFine);
    EXPECT_THAT(mOut, StartsWith(dump + ", camera 0\n  0 vendor tags, 0 static entries\n"));
    EXPECT_THAT(mOut, HasSubstr("qz_video_smooth_af_supported  true"));
    EXPECT_THAT(mOut, HasSubstr("not declared by this device:"));
    EXPECT_THAT(mOut, HasSubstr("times more"));
    EXPECT_THAT(mOut, Not(HasSubstr("FAILED")));
}

}  // namespace
}  // namespace qzcam
