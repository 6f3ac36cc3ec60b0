// SPDX-License-Identifier: Apache-2.0
#include "base/Output.h"

#include "base/WriteAll.h"

#include <cerrno>

namespace qzcam {

// A reader that closes the pipe (`| head`) is not an error; writing ends.
void Output::line(const std::string& text) {
    if (mError != 0) return;
    const std::string whole = text + "\n";
    if (std::fwrite(whole.data(), 1, whole.size(), mOut) != whole.size()) mError = errno;
}

bool Output::flush() {
    if (mError == 0 && std::fflush(mOut) != 0) mError = errno;
    return mError == 0 || mError == EPIPE;
}

bool Output::finish() {
    if (flush()) return true;
    cannotWrite(mError);
    return false;
}

}  // namespace qzcam
