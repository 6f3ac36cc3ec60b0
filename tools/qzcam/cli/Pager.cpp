// SPDX-License-Identifier: Apache-2.0
#include "cli/Pager.h"

#include "base/WriteAll.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace qzcam {

namespace {

const char* pager() {
    const char* command = std::getenv("PAGER");
    return command != nullptr && *command != '\0' ? command : nullptr;
}

bool isLong(const std::string& text) {
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_row == 0) return false;
    return std::count(text.begin(), text.end(), '\n') >= size.ws_row;
}

std::string contentOf(std::FILE* file) {
    std::string text;
    std::array<char, 4096> block{};
    std::rewind(file);
    for (size_t size = 0; (size = std::fread(block.data(), 1, block.size(), file)) > 0;)
        text.append(block.data(), size);
    return text;
}

}  // namespace

bool hasPager() { return isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1 && pager() != nullptr; }

std::string outputOf(const std::function<void()>& action) {
    std::fflush(stdout);
    std::FILE* file = std::tmpfile();
    const int before = dup(STDOUT_FILENO);
    if (file == nullptr || before < 0 || dup2(fileno(file), STDOUT_FILENO) < 0) {
        action();  // the text is at least printed
        return {};
    }
    action();
    std::fflush(stdout);
    dup2(before, STDOUT_FILENO);
    close(before);
    std::string text = contentOf(file);
    std::fclose(file);
    return text;
}

// Leaving the pager early is not an error.
void show(const std::string& text) {
    std::fflush(stdout);
    if (hasPager() && isLong(text)) {
        void (*const before)(int) = std::signal(SIGPIPE, SIG_IGN);
        std::FILE* out = popen(pager(), "w");  // NOLINT(cert-env33-c): the user's own command
        if (out != nullptr) {
            std::fwrite(text.data(), 1, text.size(), out);
            pclose(out);
        }
        std::signal(SIGPIPE, before);
        if (out != nullptr) return;
    }
    static_cast<void>(writeAll(stdout, text));
}

}  // namespace qzcam
