// SPDX-License-Identifier: Apache-2.0
// Text of a session that is being written.
#pragma once

#include "base/Values.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qzcam {

// A word of the session language; quoted if it has to be.
std::string sessionWord(const std::string& text);

// "1,2,3", as the session language takes the values of an entry.
std::string sessionValues(const Values& values);

class SessionText {
  public:
    // A command, and the line of the input that it comes from; 0 for none.
    void command(const std::string& text, size_t source = 0);
    void comment(const std::string& text, size_t source = 0);
    void gap();

    // Makes comments of the lines, each with its reason. Lines count from 1.
    void withdraw(size_t line, const std::string& reason);

    std::string text() const;

  private:
    std::vector<std::string> mLines;
};

}  // namespace qzcam
