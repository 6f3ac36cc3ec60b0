// SPDX-License-Identifier: Apache-2.0
// Standard input in pieces, as they come. While it lives, Ctrl-C ends the input instead of the program, and
// so does a closed pipe behind standard output: what was told until then can be summed up.
#pragma once

#include <csignal>
#include <string>

namespace qzcam {

class StreamedInput {
  public:
    enum class Came { Text, Nothing, End };

    StreamedInput();
    ~StreamedInput();
    StreamedInput(const StreamedInput&) = delete;
    StreamedInput& operator=(const StreamedInput&) = delete;

    // Waits a while for more.
    Came more();

    // Waits for a beginning that tells what it is.
    void begin();

    // True for a dump, a bug report and what is packed: they make sense only as a whole.
    bool isOneWhole() const;

    // The text that has come and has not been taken yet.
    std::string& text() { return mText; }

  private:
    std::string mText;
    struct sigaction mInterruptBefore {};
    struct sigaction mPipeBefore {};
};

}  // namespace qzcam
