// SPDX-License-Identifier: Apache-2.0
#include "cli/Pager.h"

#include "base/WriteAll.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
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
    winsize size{};  // without rows if the terminal does not know them
    static_cast<void>(ioctl(STDOUT_FILENO, TIOCGWINSZ, &size));
    return size.ws_row > 0 && std::count(text.begin(), text.end(), '\n') >= size.ws_row;
}

}  // namespace

bool hasPager() { return isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1 && pager() != nullptr; }

std::string outputOf(const std::function<void()>& action) {
    std::FILE* file = std::tmpfile();
    const int before = dup(STDOUT_FILENO);
    if (file == nullptr || before < 0) {
        action();  // the text is at least printed
        return {};
    }
    dup2(fileno(file), STDOUT_FILENO);
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
    // NOLINTNEXTLINE(cert-env33-c): the user's own command
    std::FILE* out = hasPager() && isLong(text) ? popen(pager(), "w") : nullptr;
    if (out == nullptr) {
        static_cast<void>(writeAll(stdout, text));
        return;
    }
    void (*const before)(int) = std::signal(SIGPIPE, SIG_IGN);
    std::fwrite(text.data(), 1, text.size(), out);
    pclose(out);
    std::signal(SIGPIPE, before);
}

}  // namespace qzcam
