// SPDX-License-Identifier: Apache-2.0
// Shows the progress of reading on standard error, if it is a terminal and reading takes more than a second.
// Prints nothing elsewhere.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace qzcam {

class Progress {
  public:
    explicit Progress(const std::string& what);  // "reading report.zip"
    ~Progress();                                 // removes the line
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // May be called often. `total` is 0 if it is not known.
    void reached(size_t bytes, size_t total = 0);

  private:
    using Clock = std::chrono::steady_clock;

    void show(size_t bytes, size_t total);

    std::string mWhat;
    bool mAtTerminal;
    bool mShown = false;
    Clock::time_point mNext;
};

}  // namespace qzcam
