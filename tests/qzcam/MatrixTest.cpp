// SPDX-License-Identifier: Apache-2.0
#include "matrix/Matrix.h"

#include "Tool.h"
#include "base/Text.h"
#include "base/Workers.h"
#include "device/BuiltIn.h"

#include <sys/resource.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const size_t place = text.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    return text.replace(place, from.size(), to);
}

const std::string& good() {
    static const std::string text(builtInDevice());
    return text;
}

// ISO is declared as int32.
const std::string& mistyped() {
    static const std::string text = replaced(good(), "(iso) with type 0 (byte)", "(iso) with type 1 (int32)");
    return text;
}

class MatrixTest : public RunTool {
  public:
    MatrixTest() : mFolder(temporary("matrix")) { fs::create_directories(mFolder / "below"); }
    ~MatrixTest() override { fs::remove_all(mFolder); }

    void put(const std::string& name, const std::string& text) const {
        std::ofstream(mFolder / name, std::ios::binary) << text;
    }
    json matrix(std::vector<std::string> words, int status) {
        words.insert(words.begin(), {"matrix", mFolder.string(), "--json"});
        EXPECT_EQ(tool(words), status) << mErr;
        return json::parse(mOut);
    }
    json cellOf(const json& matrix, const std::string& tag, const std::string& use, size_t column) {
        for (const json& row : matrix.at("tags")) {
            if (row.at("tag") == tag && row.at("use") == use) return row.at("cells").at(column);
        }
        return {};
    }

  protected:
    const fs::path mFolder;
};

TEST_F(MatrixTest, CellsAreTheVerdictsOfCheck) {
    put("a.txt", good());
    put("b.txt", mistyped());
    put("below/c.txt", replaced(good(), "device@3.4/legacy/0", "device@3.4/legacy/7"));
    put(".hidden", "x");
    put("broken.txt", "no dump");
    const json all = matrix({}, kBadInput);
    ASSERT_EQ(all.at("columns").size(), 4U);
    EXPECT_EQ(all.at("columns").at(2).at("input"), "below/c.txt");
    EXPECT_THAT(all.at("columns").at(3).at("error"), StartsWith("no camera in it"));
    const std::vector<std::string> files{"a.txt", "b.txt", "below/c.txt"};
    for (size_t column = 0; column < files.size(); ++column) {
        tool({"check", "--json", "--device", (mFolder / files[column]).string()});
        const json check = json::parse(mOut);
        EXPECT_EQ(all.at("columns").at(column).at("counts").at("missing"), check.at("counts").at("missing"));
        for (const json& feature : check.at("features")) {
            for (const json& row : feature.at("tags")) {
                const json cell = cellOf(all, row.at("tag"), row.at("use"), column);
                EXPECT_EQ(cell.at("verdict"), row.at("verdict")) << row;
                EXPECT_THAT(cell.value("what", ""), HasSubstr(row.value("what", ""))) << row;
            }
        }
    }
    const json& worst = all.at("features").at(0);
    EXPECT_EQ(worst.at("feature"), "image");
    EXPECT_EQ(worst.at("cells").at(1).at("verdict"), "mistyped");
    EXPECT_EQ(worst.at("cells").at(1).at("tag"), "com.ambrix.capture.metadata.iso");
    EXPECT_TRUE(worst.at("cells").at(3).is_null());

    EXPECT_EQ(tool({"matrix", mFolder.string()}), kBadInput);
    EXPECT_THAT(mOut, HasSubstr("   4  broken.txt   cannot be used: no camera in it"));
    EXPECT_THAT(mOut, HasSubstr("1T     .     ?\n"));
    EXPECT_THAT(
        mOut,
        HasSubstr(
            "image     column 2: mistyped com.ambrix.capture.metadata.iso: declared int32, expected byte"));
    EXPECT_EQ(tool({"matrix", mFolder.string(), "--tags"}), kBadInput);
    EXPECT_THAT(mOut, HasSubstr("com.ambrix.capture.metadata.iso (request)"));
}

