// SPDX-License-Identifier: Apache-2.0
#include "Tool.h"
#include "Xml.h"
#include "device/BuiltIn.h"
#include "input/Input.h"
#include "support/DumpComposer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
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

TEST_F(RunTool, ExitStatus) {
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
         kFailed,
         failing + ":3: FAILED expect-param iso 1: expected '1', found no value\n",
         ""},
        {{"run", failing}, kFailed, "1 expectation met, 1 failed", ""},
        {{"run", wrong}, kBadInput, "", wrong + ":2: unknown command 'requst'"},
        {{"run", foreign}, kBadInput, "", foreign + ":2: unknown tag 'nothing'"},
        {{"run", good + "x"}, kBadInput, "", "cannot read it"},
        {{"run", testing::TempDir()}, kBadInput, "", "cannot read it"},
        {{"run", good, "--device", cut}, kFine, "1 expectation met", cut + ":"},
        {{"run", good, "--device", cut, "--strict"}, kBadInput, "1 expectation met", cut + ":"},
        {{"run", good, "--device", empty}, kBadInput, "", "it is empty: expected a dump"},
        {{"run", unplayable, "--device", good}, kBadInput, "", "it is a session: expected a dump"},
        {{"run", file("five.qzs", "open 1\nopen 5\n")},
         kBadInput,
         "",
         ":2: no camera 5 on this device: expected 0 or 1"},
        {{"explain", "iso", good, "--device", good}, kUsage, "", "excludes"},
        {{"explain", good, "iso"}, kUsage, "", "it is a file: expected the name first"},
        {{"run", good, "--params", "isoo"}, kBadInput, "", "there is no file 'isoo'"},
        {{"run", good, "--camera", "9"}, kBadInput, "", "no camera '9'"},
        {{"run", good, "--props", props}, kBadInput, "", props + ":1: expected '[name]: [value]'"},
        {{"run", "--log", "loud"}, kUsage, "", "expected verbose, debug"},
        {{"run", "--nothing"}, kUsage, "", "--nothing"},
        {{"run", "-", "--device", "-"}, kUsage, "", "only one of"},
        {{"run", "--json", "--monitor"}, kUsage, "", "excludes"},
        {{"run", good, "--params", "contrast=50;iso"}, kBadInput, "", "--params:1: expected 'key=value"},
        {{"run", good, "--params", good + "x"}, kBadInput, "", "cannot read it"},
        {{"run", good, "--junit", good + "/x"}, kBadInput, "", good + "/x: cannot write it"},
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
        {{"run", good, "--strict", "--params", file("heading", "Parameters:\n\tiso: 1\n\tempty:\n")},
         kBadInput,
         "1 expectation met",
         ":1: expected 'key: value', not 'Parameters:'"},
        {{"run", ""}, kUsage, "", "qzcam: SESSION: must not be empty"},
        {{"run", good, "--device", ""}, kUsage, "", "must not be empty"},
        {{"run", good, "--junit", ""}, kUsage, "", "must not be empty"},
        {{"run", "/dev/zero"}, kBadInput, "", "/dev/zero: too large: expected at most 64 MiB"},
        {{"run", good, "--junit", "/dev/full"}, kBadInput, "1 expectation met", "/dev/full: cannot write it"},
        {{"run", good, "--perfetto", "/dev/full"},
         kBadInput,
         "1 expectation met",
         "/dev/full: cannot write it"},
        {{"run", good, "--perfetto", good + "/x"}, kBadInput, "", good + "/x: cannot write it"},
        {{"run", good, "--perfetto", good}, kUsage, "", "is an input: expected another file for --perfetto"},
        {{"run", wrong, "--perfetto", "/dev/null"}, kBadInput, "", "unknown command"},
        {{"run", good, "--junit", testing::TempDir()}, kBadInput, "", ": cannot write it: Is a directory"},
        {{"diff", good, ""}, kUsage, "", "must not be empty"},
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
    EXPECT_EQ(tool({"run", session, "--props", props}), kFailed);
    EXPECT_EQ(tool({"run", file("reset.qzs", "setprop camera.ignore.qz.customized.zsl \"\"\n")}), kFine);
}

