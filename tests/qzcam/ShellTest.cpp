// SPDX-License-Identifier: Apache-2.0
// Tests the shell in a terminal, as a user sees it, and without one.
#include "BuiltIn.h"
#include "Tool.h"
#include "cli/LineEditor.h"
#include "cli/ShellCommands.h"
#include "support/DumpComposer.h"

#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <poll.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace qzcam {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kPrompt = "qzcam> ";
constexpr int kPatience = 120000;  // milliseconds: an emulated shell takes ten seconds to its first prompt

class Terminal {
  public:
    explicit Terminal(const std::string& state, const std::vector<std::string>& words = {},
                      unsigned short rows = 24) {
        winsize size{rows, 80, 0, 0};
        mProcess = forkpty(&mFile, nullptr, nullptr, &size);
        if (mProcess != 0) return;
        setenv("TERM", "xterm", 1);
        setenv("LC_ALL", "C.UTF-8", 1);
        setenv("XDG_STATE_HOME", state.c_str(), 1);
        std::vector<const char*> argv{"qzcam", "shell"};
        for (const std::string& word : words) argv.push_back(word.c_str());
        std::_Exit(runTool(static_cast<int>(argv.size()), argv.data()));
    }
    ~Terminal() { close(mFile); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    // The prompt is printed a moment before the terminal reads single keys.
    void waitUntilItListens() const {
        termios mode{};
        for (int i = 0; i < kPatience && tcgetattr(mFile, &mode) == 0 && (mode.c_lflag & ICANON) != 0; ++i)
            usleep(1000);
    }
    // Types a text and returns the new output up to the expected text.
    std::string type(const std::string& keys, const std::string& until) {
        if (!keys.empty()) waitUntilItListens();
        EXPECT_EQ(write(mFile, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
        std::string shown;
        while (shown.find(until) == std::string::npos) {
            pollfd ready{mFile, POLLIN, 0};
            std::array<char, 4096> text{};
            const ssize_t size = poll(&ready, 1, kPatience) == 1 ? read(mFile, text.data(), text.size()) : 0;
            if (size <= 0) break;
            shown.append(text.data(), static_cast<size_t>(size));
        }
        EXPECT_THAT(shown, HasSubstr(until)) << "typed: " << keys;
        return shown;
    }
    // Sends Ctrl-C while no line is read.
    void interrupt() const {
        termios mode{};
        for (int i = 0; i < kPatience && tcgetattr(mFile, &mode) == 0 && (mode.c_lflag & ICANON) == 0; ++i)
            usleep(1000);
        EXPECT_EQ(write(mFile, "\x03", 1), 1);
    }
    int exitStatus() {
        int status = 0;
        EXPECT_EQ(waitpid(mProcess, &status, 0), mProcess);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    int mFile = -1;
    pid_t mProcess = -1;
};

class ShellTool : public RunTool {
  public:
    void SetUp() override {
        std::filesystem::remove_all(mState);
        unsetenv("PAGER");
    }
    void TearDown() override {
        std::filesystem::remove_all(mState);
        RunTool::TearDown();
    }

  protected:
    // The input is a file instead of a terminal.
    int shell(const std::string& lines, std::vector<std::string> words = {}) {
        words.insert(words.begin(), "shell");
        const std::string input = file("input", lines);
        const int before = dup(STDIN_FILENO);
        EXPECT_NE(std::freopen(input.c_str(), "r", stdin), nullptr);
        const int status = tool(words);
        dup2(before, STDIN_FILENO);
        close(before);
        std::clearerr(stdin);
        return status;
    }

    const std::string mState = temporary("state");
};

TEST_F(ShellTool, EditsTheLineAndLeaves) {
    Terminal terminal(mState);
    const std::string ctrlC = "\x03";
    terminal.type("", kPrompt);
    // Before the first line is played: commands, keys, values, properties, tags.
    terminal.type("ope\t0\r", kPrompt);
    terminal.type("set scene-m\t", "ode=");
    terminal.type("qz\t", "auto");
    terminal.type(ctrlC, std::string("^C\r\n") + kPrompt);
    terminal.type("set zsl-mo\t", "de=");  // not the published zsl-mode-supported
    terminal.type(ctrlC, kPrompt);
    terminal.type("setprop camera.deb\t", "ug.mode");
    terminal.type(ctrlC, kPrompt);
    // Values that the device offers come first, in the order of the vocabulary. 50 and 1250 are not offered.
    EXPECT_THAT(terminal.type("set iso=\t", "1250"), testing::ContainsRegex("auto +1.*50 +"));
    terminal.type(ctrlC, kPrompt);
    EXPECT_THAT(terminal.type("result iso\t\t", "isoState"), Not(HasSubstr("burst")));
    terminal.type(ctrlC, kPrompt);

    // Ctrl-C during a command ends neither the command nor the shell.
    terminal.type("sendcommand 20\t\t", "203");
    terminal.type("3\r", "3\r\n");
    terminal.interrupt();
    terminal.type("", "command 203 returned -1");
    terminal.type("expect-status 0\r", "prompt:3: FAILED expect-status 0");

    // The test never waits for a prompt alone: an earlier one may still arrive.
    terminal.type("set iso=1600\r", "set iso=1600\r\n");
    EXPECT_THAT(terminal.type("request\r", "1 written"),
                testing::ContainsRegex("metadata.iso .* 7 .*iso=1600.*\r\n(.*\n)*.*1 written"));
    terminal.type("bogus\r", "unknown command 'bogus'");
    terminal.type("\x1b[A\x1b[A\x1b[A", "set iso=1600");
    terminal.type(ctrlC, kPrompt);
    terminal.type("\x04", "\n");
    EXPECT_EQ(terminal.exitStatus(), kFine);
}

TEST_F(ShellTool, ShowsCandidatesInColumns) {
    Terminal terminal(mState);
    terminal.type("", kPrompt);
    EXPECT_THAT(
        terminal.type("expect-n\t\t", kPrompt),
        HasSubstr("o-\r\nexpect-no-callback  expect-no-entry     expect-no-log       expect-no-param\r\n"));
    terminal.type("\x03", kPrompt);
    EXPECT_THAT(terminal.type("setprop camera.\t", kPrompt),
                HasSubstr("\r\ncamera.debug.mode                camera.qzperformex.captag"
                          "\r\ncamera.ignore.chat.facebeauty    camera.qzperformex.ctrltag"
                          "\r\ncamera.ignore.qz.customized.zsl  camera.qzperformex.loglevel"
                          "\r\ncamera.ignore.videostdb.all      camera.qzperformex.stattag"
                          "\r\ncamera.ignore.videostdb.partial\r\n\r"));
    terminal.type("\x03", kPrompt);
    EXPECT_THAT(terminal.type("set iso=640\t\tx", "0x"), Not(HasSubstr("\n")));  // the only candidate
    terminal.type("\x03", kPrompt);
    const size_t all = test::builtIn().vendorTags.size();
    terminal.type("result com.ambrix.\t", fmt::format("\r\n... and {} more\r\n", all - 120));
    terminal.type("\x03", kPrompt);
    terminal.type("help \xc3\xa9\r", "There is no help on '\xc3\xa9'");
    terminal.type("quit\r", "\n");
}

TEST(LineEditor, StoresItsHistoryInTheStateFolder) {
    const struct {
        const char* state;
        const char* home;
        const char* expected;
    } kRows[] = {{"/a", "/b", "/a/qzcam/history"},
                 {"a", "/b", "/b/.local/state/qzcam/history"},
                 {"", "/b", "/b/.local/state/qzcam/history"},
                 {"", "b", ""}};
    for (const auto& row : kRows) {
        setenv("XDG_STATE_HOME", row.state, 1);
        setenv("HOME", row.home, 1);
        EXPECT_EQ(historyFile(), row.expected);
    }
    unsetenv("XDG_STATE_HOME");
    unsetenv("HOME");
    EXPECT_EQ(historyFile(), "");
}

TEST_F(ShellTool, KeepsItsHistoryAndTakesParameters) {
    setenv("EDITRC", file("editrc", "bind -s ^T \"open 0\"\n").c_str(), 1);
    {
        Terminal first(mState);
        first.type("", kPrompt);
        first.type("\x14\r", "open 0\r\n");  // Ctrl-T of the user's own bindings
        first.type("\r", kPrompt);
        first.type("params\r", "no parameters");
        first.type("params\r", "no parameters");
        first.type("quit\r", "\n");
        EXPECT_EQ(first.exitStatus(), kFine);
    }
    Terminal second(mState, {"--params", "iso=3200;zsl-mode=on"});
    second.type("", kPrompt);
    second.type("\x1b[A\x1b[A\x1b[A\r", "open 0\r\n");  // a repeated line is stored once
    second.type("\022ope", "open 0");                   // Ctrl-R
    second.type("\r", "\r\n");
    EXPECT_THAT(second.type("params\r", "zsl-mode"), HasSubstr("3200"));
    second.type("exit\r", "\n");
    EXPECT_EQ(second.exitStatus(), kFine);
}

TEST_F(ShellTool, PlaysAScriptWithoutATerminal) {
    const struct {
        std::string lines;
        int status;
        std::string out;  // part of it
        std::string err;
    } kRows[] = {
        {"open 0\nset iso=100\nrequest\nexpect-entry iso 2\n", kFine, "3> request", ""},
        {"open 0\nset iso=100\nrequest\nexpect-entry iso 3\n", kFailed, "expect-entry iso 3", ""},
        {"open 0\nbogus\nset iso=100\nrequest\n", kBadInput, "4> request",
         "standard input:2: unknown command 'bogus'"},
        {"open 0\nquit\nbogus\n", kFine, "1> open 0", ""},
        {std::string((size_t{1} << 20U) + 2, 'x'), kBadInput, "",
         "input:1: the line is too long: expected at most 1 MiB"},
        {"check --josn\n", kBadInput, "", "--josn"},
        {"open 0\nset zoom=5;max-zoom=99\nexplain zoom\nrequest\nexpect-entry qz-zoom-in 1.151515\n", kFailed,
         "  5: written", ""},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.lines);
        EXPECT_EQ(shell(row.lines), row.status);
        EXPECT_THAT(mOut, HasSubstr(row.out));
        EXPECT_THAT(mOut, Not(HasSubstr(kPrompt)));
        EXPECT_THAT(mOut, Not(HasSubstr("\033")));
        EXPECT_THAT(mErr, row.err.empty() ? HasSubstr("") : HasSubstr(row.err));
    }
    // Commands for the shell's own device, for another input, and with the present parameters.
    const std::string running = file("running", test::dumpOf(test::samplePhone(11)));
    const std::vector<std::string> onIt{"--device", running};
    EXPECT_EQ(shell("show --array \"last request sent\"\n", onIt), kFine);
    EXPECT_THAT(mOut, HasSubstr("com.ambrix.capture.metadata.iso"));
    EXPECT_EQ(shell("show " + running + "\n"), kFine);
    EXPECT_THAT(mOut, HasSubstr("com.example.camera"));
    EXPECT_EQ(shell("open 0\nset iso=1600\ncompare\nset iso=50\ncompare --json " + running + "\n", onIt),
              kFine);
    EXPECT_THAT(mOut, HasSubstr("same"));
    EXPECT_THAT(mOut, HasSubstr("\"comparison\": \"different\""));
    EXPECT_EQ(shell("trace " + running + " --key iso\n"), kFine);
    EXPECT_THAT(mOut, HasSubstr("last request sent"));
    EXPECT_EQ(shell("", {"--device", "-"}), kUsage);
    EXPECT_EQ(shell("open 0\nparams\n", {"--params", "iso=3200"}), kFine);
    EXPECT_THAT(mOut, HasSubstr("3200"));
}

// The pager writes a mark into its output.
TEST_F(ShellTool, ALongAnswerGoesThroughThePager) {
    setenv("PAGER", "sed 's/^/paged /'", 1);
    Terminal terminal(mState);
    terminal.type("", kPrompt);
    terminal.type("help quit\r", "  quit ");
    terminal.type("help\r", "paged ");
    EXPECT_THAT(terminal.type("check\r", "paged Nothing is mistyped"), HasSubstr("paged built-in device"));
    terminal.type("quit\r", "\n");
    EXPECT_EQ(terminal.exitStatus(), kFine);
    const std::string help = helpOn("query");
    const auto height = static_cast<unsigned short>(std::count(help.begin(), help.end(), '\n'));
    for (const int more : {-height, 0, 1}) {  // a terminal without rows does not know its size
        Terminal small(mState, {}, static_cast<unsigned short>(height + more));
        small.type("", kPrompt);
        EXPECT_EQ(contains(small.type("help query\r", "otp-result"), "paged"), more == 0);
    }
    setenv("PAGER", "head -1", 1);
    Terminal left(mState);
    left.type("", kPrompt);
    left.type("params --json\r", "{\r\n");
    left.type("quit\r", "\n");
    EXPECT_EQ(left.exitStatus(), kFine);
    setenv("PAGER", "", 1);
    Terminal none(mState);
    none.type("", kPrompt);
    none.type("help\r", "\r\n  exit ");
}

}  // namespace
}  // namespace qzcam
