// SPDX-License-Identifier: Apache-2.0
// Tests the outputs for programs: JSON lines, JUnit XML, columns; and the log filters.
#include "Xml.h"
#include "base/Text.h"
#include "base/WriteAll.h"
#include "device/ParameterText.h"
#include "host/LogFilter.h"
#include "output/JUnit.h"
#include "output/JsonPrinter.h"
#include "output/Monitor.h"
#include "output/Printer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <android/log.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qzcam {
namespace {

using nlohmann::json;
using testing::HasSubstr;

// Returns the output of `print` to a file.
std::string written(const std::function<void(std::FILE*)>& print) {
    std::FILE* file = std::tmpfile();
    print(file);
    std::rewind(file);
    std::string text;
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) text += static_cast<char>(c);
    std::fclose(file);
    return text;
}

std::vector<json> jsonLines(const std::vector<Event>& events) {
    const std::string text = written([&](std::FILE* file) {
        JsonPrinter printer(file, ANDROID_LOG_INFO);
        printer.device({});
        for (const Event& event : events) printer.print(event);
        EXPECT_TRUE(printer.flush());
    });
    std::vector<json> objects;
    Lines lines(text);
    for (std::string_view line; lines.next(line);) objects.push_back(json::parse(line));
    return objects;
}

Values values(uint8_t type, const char* list) { return *parseValues(type, 0x80000000, list); }

TEST(Json, PrintsEveryElementType) {
    const struct {
        uint8_t type;
        const char* list;
        const char* expected;
    } kRows[] = {
        {TYPE_BYTE, "0,255", "[0,255]"},
        {TYPE_INT32, "-2147483648", "[-2147483648]"},
        {TYPE_INT64, "9223372036854775807", "[9223372036854775807]"},
        {TYPE_FLOAT, "0.98", "[0.98]"},
        {TYPE_FLOAT, "nan", "[null]"},
        {TYPE_DOUBLE, "0.1", "[0.1]"},
        {TYPE_RATIONAL, "20000/1000000", "[[20000,1000000]]"},
    };
    for (const auto& row : kRows) EXPECT_EQ(jsonOf(values(row.type, row.list)).dump(), row.expected);
}

TEST(Json, IsAlwaysOneValidLine) {
    Message message;
    message.bytes = {0, 255};
    message.isData = true;
    const auto lines = jsonLines({LogEvent{3, "t", "below the filter"}, LogEvent{6, "t", "a\nb\xff\"\x01"},
                                  NoteEvent{"\xc3\x28"}, CallbackEvent{message}});
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[2].at("text"), "a\nb\xEF\xBF\xBD\"\x01");
    EXPECT_EQ(lines[4].at("bytes"), json({0, 255}));
}

// Every byte, alone and as the start of a character; and characters that XML or a terminal cannot take.
const std::string& hostile() {
    static const std::string text = [] {
        std::string all =
            "\033[31m\xef\xbf\xbe\xef\xbf\xbf\xed\xa0\x80\xed\xbf\xbf\xc2\x9b\xe2\x80\xae]]>\r\n\xf0\x9f";
        for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
        for (int byte = 128; byte < 256; ++byte) all.append(1, static_cast<char>(byte)).append("\x80<&\"'");
        return all;
    }();
    return text;
}

std::vector<Event> eventsWith(const std::string& text) {
    const EntryRow entry{1, text, values(TYPE_BYTE, "1"), Change::New, {}, {{text, text}}};
    const ParamRow parameter{text, text, text, Change::Changed};
    Message message;
    message.name = text;
    message.fields = {{text, text}, {"", text}};
    return {SessionEvent{text},
            CommandEvent{1, text},
            RequestEvent{{entry}},
            VerdictsEvent{{{text, text, Verdict::Unread, text, {}}}},
            ResultEvent{1, {entry}},
            ParamsEvent{{parameter}},
            PublishEvent{{parameter}, {text}, {text}, {text}},
            CallbackEvent{message},
            LogEvent{ANDROID_LOG_ERROR, text, text},
            StatusEvent{text, 1, false},
            StatusEvent{text, 1, true},
            AnswerEvent{text, text},
            ErrorEvent{text},
            NoteEvent{text},
            ExpectationEvent{text, 1, text, true, text, text},
            ExpectationEvent{text, 2, text, false, text, text},
            SummaryEvent{1, 1}};
}