TEST_F(RunTool, ParametersAreSetAfterEachOpen) {
    const std::string session = file("params.qzs",
                                     "open 0\nrequest\nexpect-entry iso 7\nexpect-verdict contrast fallback\n"
                                     "open 1\nrequest\nexpect-entry iso 7\n");
    EXPECT_EQ(tool({"run", session}), kFailed);
    EXPECT_EQ(tool({"run", session, "--params", "iso=1600;contrast=1"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("parameters: 1 written, 1 fallback written"));
    EXPECT_EQ(tool({"run", session, "--params", file("params", "\tiso: 1600\n\tcontrast: 1\n")}), kFine);
}

TEST_F(RunTool, StrictFailsForValuesThatTheDeviceDoesNotOffer) {
    const std::string session =
        file("strict.qzs", "open 0\nset iso=50;rotation=3000000000\nrequest\nrequest\n");
    EXPECT_EQ(tool({"run", session}), kFine);
    EXPECT_EQ(tool({"run", session, "--strict"}), kFailed);
    EXPECT_THAT(mOut, HasSubstr("FAILED strict iso: expected a value that is offered and fits, found "
                                "'50' (not-offered: iso-mode-values: auto,100,"));
    EXPECT_THAT(mOut, HasSubstr("0 expectations met, 2 failed"));
    const std::string expected = file("expected.qzs",
                                      "open 0\nset iso=50\nrequest\nexpect-entry iso 1\n"
                                      "expect-verdict iso not-offered\n");
    EXPECT_EQ(tool({"run", expected, "--strict"}), kFine);
    EXPECT_EQ(tool({"run", session, "--json"}), kFine);
    EXPECT_THAT(mOut, HasSubstr(R"("offered":{"by":"iso-mode-values","values":["auto","100")"));
    EXPECT_THAT(mOut,
                HasSubstr(R"("overflow":{"number":"3000000000","written":"2147483647","type":"int32"})"));
    EXPECT_EQ(tool({"explain", "iso", "--params", "iso=50"}), kFine);
    EXPECT_EQ(tool({"explain", "iso", "--params", "iso=50", "--strict"}), kFailed);
    EXPECT_EQ(tool({"params", "qz-sensor-iso", "--device", file("dump", std::string(builtInDevice()))}),
              kFine);
    EXPECT_THAT(mOut, HasSubstr("  offered     qz-sensor-iso-range  50 to 3200\n"));
}

TEST_F(RunTool, LaterSessionsArePlayedAfterOneFailed) {
    const std::string failing = file("failing.qzs", "open 0\nexpect-param iso 1\n");
    const std::string good = file("good.qzs", "open 0\nexpect-no-param iso\n");
    EXPECT_EQ(tool({"run", failing, good}), kFailed);
    EXPECT_THAT(mOut, HasSubstr("0 expectations met, 1 failed"));
    EXPECT_THAT(mOut, HasSubstr("1 expectation met, 0 failed"));
}

TEST_F(RunTool, SessionsAreIndependent) {
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

// The report must show the error too, and must not be a report of an earlier run.
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
    EXPECT_THAT(
        report(),
        HasSubstr(
            "<error message=\"" + wrong +
            ":3: unknown tag &apos;nothing&apos;: expected a tag of this device or of the library\"/>"));
    EXPECT_THAT(report(),
                HasSubstr("<testsuite name=\"" + good + "\" tests=\"1\" failures=\"0\" errors=\"0\">"));
    EXPECT_THAT(report(), HasSubstr("<error message=\"" + good + "x: cannot read it: "));
    file("junit.xml", "from before");
    EXPECT_EQ(tool({"run", good, "--junit", junit, "--device", good + "x"}), kBadInput);
    EXPECT_THAT(report(), HasSubstr("errors=\"1\">"));
}

class JUnitReport : public RunTool {
  protected:
    // Reads the report like a build server: no tests, or tests that passed, failed or were not run.
    std::string state() const {
        const auto xml = parseXml(textOf(mReport));
        if (!xml) return "not XML";
        if (countElements(xml->children, "error") == 0) return "finished";
        return textOf(mReport).find("not finished") == std::string::npos ? "errors" : "not finished";
    }
    static std::string textOf(const std::string& path) {
        std::ifstream stream(path, std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(stream)), {});
    }
    // A run that waits for its device.
    pid_t startRun(const std::string& device) {
        const pid_t process = fork();
        if (process == 0) std::_Exit(tool({"run", mSession, "--junit", mReport, "--device", device}));
        for (int i = 0; i < 60000 && state() != "not finished"; ++i) usleep(1000);
        return process;
    }

    const std::string mReport = file("junit.xml", "<testsuites/>");
    const std::string mSession = file("played.qzs", "open 0\nexpect-no-param iso\n");
};

TEST_F(JUnitReport, IsNotFinishedUntilTheEnd) {
    const std::string pipe = temporary("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const int signal : {SIGTERM, SIGPIPE, SIGKILL, SIGABRT}) {
        file("junit.xml", "<testsuites/>");
        const pid_t process = startRun(pipe);
        EXPECT_EQ(kill(process, signal), 0);
        int status = 0;
        waitpid(process, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status));
        EXPECT_EQ(state(), "not finished") << signal;
    }
    std::remove(pipe.c_str());
    EXPECT_EQ(tool({"run", mSession, "--junit", mReport}), kFine);
    EXPECT_EQ(state(), "finished");
    for (const auto& entry : std::filesystem::directory_iterator(testing::TempDir())) {
        EXPECT_FALSE(startsWith(entry.path().string(), mReport + ".")) << entry.path();
    }
}

