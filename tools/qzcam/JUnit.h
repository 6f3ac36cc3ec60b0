// Expectations as JUnit XML, which continuous integration reads: a suite for each session, a case for each
// expectation and for each error that keeps a session from being played.
#pragma once

#include "Events.h"

#include <string>
#include <vector>

namespace qzcam {

class JUnit {
  public:
    void beginSession(std::string name) { mSuites.push_back({std::move(name), {}, {}}); }
    void add(const Event& event);

    // False, and a message, when the file cannot be written.
    bool write(const std::string& path) const;

    std::string toText() const;

  private:
    struct Suite {
        std::string name;
        std::vector<ExpectationEvent> cases;
        std::vector<ErrorEvent> errors;
    };

    std::vector<Suite> mSuites;
};

}  // namespace qzcam