template <typename Each>
std::string printed(const std::string& text, Each printer) {
    return written([&](std::FILE* file) {
        auto output = printer(file);
        for (const Event& event : eventsWith(text)) output->print(event);
        output->flush();
    });
}

TEST(JUnit, IsWellFormed) {
    JUnit junit;
    junit.beginSession(hostile());
    for (const Event& event : eventsWith(hostile())) junit.add(event);
    const auto xml = parseXml(junit.toText());
    ASSERT_TRUE(xml);
    EXPECT_EQ(countElements(xml->children, "testcase"), 3U);
    EXPECT_EQ(countElements(xml->children, "failure"), 1U);
    EXPECT_EQ(countElements(xml->children, "error"), 1U);
    EXPECT_THAT(junit.toText(),
                HasSubstr("\\x1b[31m\\xef\\xbf\\xbe\\xef\\xbf\\xbf\\xed\\xa0\\x80\\xed\\xbf\\xbf"));
}

TEST(Output, EscapesTextsOfFiles) {
    const auto text = [](bool colour) {
        return [colour](std::FILE* file) {
            return std::make_unique<Printer>(file, colour, ANDROID_LOG_VERBOSE);
        };
    };
    const auto monitor = [](std::FILE* file) { return std::make_unique<Monitor>(file); };
    const auto asJson = [](std::FILE* file) {
        return std::make_unique<JsonPrinter>(file, ANDROID_LOG_VERBOSE);
    };
    for (const std::string& all :
         {printed(hostile(), text(false)), printed(hostile(), monitor), printed(hostile(), asJson)}) {
        EXPECT_THAT(all, testing::Not(testing::IsEmpty()));
        Lines lines(all);
        for (std::string_view line; lines.next(line);) EXPECT_EQ(line, visible(line));
    }
    const auto escapes = [&](const std::string& name) {
        const std::string all = printed(name, text(true));
        return std::count(all.begin(), all.end(), '\033');
    };
    EXPECT_GT(escapes("x"), 0);
    EXPECT_EQ(escapes(hostile()), escapes("x"));
}

TEST(Output, WriteErrors) {
    testing::internal::CaptureStderr();  // flushes
    std::FILE* full = std::fopen("/dev/full", "w");
    Monitor monitor(full);
    monitor.print(SummaryEvent{1, 0});
    EXPECT_FALSE(monitor.finish());  // so small that it fails only when it is flushed
    EXPECT_FALSE(writeAll(full, "text"));
    EXPECT_FALSE(JUnitFile("/dev/full").finish(JUnit()));
    std::fclose(full);
    const std::string no = "annot write the output: No space left on device\n";
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "qzcam: c" + no + "qzcam: c" + no + "/dev/full: cannot write it: No space left on device\n");
}

TEST(Text, EscapesUnprintableCharacters) {
    const struct {
        const char* text;
        const char* shown;
    } kRows[] = {
        {"plain \\x1b", "plain \\x1b"},
        {"\x1b\x7f\t\r\n", "\\x1b\\x7f\\x09\\x0d\\x0a"},
        {"\xc2\x9b\xc2\xa0", "\\xc2\\x9b\xc2\xa0"},                                    // U+009B, U+00A0
        {"\xed\x9f\xbf\xed\xa0\x80", "\xed\x9f\xbf\\xed\\xa0\\x80"},                   // U+D7FF, U+D800
        {"\xed\xbf\xbf\xee\x80\x80", "\\xed\\xbf\\xbf\xee\x80\x80"},                   // U+DFFF, U+E000
        {"\xef\xbf\xbd\xef\xbf\xbe", "\xef\xbf\xbd\\xef\\xbf\\xbe"},                   // U+FFFD, U+FFFE
        {"\xe2\x80\xae\xe2\x80\xaf", "\\xe2\\x80\\xae\xe2\x80\xaf"},                   // U+202E, U+202F
        {"\xc0\x80\xe0\x9f\xbf", "\\xc0\\x80\\xe0\\x9f\\xbf"},                         // overlong
        {"\xf4\x8f\xbf\xbf\xf4\x90\x80\x80", "\xf4\x8f\xbf\xbf\\xf4\\x90\\x80\\x80"},  // U+10FFFF
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(visible(row.text), row.shown);
        EXPECT_EQ(visible(row.shown), row.shown);
    }
    EXPECT_EQ(cut("\xe4\xb8\xad\xe4\xb8\xad", 4), "\xe4\xb8\xad\xe4\xb8\xad");
    EXPECT_EQ(cut("\xe4\xb8\xad\xe4\xb8\xad", 3), "\xe4\xb8\xad...");
}

