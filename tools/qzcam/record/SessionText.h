// SPDX-License-Identifier: Apache-2.0
// The text of a session that is being written.
#pragma once

#include "base/Values.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qzcam {

// Returns a word of the session language, quoted if necessary.
std::string sessionWord(const std::string& text);

// Returns "1,2,3", the values of an entry in the session language.
std::string sessionValues(const Values& values);

class SessionText {
  public:
    // Adds a command, and the line of the input that it comes from; 0 for none.
    void command(const std::string& text, size_t source = 0);
    void comment(const std::string& text, size_t source = 0);
    void gap();

    // Turns a line of the text into a comment with the reason. Lines count from 1.
    void withdraw(size_t line, const std::string& reason);

    std::string text() const;

  private:
    std::vector<std::string> mLines;
};

}  // namespace qzcam
