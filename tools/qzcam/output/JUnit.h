// SPDX-License-Identifier: Apache-2.0
// Expectations as JUnit XML, which continuous integration reads: a suite for each session, a case for each
// expectation and for each error that keeps a session from being played.
#pragma once

#include "host/Events.h"

#include <string>
#include <utility>
#include <vector>

namespace qzcam {

class JUnit {
  public:
    void beginSession(std::string name) { mSuites.push_back({std::move(name), {}, {}}); }
    void add(const Event& event);

    std::string toText() const;

  private:
    struct Suite {
        std::string name;
        std::vector<ExpectationEvent> cases;
        std::vector<ErrorEvent> errors;
    };

    std::vector<Suite> mSuites;
};

// The report file of a run. During the run the file contains a report that says "not finished", so that an
// old report is never mistaken for the report of this run, even if the run crashes.
class JUnitFile {
  public:
    explicit JUnitFile(std::string path) : mPath(std::move(path)) {}  // empty: none

    // Return false and print a message if the file cannot be written.
    bool begin() const;
    bool finish(const JUnit& report) const;

  private:
    std::string mPath;
};

}  // namespace qzcam