TEST(LogFilter, LevelsAndTags) {
    const LogEvent debug{ANDROID_LOG_DEBUG, "CameraQzParam", "x"};
    const LogEvent warning{ANDROID_LOG_WARN, "Other", "x"};
    const LogEvent missing{ANDROID_LOG_ERROR, "VendorTagDescriptor", "x"};
    const LogEvent entering{ANDROID_LOG_ERROR, "CameraQzParam", "Enter setZslMode(512)"};
    const struct {
        const char* text;
        std::string shown;  // the lines that the filter shows
    } kRows[] = {
        {"verbose", "dwme"},   {"warning", "w"},           {"E", ""},
        {"silent", ""},        {"CameraQzParam:D", "dwe"}, {"CameraQzParam:D *:S", "de"},
        {"*:D", "dwme"},       {"CameraQzParam:V", "dwe"}, {"VendorTagDescriptor:E", "wm"},
        {" *:S Other:W", "w"},
    };
    for (const auto& row : kRows) {
        const auto filter = LogFilter::parse(row.text);
        ASSERT_TRUE(filter) << row.text;
        std::string shown;
        if (filter->shows(debug)) shown += 'd';
        if (filter->shows(warning)) shown += 'w';
        if (filter->shows(missing)) shown += 'm';
        if (filter->shows(entering)) shown += 'e';
        EXPECT_EQ(shown, row.shown) << row.text;
    }
    for (const char* wrong : {"", " ", "loud", "a:loud", ":D", "a:"})
        EXPECT_FALSE(LogFilter::parse(wrong)) << wrong;
}

TEST(Printer, MessagesOfSeveralLines) {
    const std::string text = written([](std::FILE* file) {
        Printer printer(file, false, ANDROID_LOG_INFO);
        printer.print(LogEvent{ANDROID_LOG_INFO, "Tag", "one\ntwo\n"});
        printer.flush();
    });
    EXPECT_EQ(text, "      I Tag: one\n             two\n");
}

TEST(Printer, CountsRepeatedLinesAlsoAtTheEnd) {
    const std::string text = written([](std::FILE* file) {
        Printer printer(file, false, ANDROID_LOG_INFO);
        const auto log = [&](const char* line, int times) {
            while (times-- > 0) printer.print(LogEvent{ANDROID_LOG_INFO, "T", line});
        };
        log("a", 3);
        log("b", 1);
        log("a", 2);
        printer.flush();
    });
    EXPECT_EQ(
        text,
        "      I T: a\n        ... 2 times more\n      I T: b\n      I T: a\n        ... 1 times more\n");
}

TEST(ParameterText, ReadsBothForms) {
    const std::string cut = "\tlong: " + std::string(247, 'x');
    const struct {
        std::string text;
        std::vector<std::string> expected;
        size_t cut;
        size_t problems;
    } kRows[] = {
        {"a=1;b=(1,2);c=\n", {"a=1", "b=(1,2)", "c="}, 0, 0},
        {"a=x: y", {"a=x: y"}, 0, 0},
        {"\ta: 1\n\tb: x=y: z\n\tc: \n\td:\n", {"a=1", "b=x=y: z", "c=", "d="}, 0, 0},
        {cut.substr(0, 253) + "\n\ta: 1\n", {"long=" + std::string(246, 'x'), "a=1"}, 0, 0},
        {cut + "\ta: 1\n", {"a=1"}, 1, 0},
        {"a=1;b;=2", {"a=1"}, 0, 2},
        {std::string("a=1\nb\0c=2\n\0: d", 15), {"a=1"}, 0, 2},
    };
    for (const auto& row : kRows) {
        Problems problems("p");
        const ParameterText found = parseParameters(row.text, problems);
        std::vector<std::string> pairs;
        for (const auto& [key, value] : found.parameters) pairs.push_back(key + "=" + value);
        EXPECT_EQ(pairs, row.expected);
        EXPECT_EQ(found.cutLines.size(), row.cut) << row.text;
        EXPECT_EQ(problems.count(), row.problems) << row.text;
    }
}

}  // namespace
}  // namespace qzcam
