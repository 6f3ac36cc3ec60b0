// SPDX-License-Identifier: Apache-2.0
#include "base/WriteAll.h"

#include "base/Text.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstring>

namespace qzcam {

bool writeAll(std::FILE* out, const std::string& text) {
    errno = 0;
    const bool written = std::fwrite(text.data(), 1, text.size(), out) == text.size();
    if ((written && std::fflush(out) == 0) || errno == EPIPE) return true;
    cannotWrite(errno);
    return false;
}

void cannotWrite(int error) {
    complain(fmt::format("qzcam: cannot write the output: {}", std::strerror(error)));
}

}  // namespace qzcam
