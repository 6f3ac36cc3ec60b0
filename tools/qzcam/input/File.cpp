// SPDX-License-Identifier: Apache-2.0
#include "input/File.h"

#include "input/Progress.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace qzcam {

namespace {

constexpr size_t kReadStep = size_t{256} << 10U;

std::string cannotRead(int error) { return fmt::format("cannot read it: {}", std::strerror(error)); }

// Waits for more of the file. At a terminal there is no time limit.
int waitFor(int file, const InputLimits& limits) {
    pollfd ready{file, POLLIN, 0};
    return poll(&ready, 1, isatty(file) == 1 ? -1 : limits.seconds * 1000);
}

struct FileSize {
    size_t expected = 0;
    size_t most;
};

FileSize sizeOf(int file, const InputLimits& limits) {
    struct stat status {};
    FileSize size{0, limits.bytes};
    if (fstat(file, &status) != 0) return size;
    if (S_ISCHR(status.st_mode) && isatty(file) != 1) size.most = std::min(limits.bytes, limits.deviceBytes);
    if (S_ISREG(status.st_mode)) size.expected = static_cast<size_t>(status.st_size);
    return size;
}

std::string readFrom(Memory& bytes, int file, const std::string& name, const InputLimits& limits) {
    const FileSize size = sizeOf(file, limits);
    bytes = Memory(std::min(size.expected, size.most) + kReadStep);
    Progress progress("reading " + name);
    for (;;) {
        if (waitFor(file, limits) == 0) {
            return fmt::format("no input for {} seconds: expected more of it, or its end", limits.seconds);
        }
        const ssize_t got = read(file, bytes.room(kReadStep), kReadStep);
        if (got < 0 && errno != EAGAIN && errno != EINTR) return cannotRead(errno);
        if (got == 0) return {};
        if (got > 0) bytes.filled(static_cast<size_t>(got));
        progress.reached(bytes.size(), size.expected);
        if (bytes.size() > size.most) {
            return fmt::format("too large: expected at most {} MiB", size.most >> 20U);
        }
    }
}

}  // namespace

// Opening a pipe has a time limit too.
std::string readBytes(Memory& bytes, const std::string& path, const InputLimits& limits) {
    if (path == "-") return readFrom(bytes, STDIN_FILENO, "standard input", limits);
    const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return cannotRead(errno);
    std::string wrong = readFrom(bytes, file, path, limits);
    close(file);
    return wrong;
}

}  // namespace qzcam
