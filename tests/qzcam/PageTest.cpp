// SPDX-License-Identifier: Apache-2.0
// Tests the files of --html. tests/web tests the pages in a browser.
#include "Tool.h"
#include "device/BuiltIn.h"
#include "support/DumpComposer.h"
#include "viewer/Page.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sstream>

namespace qzcam {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

class Pages : public RunTool {
  public:
    static std::string read(const std::string& path) {
        std::ifstream stream(path, std::ios::binary);
        std::ostringstream text;
        text << stream.rdbuf();
        return text.str();
    }

    // The JSON in a page.
    static std::string data(const std::string& page, const std::string& name) {
        const std::string begin = "<script type=\"application/json\" data-name=\"" + name + "\">\n";
        const size_t from = page.find(begin);
        if (from == std::string::npos) return "none";
        return page.substr(from + begin.size(), page.find("</script>", from) - from - begin.size());
    }
};

TEST_F(Pages, ContainTheJsonOfTheCommand) {
    const std::string page = file("page.html", "");
    ASSERT_EQ(tool({"check", "--json", "--html", page}), 0) << mErr;
    EXPECT_EQ(json::parse(data(read(page), "check")), json::parse(mOut));
    std::string other(builtInDevice());
    other.replace(other.rfind("(qz-zsl-mode)"), 13, "(qz-zsl-mood)");
    ASSERT_EQ(tool({"diff", file("other.dumpsys", other), "--json", "--html", page}), 1) << mErr;
    EXPECT_EQ(json::parse(data(read(page), "diff")), json::parse(mOut));
    const std::string session = file("a.qzs", "open 0\nset iso=1600\nrequest\nresult focusVcmValue=3\n");
    ASSERT_EQ(tool({"run", session, "--json", "--log", "silent", "--html", page}), 0) << mErr;
    std::istringstream inPage(data(read(page), "events"));
    std::istringstream printed(mOut);
    std::string expected;
    for (std::string line; std::getline(inPage, line);) {
        const json event = json::parse(line);
        if (event.value("event", "") == "log") continue;
        ASSERT_TRUE(std::getline(printed, expected));
        EXPECT_EQ(event, json::parse(expected));
    }
}

TEST_F(Pages, ContainTheOutputOfShowAndCompare) {
    test::DumpPhone sample = test::samplePhone(14);
    sample.cameras[0].entries.push_back(
        {"android.sensor.info.activeArraySize", 0xf0000, "int32", {"0", "0", "4000", "3000"}});
    const std::string phone = file("phone.dumpsys", test::dumpOf(sample));
    const std::string page = file("page.html", "");
    ASSERT_EQ(tool({"show", phone, "--verbose", "--json", "--html", page}), 0) << mErr;
    EXPECT_EQ(json::parse(data(read(page), "show")), json::parse(mOut));
    const json arrays = json::parse(data(read(page), "arrays"))["arrays"];
    EXPECT_EQ(arrays.size(), json::parse(mOut)["arrays"].size());
    ASSERT_EQ(tool({"show", phone, "--array", "static", "--json", "--html", page}), 0) << mErr;
    EXPECT_EQ(json::parse(data(read(page), "arrays")), json::parse(mOut));
    EXPECT_EQ(json::parse(mOut)["arrays"][0], arrays[2]);
    ASSERT_EQ(tool({"show", phone, "--find", "\\\"", "--json", "--html", page}), 0) << mErr;
    EXPECT_EQ(json::parse(data(read(page), "found")), json::parse(mOut));
    ASSERT_EQ(tool({"compare", phone, "--params", "iso=50", "--json", "--html", page}), 1) << mErr;
    EXPECT_EQ(json::parse(data(read(page), "compare")), json::parse(mOut));
    EXPECT_EQ(json::parse(data(read(page), "sensors"))["0"]["activeArray"], (json{0, 0, 4000, 3000}));
}

TEST_F(Pages, AreTheSameForTheSameInput) {
    const std::string phone = file("phone.dumpsys", test::dumpOf(test::samplePhone(14)));
    const std::string one = file("1.html", "");
    const std::string other = file("2.html", "");
    for (std::vector<std::string> words : std::vector<std::vector<std::string>>{
             {"run"}, {"show", phone}, {"compare", phone, "--params", "iso=50"}, {"trace", phone}}) {
        words.insert(words.end(), {"--html", one});
        const int status = tool(words);
        words.back() = other;
        EXPECT_EQ(tool(words), status) << mErr;
        EXPECT_EQ(read(one), read(other)) << words.front();
        EXPECT_THAT(read(one), Not(HasSubstr("Not finished")));
    }
}

TEST(Page, IsSmallWithoutData) { EXPECT_LT(htmlPage("qzcam run: built-in device", {}).size(), 150'000U); }

TEST_F(Pages, KeepDataApartFromThePage) {
    const std::string page = file("page.html", "");
    const std::string session =
        file("a.qzs", "open 0\nset iso=</script><!--<script>alert(1)&\xE2\x80\xA8\nrequest\n");
    ASSERT_EQ(tool({"run", session, "--html", page}), 0) << mErr;
    const std::string events = data(read(page), "events");
    EXPECT_THAT(events,
                HasSubstr("iso=\\u003c/script\\u003e\\u003c!--\\u003cscript\\u003ealert(1)\\u0026\\u2028"));
    for (const char* raw : {"<", "&", "\xE2\x80\xA8"}) EXPECT_THAT(events, Not(HasSubstr(raw)));
}

TEST_F(Pages, DoNotReplaceInputsAndReplaceOldPages) {
    const std::string session = file("a.qzs", "open 0\n");
    EXPECT_EQ(tool({"run", session, "--html", session}), 2);
    EXPECT_THAT(mErr, HasSubstr("is an input: expected another file for --html"));
    EXPECT_EQ(read(session), "open 0\n");
    const std::string dump = file("a.dumpsys", "nothing");
    EXPECT_EQ(tool({"check", "--device", dump, "--html", dump}), 2);
    EXPECT_EQ(tool({"diff", dump, "--html", dump}), 2);
    EXPECT_EQ(tool({"show", dump, "--html", dump}), 2);
    EXPECT_EQ(tool({"trace", session, "--device", dump, "--html", dump}), 2);
    EXPECT_EQ(tool({"compare", dump, session, "--html", session}), 2);
    const std::string page = file("page.html", "old");
    EXPECT_EQ(tool({"check", "--device", dump, "--html", page}), 3);
    EXPECT_THAT(read(page), HasSubstr("Not finished"));
    EXPECT_EQ(tool({"check", "--device", dump, "--html", temporary("new.html")}), 3);
    EXPECT_FALSE(std::ifstream(temporary("new.html")));
    const std::string kept = file("page.html", "old");
    EXPECT_EQ(tool({"run", "-", "--device", "-", "--html", kept}), 2);
    EXPECT_EQ(tool({"trace", "-", "--html", kept, "--perfetto", "-"}), 2);
    EXPECT_THAT(mErr, HasSubstr("--perfetto: expected a file, not '-'"));
    EXPECT_EQ(read(kept), "old");
    EXPECT_EQ(tool({"check", "--html", testing::TempDir()}), 3);
    EXPECT_THAT(mErr, HasSubstr("cannot write it"));
}

}  // namespace
}  // namespace qzcam