TEST_F(MatrixTest, WrongInputIsReported) {
    put("a", good());
    const std::string folder = mFolder.string();
    const std::string known = file("known.json", matrix({}, kFine).dump());
    const struct {
        std::vector<std::string> words;
        int status;
        std::string err;
    } kRows[] = {
        {{"matrix"}, kUsage, "INPUT is required"},
        {{"matrix", folder + "/below"}, kBadInput, "no file in it"},
        {{"matrix", folder + "/x"}, kBadInput, "cannot read it"},
        {{"matrix", folder, folder + "/x"}, kBadInput, "cannot read it"},
        {{"matrix", folder, folder + "/x", "--baseline", known}, kBadInput, "cannot read it"},
        {{"matrix", folder, "--baseline", folder + "/x"}, kBadInput, "cannot read it"},
        {{"matrix", folder, "--baseline", folder + "/a"},
         kBadInput,
         "expected the output of 'qzcam matrix --json'"},
        {{"matrix", folder, "--baseline", file("other", R"({"format": "qzcam-check", "version": 1})")},
         kBadInput,
         "expected format qzcam-matrix, version 1"},
        {{"matrix", folder, "--baseline",
          file("half", R"({"format": "qzcam-matrix", "version": 1, "columns": [{}]})")},
         kBadInput,
         "'input' not found"},
        {{"matrix", folder, "--csv", "--json"}, kUsage, "excludes"},
        {{"matrix", "-", "--baseline", "-"}, kUsage, "only one of"},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(tool(row.words), row.status) << testing::PrintToString(row.words) << mErr;
        EXPECT_THAT(mErr, HasSubstr(row.err));
    }
}

TEST(Workers, FailureOfOneTaskStopsNoOther) {
    std::map<size_t, WorkResult> results;
    workInProcesses(
        50,
        [](size_t i) -> std::string {
            if (i == 3) std::abort();
            if (i == 4) std::_Exit(9);
            if (i == 5) std::fputs("a message", stderr);
            if (i == 6) std::fputs(std::string(16385, 'm').c_str(), stderr);
            return std::string(i * 10000, 'x');
        },
        [&](size_t i, WorkResult result) { results[i] = std::move(result); });
    ASSERT_EQ(results.size(), 50U);
    for (const auto& [i, result] : results) {
        const std::string failure = i == 3   ? "the process that read it was ended by signal 6"
                                    : i == 4 ? "the process that read it ended with 9"
                                             : "";
        EXPECT_EQ(result.failure, failure);
        EXPECT_EQ(result.text.size(), failure.empty() ? i * 10000 : 0);
        const std::string message =
            i == 5 ? "a message" : std::string(i == 6 ? 16384 : 0, 'm');  // the beginning
        if (i != 3) {
            EXPECT_EQ(result.messages, message);
        }
    }
}

TEST(Workers, LackOfFilesAndLostStatuses) {
    std::vector<std::string> failures;
    const auto work = [&failures] {
        workInProcesses(
            2, [](size_t) { return "x"; },
            [&](size_t, const WorkResult& result) { failures.push_back(result.text + result.failure); });
        return std::exchange(failures, {});
    };
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const rlimit none{0, limit.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const auto refused = work();
    setrlimit(RLIMIT_NOFILE, &limit);
    EXPECT_THAT(refused, Each("no process could be started for it: Too many open files"));
    EXPECT_THAT(refused, SizeIs(2));
    const auto before = std::signal(SIGCHLD, SIG_IGN);
    EXPECT_THAT(work(), ElementsAre("x", "x"));
    std::signal(SIGCHLD, before);
}

size_t residentKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (startsWith(line, "VmRSS:")) return std::stoul(line.substr(6));
    }
    return 0;
}

// Each input has 256 KiB of text of a HAL, 50 MiB in all. AddressSanitizer keeps freed memory.
TEST_F(MatrixTest, MemoryStaysFlatOverManyInputs) {
    std::string text =
        replaced(good(), "== Vendor tags: ==", std::string(size_t{1} << 18U, '\n') + "== Vendor tags: ==");
    put("0", text);
    for (int i = 1; i < 200; ++i) fs::create_hard_link(mFolder / "0", mFolder / std::to_string(i));
    Problems problems("matrix");
    const auto inputs = matrixInputs({mFolder.string()}, problems);
    ASSERT_EQ(inputs.size(), 200U);
    static_cast<void>(readMatrix({inputs[0]}, [](size_t) {}));
    const size_t before = residentKilobytes();
    size_t most = 0;
    const Matrix all = readMatrix(inputs, [&](size_t) { most = std::max(most, residentKilobytes()); });
    EXPECT_EQ(all.size(), 200U);
    EXPECT_LT(most, before + (size_t{36} << 10U));
}

}  // namespace
}  // namespace qzcam
