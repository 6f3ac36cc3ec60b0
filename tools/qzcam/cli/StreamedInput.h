// SPDX-License-Identifier: Apache-2.0
// Reads standard input in pieces, as they arrive. While this object exists, Ctrl-C ends the input instead of
// the program, and so does a closed pipe at standard output. So the results can still be summed up.
#pragma once

#include <csignal>
#include <string>

namespace qzcam {

class StreamedInput {
  public:
    enum class Arrival { Text, Nothing, End };

    StreamedInput();
    ~StreamedInput();
    StreamedInput(const StreamedInput&) = delete;
    StreamedInput& operator=(const StreamedInput&) = delete;

    // Waits a while for more.
    Arrival readMore();

    // Waits until the beginning shows the kind of the input.
    void begin();

    // Returns true for a dump, a bugreport and a packed file, which can be read only as a whole.
    bool mustBeReadWhole() const;

    // Returns the text that has arrived and has not been taken yet.
    std::string& text() { return mText; }

  private:
    std::string mText;
    struct sigaction mInterruptBefore {};
    void (*mPipeBefore)(int);
};

}  // namespace qzcam