TEST_F(JUnitReport, ReplacesAnOldReportOnWrongUsage) {
    const std::vector<std::vector<std::string>> rows{{"run", mSession, "--bogus", "--junit", mReport},
                                                     {"run", "--junit=" + mReport, "--log"},
                                                     {"run", "-", "--device", "-", "--junit", mReport},
                                                     {"rum", "--junit", mReport}};
    for (const auto& words : rows) {
        file("junit.xml", "<testsuites/>");
        EXPECT_EQ(tool(words), kUsage);
        EXPECT_EQ(state(), "not finished") << testing::PrintToString(words);
    }
}

TEST_F(JUnitReport, MustNotBeAnInput) {
    const std::string link = temporary("link");
    std::filesystem::create_symlink(mSession, link);
    const std::string before = textOf(mSession);
    for (const std::string& path :
         {mSession, testing::TempDir() + "./" + mSession.substr(testing::TempDir().size()), link}) {
        EXPECT_EQ(tool({"run", mSession, "--junit", path}), kUsage);
        EXPECT_EQ(mErr, "qzcam: " + path + " is an input: expected another file for --junit\n");
        EXPECT_EQ(tool({"run", mSession, "--junit", path, "--bogus"}), kUsage);
        EXPECT_EQ(tool({"run", "--device=" + mSession, "--junit", path}), kUsage);
        EXPECT_EQ(textOf(mSession), before);
    }
    std::remove(link.c_str());
    std::filesystem::create_symlink(mReport, link);
    EXPECT_EQ(tool({"run", mSession, "--junit", link}), kFine);
    EXPECT_EQ(state(), "finished");
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    std::remove(link.c_str());
}

