// SPDX-License-Identifier: Apache-2.0
#include "session/Session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qzcam {
namespace {

using testing::ElementsAre;
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

TEST(Session, TextsThatAreNotSessionsAreErrors) {
    Problems problems("s");
    parse(std::string("\n\n\xc3\xb6 0 \xc3\nsetprop a\0b 1", 22), problems);
    EXPECT_THAT(problems.first(), ElementsAre(HasSubstr("s:3: unknown command '\xc3\xb6'"),
                                              HasSubstr("s:4: 'setprop a\\x00b 1' contains a NUL byte")));
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
