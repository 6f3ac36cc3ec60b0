// SPDX-License-Identifier: Apache-2.0
#include "Tool.h"
#include "device/BuiltIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace qzcam {
namespace {

using nlohmann::json;
using testing::HasSubstr;

constexpr const char* kSession = "open 0\nset iso=200;saturation=high\nrequest\nexpect-entry iso 99\n";

class DiffTool : public RunTool {
  protected:
    std::string deviceWith(const std::vector<std::pair<std::string, std::string>>& changes,
                           const std::string& name = "b.txt") {
        std::string text(builtInDevice());
        for (const auto& [from, to] : changes) {
            const size_t place = text.find(from);
            EXPECT_NE(place, std::string::npos) << from;
            text.replace(place, from.size(), to);
        }
        return file(name, text);
    }
    json differences(const std::vector<std::string>& words) {
        std::vector<std::string> all{"diff", "--json"};
        all.insert(all.end(), words.begin(), words.end());
        EXPECT_EQ(tool(all), kFailed) << mErr;
        return json::parse(mOut);
    }
};

std::string repeated(const std::string& text, size_t times) {
    std::string all;
    for (size_t i = 0; i < times; ++i) all += text;
    return all;
}

// Returns "name a b" for each difference.
std::vector<std::string> rows(const json& differences) {
    std::vector<std::string> texts;
    for (const json& row : differences) {
        std::string name = row["name"];
        name.erase(0, name.rfind('.') + 1);
        texts.push_back(name + " " + row["a"].dump() + " " + row["b"].dump());
    }
    return texts;
}

TEST_F(DiffTool, Devices) {
    const std::string a = file("a.txt", std::string(builtInDevice()));
    const std::string b =
        deviceWith({{"(iso) with", "(isoo) with"},
                    {"(saturationValue) with type 0 (byte)", "(saturationValue) with type 1 (int32)"},
                    {"int32[1]\n        [20 ]", "int32[1]\n        [10 ]"}});
    const json report = differences({a, b, "--session", file("s.qzs", kSession)});
    EXPECT_THAT(rows(report["tags"]), testing::ElementsAre(R"(iso "byte" null)", R"(isoo null "byte")",
                                                           R"(saturationValue "byte" "int32")"));
    EXPECT_THAT(rows(report["capabilities"]),
                testing::ElementsAre(
                    R"(burstCountSupported {"type":"int32","values":[20]} {"type":"int32","values":[10]})"));
    EXPECT_THAT(rows(report["parameters"]), testing::ElementsAre(R"(qz-burst-support-count "20" "10")"));
    ASSERT_EQ(report["requests"].size(), 1U);
    EXPECT_EQ(report["requests"][0]["lineA"], 3);
    EXPECT_THAT(rows(report["requests"][0]["entries"]),
                testing::ElementsAre(R"(iso {"type":"byte","values":[3]} null)",
                                     R"(saturationValue {"type":"byte","values":[255]} null)"));

    EXPECT_EQ(report["format"], "qzcam-diff");
    EXPECT_EQ(report["version"], 1);

    // The differences of long lists are shown from the first one on.
    const std::string iso = "[0 2 3 4 5 7 8 9 ]";
    std::string lists[2];
    for (std::string& list : lists) {
        const bool isSecond = &list == &lists[1];
        list = deviceWith(
            {{"supported_iso_values (80010000): byte[8]", "supported_iso_values (80010000): byte[200]"},
             {iso,
              iso.substr(0, 1) + repeated("0 ", 150) + (isSecond ? "3 " : "2 ") + repeated("0 ", 49) + "]"}},
            isSecond ? "long2.txt" : "long1.txt");
    }
    EXPECT_EQ(tool({"diff", lists[0], lists[1]}), kFailed) << mErr;
    EXPECT_THAT(mOut, HasSubstr("\n      A  byte[200] from value 151 on: 2 0 0 "));
    EXPECT_THAT(mOut, HasSubstr("\n      B  byte[200] from value 151 on: 3 0 0 "));
    EXPECT_THAT(mOut, HasSubstr("\n      B  ... 200,auto,"));

    // The default for B is the built-in device. The text output is a table.
    EXPECT_EQ(tool({"diff", b}), kFailed);
    EXPECT_THAT(mOut, testing::ContainsRegex("\nVendor tags: 3 of [0-9]+ differ\n +A +B\n"));
    EXPECT_THAT(mOut, testing::ContainsRegex("\n  qz-burst-support-count +10 +20\n"));
    EXPECT_EQ(tool({"diff", a}), kFine);
    EXPECT_THAT(mOut, HasSubstr("Nothing differs."));
}

TEST_F(DiffTool, Sessions) {
    const std::string a = file("a.qzs", kSession);
    const std::string b = file("b.qzs", "open 0\nset iso=400\nrequest\nset zsl-mode=on\nrequest\n");
    const json report = differences({a, b});
    EXPECT_THAT(
        rows(report["parameters"]),
        testing::ElementsAre(R"(iso "200" "400")", R"(saturation "high" null)", R"(zsl-mode null "on")"));
    const json& requests = report["requests"];
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_THAT(rows(requests[0]["entries"]),
                testing::ElementsAre(R"(iso {"type":"byte","values":[3]} {"type":"byte","values":[4]})",
                                     R"(saturationValue {"type":"byte","values":[255]} null)"));
    EXPECT_TRUE(requests[1]["lineA"].is_null());
    EXPECT_EQ(requests[1]["lineB"], 5);
    EXPECT_EQ(tool({"diff", a, a}), kFine);
}

TEST_F(DiffTool, UnusableInputIsReported) {
    const std::string session = file("s.qzs", kSession);
    const std::string dump = file("d.txt", std::string(builtInDevice()));
    const std::string garbage = file("g.txt", "\x01\x02 nothing\n");
    const std::string cut = file("c.txt", std::string(builtInDevice().substr(0, 3000)));
    const struct {
        std::vector<std::string> words;
        int status;
        std::string says;
    } kRows[] = {
        {{session, dump},
         kUsage,
         session + " is a session and " + dump + " is a dump: expected two of one kind"},
        {{garbage, dump}, kBadInput, garbage + ": cannot tell whether it is a dump or a session"},
        {{dump, garbage}, kBadInput, garbage + ": cannot tell"},
        {{session, garbage, "--as", "sessions"}, kBadInput, garbage + ":1: "},
        {{dump, cut, "--strict"}, kBadInput, "the dump ends here: "},
        {{dump, dump + "-not-there"}, kBadInput, "cannot read it: No such file"},
        {{dump, dump, "--as", "phones"}, kUsage, "expected devices or sessions"},
        {{dump, dump, "--camera", "0,7"}, kBadInput, "no camera '7'"},
        {{"-", "-"}, kUsage, "standard input is read once"},
    };
    for (const auto& row : kRows) {
        std::vector<std::string> words{"diff"};
        words.insert(words.end(), row.words.begin(), row.words.end());
        EXPECT_EQ(tool(words), row.status) << row.says;
        EXPECT_THAT(mErr, HasSubstr(row.says));
    }
}

}  // namespace
}  // namespace qzcam