TEST(ReadFile, SilentPipeTimesOut) {
    const std::string path = RunTool::temporary("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    const int writer = open(path.c_str(), O_RDWR);
    ASSERT_EQ(write(writer, "open 0\n", 7), 7);
    const auto problem = [&](const InputLimits& limits) {
        Problems problems("pipe");
        EXPECT_FALSE(readFile(path, problems, TextKind::Report, limits));
        return problems.first().at(0);
    };
    EXPECT_EQ(problem({1000, 1000, 0}), "pipe: no input for 0 seconds: expected more of it, or its end");
    ASSERT_EQ(write(writer, "open 0\n", 7), 7);
    EXPECT_THAT(problem({6, 6, 60}), HasSubstr("pipe: too large: expected at most "));
    close(writer);
    std::remove(path.c_str());
}

// A file may contain sequences that control the terminal of its reader.
TEST_F(RunTool, EscapesFileContents) {
    const std::string evil = "\033]0;x\007\xff\xc2\x9b";
    const std::string session =
        file("evil.qzs", "open 0\nclient \"" + evil + "\"\nset iso=" + evil + ";" + evil + "=" + evil +
                             ";qz-focus-value=" + evil +
                             "\nrequest\nparams\nexpect-param iso 1\nexpect-log error " + evil + "\n");
    const std::string named = file("name\n\033[31m.qzs", "open 0\nset k" + evil + "=2\nset iso=" + evil +
                                                             "\nrequest\nbogus" + evil + "\n");
    const std::string params = file("evil.params", "iso=" + evil + ";k" + evil + "=" + evil + "\n");
    const std::vector<std::vector<std::string>> rows{{"run", session, "--log", "verbose"},
                                                     {"run", session, "--monitor"},
                                                     {"run", session, "--json"},
                                                     {"run", named},
                                                     {"run", named, "--json"},
                                                     {"run", named + "x"},
                                                     {"run", "--device", named},
                                                     {"run", evil + "=", "--" + evil},
                                                     {evil},
                                                     {"diff", session, file("other.qzs", "open 0\n")},
                                                     {"diff", session, named},
                                                     {"explain", "iso", "--params", params},
                                                     {"explain", evil},
                                                     {"params", evil},
                                                     {"check", "--device", named},
                                                     {"run", session, "--params", params}};
    for (const auto& words : rows) {
        tool(words);
        const std::string all = mOut + mErr;
        EXPECT_FALSE(all.empty());
        Lines lines(all);
        for (std::string_view line; lines.next(line);) {
            EXPECT_EQ(line, visible(line)) << testing::PrintToString(words);
        }
    }
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

TEST_F(RunTool, BuiltInSessionOnAnotherDevice) {
    const std::string dump =
        file("other.dump", "Camera 0 information:\n Dumping camera metadata array: 0 / 0 entries\n");
    EXPECT_EQ(tool({"run", "--device", dump, "--log", "info"}), kFine);
    EXPECT_THAT(mOut, StartsWith(dump + ", camera 0\n  0 vendor tags, 0 static entries\n"));
    EXPECT_THAT(mOut, HasSubstr("qz_video_smooth_af_supported  true"));
    EXPECT_THAT(mOut, HasSubstr("not declared by this device:"));
    EXPECT_THAT(mOut, HasSubstr("times more"));
    EXPECT_THAT(mOut, Not(HasSubstr("FAILED")));
}

// Cameras of different providers, with vendor tags of their own.
TEST_F(RunTool, OpensEachCameraOfADump) {
    const std::string phone = file("phone.txt", test::dumpOf(test::samplePhone(13)));
    const std::string session = file("s.qzs",
                                     "open 0\nset iso=1600\nrequest\nexpect-entry iso 7\n"
                                     "open 1\nset iso=1600\nrequest\nexpect-verdict iso undeclared\n");
    EXPECT_EQ(tool({"run", session, "--device", phone}), kFine) << mOut << mErr;
    EXPECT_THAT(mOut, HasSubstr("camera 1 is device@3.4/external/1: 3 static entries"));
    EXPECT_EQ(tool({"run", session, "--device", phone, "--camera", "0"}), kFailed)
        << "all opens use the camera that is chosen";

    const std::string absent = file("absent.qzs", "open 7\n");
    EXPECT_EQ(tool({"run", absent, "--device", phone}), kBadInput);
    EXPECT_THAT(mErr, HasSubstr(absent + ":1: no camera 7 on this device: expected 0 or 1"));
}

TEST_F(RunTool, ListsUnusedPartsOfADump) {
    const std::string phone = file("phone.txt", test::dumpOf(test::samplePhone(8)));
    const std::string session = file("s.qzs", "open 0\n");
    EXPECT_EQ(tool({"run", session, "--device", phone}), kFine);
    EXPECT_THAT(mOut, HasSubstr("  not used: texts of the HAL (1), blocks of other vendors (1)\n"));
    EXPECT_EQ(tool({"run", session, "--device", phone, "--verbose"}), kFine);
    EXPECT_THAT(mOut, HasSubstr(": blocks of other vendors: vendor id 77, 1 tag\n"));
    EXPECT_EQ(tool({"run", session, "--device", phone, "--json"}), kFine);
    EXPECT_THAT(mOut, HasSubstr(R"({"kind":"otherBlock","line":)"));
}

}  // namespace
}  // namespace qzcam
