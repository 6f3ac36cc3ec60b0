// SPDX-License-Identifier: Apache-2.0
#include "session/Session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qzcam {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

Session parse(const std::string& text, Problems& problems) { return parseSession(text, "s", problems); }

TEST(Session, SplitsCommandsIntoWords) {
    Problems problems("s");
    const Session session = parse(
        "# comment\n\n  open 0\r\n"
        "set \"a=b c\"   # comment\n"
        "set key=#1\n"
        "result iso=\"a \\\"b\\\"\",0 com.x=1,2\n"
        "setprop \"\\\\x\" \"\"",
        problems);
    EXPECT_THAT(problems.first(), IsEmpty());
    ASSERT_EQ(session.commands.size(), 5U);
    EXPECT_EQ(session.commands[0].line, 3U);
    EXPECT_EQ(session.commands[1].word(0), "a=b c");
    EXPECT_EQ(session.commands[1].text, "set \"a=b c\"");
    EXPECT_EQ(session.commands[2].word(0), "key=#1");
    EXPECT_EQ(session.commands[3].words[0].text, "iso=a \"b\",0");
    EXPECT_EQ(session.commands[3].words[0].raw, "iso=\"a \\\"b\\\"\",0");
    EXPECT_EQ(session.commands[4].word(0), "\\x");
    EXPECT_EQ(session.commands[4].word(1), "");
}

TEST(Session, ErrorsHaveALine) {
    const struct {
        const char* text;
        const char* problem;
    } kRows[] = {
        {"opne 0", "s:1: unknown command 'opne'"},
        {"\n\nopen", "s:3: expected 'open ID', not 'open'"},
        {"open 0 1", "s:1: expected 'open ID'"},
        {"open back", "s:1: expected a number from 0 on, not 'open back'"},
        {"open -1", "s:1: expected a number from 0 on, not 'open -1'"},
        {"inspect 9", "s:1: expected LEVEL [captag|ctrltag|stattag NAME]... with a level from 0 to 5"},
        {"open 0\nset iso=100 ; zsl-mode=on", "; put a text with blanks in \"quotes\""},
        {"\xc3\xb6"
         "ffne 0 \xc3",
         "unknown command '\xc3\xb6"
         "ffne'"},
        {"open 0\nexpect-callback hdc-calib-result 4294967296", "s:2: expected numbers of 32 bits"},
        {"open 0\nexpect-callback hdc-calib-result 1 -2147483649", "s:2: expected numbers of 32 bits"},
        {"open 0\nexpect-callback 0x100 bytes 656", "s:2: expected numbers of 32 bits, 'bytes' and pairs"},
        {"open 0\nexpect-callback 0x100 bytes 6g", "s:2: expected numbers of 32 bits"},
        {"open 0\nexpect-callback 0x100 mode=1 2", "s:2: expected numbers of 32 bits"},
        {"open 0\nset \"a=1", "s:2: expected '\"' at the end"},
        {"open 0\nset a=1;b", "s:2: expected key=value;key=value"},
        {"open 0\nset =1", "s:2: expected key=value;key=value"},
        {"request", "s:1: expected 'open' before 'request'"},
        {"expect-status 0", "s:1: expected 'open' before"},
        {"open 0\nrequest twice", "s:2: expected repeating or capture"},
        {"open 0\nresult iso", "s:2: expected NAME=VALUES"},
        {"open 0\nsendcommand 203 1", "s:2: expected CODE [ARG1 ARG2] [background]"},
        {"open 0\nsendcommand background", "s:2: expected CODE"},
        {"open 0\nsendcommand 0x1ffffffff", "s:2: expected CODE"},
        {"open 0\nsendcommand 203 background\nsendcommand 202",
         "s:3: a command runs in the background: expected 'wait'"},
        {"open 0\nsendcommand 203 background\nopen 1", "s:3: a command runs in the background"},
        {"open 0\ncallback smart 1", "s:2: expected smart-mode, hdc-calib or fov-calib and a number"},
        {"inspect high", "s:1: expected LEVEL"},
        {"inspect 2 tag x", "s:1: expected LEVEL"},
        {"inspect 2 captag", "s:1: expected LEVEL"},
        {"open 0\nskip 1x2 yellow", "s:2: expected WIDTHxHEIGHT and a number or one of rgba8888"},
        {"open 0\nskip 1x 35", "s:2: expected WIDTHxHEIGHT"},
        {"open 0\nskip 99999999999x1 35", "s:2: expected WIDTHxHEIGHT"},
        {"open 0\nquery weather", "s:2: expected one of the questions"},
        {"open 0\nquery super-resolution", "s:2: expected 'super-resolution WIDTHxHEIGHT'"},
        {"open 0\nexpect-query long-exposure 1 yes", "s:2: expected 'long-exposure'"},
        {"open 0\nexpect-callback bell", "s:2: expected a message code or one of smart-mode"},
        {"open 0\nexpect-log loud x", "s:2: expected a level"},
        {"open 0\nrecording maybe", "s:2: expected on or off"},
    };
    for (const auto& row : kRows) {
        Problems problems("s");
        parse(row.text, problems);
        ASSERT_EQ(problems.count(), 1U) << row.text;
        EXPECT_THAT(problems.first().front(), HasSubstr(row.problem)) << row.text;
    }
    Problems notText("s");
    parse(std::string("open 0\nset a\0b=1", 16), notText);
    EXPECT_THAT(notText.first().front(), HasSubstr("s:2: 'set a\\x00b=1' contains a NUL byte"));
    Problems tooLong("s");
    parse("setprop camera.x " + std::string(92, 'x'), tooLong);
    EXPECT_THAT(tooLong.first().front(), HasSubstr("s:1: expected a value of at most 91 characters"));
}

TEST(Session, FindsEveryProblemAndKeepsTheFirst) {
    Problems problems("s");
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "\x01\xff nonsense\n";
    parse(text, problems);
    EXPECT_EQ(problems.count(), 1000U);
    EXPECT_EQ(problems.first().size(), 20U);
    EXPECT_THAT(problems.first().front(), HasSubstr("unknown command '\\x01\\xff'"));
}

}  // namespace
}  // namespace qzcam
