// SPDX-License-Identifier: Apache-2.0
#include "base/WriteAll.h"

#include "base/Text.h"

#include <fmt/format.h>

#include <algorithm>
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

std::string contentOf(std::FILE* file, size_t most) {
    std::string text;  // the writer, which shares the position, has left it at the end
    text.resize(std::min(static_cast<size_t>(std::max(std::ftell(file), 0L)), most));
    std::rewind(file);
    text.resize(std::fread(text.data(), 1, text.size(), file));
    return text;
}

void cannotWrite(int error) {
    complain(fmt::format("qzcam: cannot write the output: {}", std::strerror(error)));
}

}  // namespace qzcam
