// SPDX-License-Identifier: Apache-2.0
#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "device/Properties.h"
#include "log/Inspection.h"
#include "log/LibraryLine.h"
#include "log/Logcat.h"
#include "log/Statements.h"
#include "log/TagMonitor.h"
#include "qzcam/BuiltIn.h"
#include "session/Player.h"
#include "support/Phone.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <rows/Line.h>

#include <map>

namespace qzcam {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<test::PhoneEvent> phone(std::string_view text) {
    const ScopedProperties properties;
    Problems problems("s");
    const Session session = parseSession(text, "s", problems);
    EXPECT_THAT(problems.first(), IsEmpty());
    std::vector<Event> events;
    Player player(test::builtIn(), [&events](const Event& event) { events.push_back(event); });
    player.play(session);
    return test::onPhone(events);
}

const std::vector<test::PhoneEvent>& builtIn() {
    static const auto events = phone(builtInSession());
    return events;
}

std::vector<LogLine> readLogcat(std::string_view text) {
    std::vector<LogLine> all;
    LogcatReader reader([&all](LogLine line) { all.push_back(std::move(line)); });
    Lines lines(text);
    for (std::string_view line; lines.next(line);) reader.feed(line, lines.number());
    return all;
}

// Each layout with each modifier is read with its message and its fields.
TEST(Logcat, LayoutsAndModifiersAreRead) {
    using Layout = test::LogFormat::Layout;
    const std::vector<test::PhoneLine> lines{
        {test::kPhoneStart, 2207, 'I', "CameraQzParam", "a \\ b: (c) (d)"},
        {test::kPhoneStart, 2208, 'E', "Cam", "two\nlines"},
    };
    for (const Layout layout : {Layout::Brief, Layout::Process, Layout::Tag, Layout::Thread, Layout::Raw,
                                Layout::Time, Layout::Threadtime, Layout::Long}) {
        for (unsigned bits = 0; bits < 128; ++bits) {
            test::LogFormat format{layout,           (bits & 1U) != 0,  (bits & 2U) != 0,  (bits & 4U) != 0,
                                   (bits & 8U) != 0, (bits & 16U) != 0, (bits & 32U) != 0, (bits & 64U) != 0};
            format.digits = 3 + 3 * static_cast<int>(bits % 3);
            const auto read = readLogcat(test::logText(lines, format));
            const std::string text = test::logText(lines, format);
            ASSERT_EQ(read.size(), 3U) << text;
            EXPECT_EQ(read[0].message, lines[0].message) << text;
            EXPECT_EQ(read[1].message + read[2].message, "twolines") << text;
            if (layout == Layout::Raw) continue;
            EXPECT_EQ(read[2].level, 'E') << text;
            EXPECT_EQ(read[2].tag, layout == Layout::Thread ? "" : "Cam") << text;
            EXPECT_EQ(read[0].pid, layout == Layout::Tag ? -1 : 812) << text;
            const bool hasThread =
                layout == Layout::Thread || layout == Layout::Threadtime || layout == Layout::Long;
            EXPECT_EQ(read[2].tid, hasThread ? 2208 : -1) << text;
            if (layout != Layout::Threadtime) continue;
            EXPECT_EQ(read[0].time.kind, format.monotonic ? LogTime::Kind::Monotonic : LogTime::Kind::Wall);
        }
    }
}

// Each line of the library is recognised, even if it is cut, as long as no other line begins alike.
TEST(LibraryLine, LinesOfRowsAreRecognised) {
    for (const qz::LogLine& line : qz::kLines) {
        std::string message = line.format;
        const std::map<std::string, std::string> printed{
            {"%s", *line.function != '\0' ? line.function : "someFunction"},
            {"%d", "-22"},
            {"%u", "7"},
            {"%zu", "3"},
            {"%lld", "8000000"},
            {"%f", "1.500000"},
            {"%#x", "0x80000000"},
            {"%x", "80000000"},
            {"%p", "0x5f"},
            {"%c", ","},
            {"%.*s", "driver"}};
        for (const auto& [conversion, text] : printed) {
            for (size_t at = message.find(conversion); at != std::string::npos; at = message.find(conversion))
                message.replace(at, conversion.size(), text);
        }
        LogLine log;
        log.tag = line.logTag;
        log.message = message.substr(0, message.find('\n'));
        const auto found = recogniseLibraryLine(log);
        ASSERT_TRUE(found) << message;
        EXPECT_STREQ(found->line->format, line.format);
        if (*line.function != '\0' && !found->function.empty()) {
            EXPECT_EQ(found->function, line.function);
        }
        if (found->kind == LibraryLine::Kind::Refused) {
            EXPECT_TRUE(statedEntry(*found)) << message;
        }
    }
}

TEST(LibraryLine, CutLineCountsWhereItsBeginningIsUnambiguous) {
    LogLine log;
    log.tag = qz::kTranslatorLog;
    log.message = "setIso(), failed to update is";
    const auto cut = recogniseLibraryLine(log);
    ASSERT_TRUE(cut);
    EXPECT_TRUE(cut->cut);
    EXPECT_EQ(cut->function, "setIso");
    log.message = "setJpegQuality(), failed to update jpeg ";  // quality, or thumbnail quality
    EXPECT_FALSE(recogniseLibraryLine(log));
    log.tag = "Other";
    log.message = "setIso(), failed to update iso: 7, return: -22";
    EXPECT_FALSE(recogniseLibraryLine(log));
}

// The changes of the built-in session's requests and results are read from the text of every version.
TEST(TagMonitor, EventsOfEveryVersionAreRead) {
    const TagNames names(test::builtIn().vendorTags);
    for (const test::MonitorFormat format : test::kMonitorFormats) {
        const std::string text = test::monitorText(builtIn(), format);
        std::map<std::string, MonitorEvent> events;
        {
            MonitorReader reader([&events](const MonitorEvent& event) {
                events[fmt::format("{} {} {}", event.frame, event.isRequest, event.tag)] = event;
            });
            Lines lines(text);
            std::string_view line;
            while (lines.next(line)) reader.feed(line, lines.number());
        }
        size_t wanted = format == test::MonitorFormat::Android14 ? 1 : 0;
        for (const test::PhoneEvent& each : builtIn()) {
            const auto* request = std::get_if<RequestEvent>(&each.event);
            const auto* result = std::get_if<ResultEvent>(&each.event);
            if (request == nullptr && result == nullptr) continue;
            for (const EntryRow& row : request != nullptr ? request->entries : result->entries) {
                if (row.change == Change::None) continue;
                ++wanted;
                const auto found =
                    events.find(fmt::format("{} {} {}", each.frame, request != nullptr, row.name));
                ASSERT_NE(found, events.end()) << row.name << text;
                EXPECT_EQ(found->second.isRemoved, row.change == Change::Gone);
                if (row.change == Change::Gone) continue;
                const auto values = valuesOf(found->second, *names.find(row.name));
                ASSERT_TRUE(values) << row.name;
                EXPECT_EQ(*values, row.values) << row.name;
            }
        }
        EXPECT_EQ(events.size(), wanted);
    }
}

std::vector<std::string> findings(const std::string& log) {
    std::vector<std::string> all;
    InspectionReader reader([&all](const Inspected& finding) {
        constexpr const char* kOf[] = {"?", "static", "request", "result"};
        std::string text = fmt::format("{} {}{} {}", kOf[static_cast<int>(finding.of)], finding.requestKind,
                                       finding.frame ? fmt::format("f{}", *finding.frame) : "", finding.tag);
        for (const std::string& element : finding.elements) text += " " + element;
        if (!finding.tags.empty())
            text += finding.tags.size() == finding.announced ? "all" : std::to_string(finding.tags.size());
        all.push_back(text);
    });
    for (const LogLine& line : readLogcat(log)) {
        if (const auto library = recogniseLibraryLine(line)) reader.feed(line, *library);
    }
    reader.end();
    return all;
}

TEST(Inspection, LevelsAreReadBack) {
    const auto lines = test::logOf(
        phone("open 0\ninspect 5 captag com.ambrix.device.capabilities.zslSupported "
              "ctrltag com.ambrix.capture.metadata.iso stattag com.ambrix.capture.metadata.focusVcmValue\n"
              "set iso=1600\nrequest\nresult focusVcmValue=318\nopen 0\n"));
    const std::string log = test::logText(lines, {});
    EXPECT_THAT(
        findings(log),
        ElementsAre("request repeating ", "request  com.ambrix.capture.metadata.iso 7",
                    "result f1 com.ambrix.capture.metadata.focusVcmValue 318", "result f1 ", "request  all",
                    "static  com.ambrix.device.capabilities.zslSupported 1", "static  all", "static  all"));
}

}  // namespace
}  // namespace qzcam
