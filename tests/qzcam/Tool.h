// SPDX-License-Identifier: Apache-2.0
// Runs the whole tool, from its command line to its exit status.
#pragma once

#include "cli/Cli.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace qzcam {

class RunTool : public testing::Test {
  public:
    std::string file(const std::string& name, const std::string& text) {
        mPaths.push_back(temporary(name));
        std::ofstream(mPaths.back(), std::ios::binary) << text;
        return mPaths.back();
    }
    // Tests run in parallel, each in its own process.
    static std::string temporary(const std::string& name) {
        return testing::TempDir() + "qzcam-" + std::to_string(getpid()) + "-" + name;
    }
    void TearDown() override {
        for (const std::string& path : mPaths) static_cast<void>(std::remove(path.c_str()));
    }

    int tool(const std::vector<std::string>& words) {
        std::vector<const char*> argv{"qzcam"};
        for (const std::string& word : words) argv.push_back(word.c_str());
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int status = runTool(static_cast<int>(argv.size()), argv.data());
        mOut = testing::internal::GetCapturedStdout();
        mErr = testing::internal::GetCapturedStderr();
        return status;
    }

  protected:
    std::string mOut;
    std::string mErr;

  private:
    std::vector<std::string> mPaths;
};

}  // namespace qzcam
