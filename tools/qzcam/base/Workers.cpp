// SPDX-License-Identifier: Apache-2.0
#include "base/Workers.h"

#include "base/WriteAll.h"

#include <fmt/format.h>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

namespace qzcam {

namespace {

using Work = std::function<std::string(size_t)>;

constexpr size_t kMostMessages = size_t{16} << 10U;

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

// A file in memory: a worker writes it, and never waits for a reader.
File memoryFile() {
    const int file = memfd_create("worker", MFD_CLOEXEC);
    return {file < 0 ? nullptr : fdopen(file, "w+"), &std::fclose};
}

struct Worker {
    size_t index = 0;
    pid_t process = -1;
    File text = memoryFile();
    File messages = memoryFile();
};

[[noreturn]] void workHere(const Worker& worker, const Work& work) {
    dup2(fileno(worker.messages.get()), STDERR_FILENO);
    const std::string text = work(worker.index);
    std::fwrite(text.data(), 1, text.size(), worker.text.get());
    _exit(std::fflush(worker.text.get()) == 0 ? 0 : 1);
}

// Returns how the process ended unless it ended as planned.
std::string failureOf(int status) {
    if (WIFSIGNALED(status))
        return fmt::format("the process that read it was ended by signal {}", WTERMSIG(status));
    return WEXITSTATUS(status) == 0
               ? ""
               : fmt::format("the process that read it ended with {}", WEXITSTATUS(status));
}

bool start(Worker& worker, const Work& work) {
    if (!worker.text || !worker.messages) return false;
    worker.process = fork();
    if (worker.process == 0) workHere(worker, work);
    return worker.process > 0;
}

}  // namespace

void workInProcesses(size_t count, const Work& work, const std::function<void(size_t, WorkResult)>& done) {
    const size_t cores = std::max(std::thread::hardware_concurrency(), 1U);
    std::vector<Worker> workers;
    for (size_t next = 0; next < count || !workers.empty();) {
        if (next < count && workers.size() < cores) {
            Worker worker;
            worker.index = next++;
            if (start(worker, work)) {
                workers.push_back(std::move(worker));
            } else {
                done(worker.index,
                     {{}, {}, fmt::format("no process could be started for it: {}", std::strerror(errno))});
            }
            continue;
        }
        int status = 0;
        const pid_t ended = wait(&status);
        // If the parent ignores SIGCHLD, all processes have ended, and their statuses are lost.
        const bool isLost = ended < 0 && errno == ECHILD;
        const auto worker = std::find_if(workers.begin(), workers.end(),
                                         [&](const Worker& each) { return isLost || each.process == ended; });
        if (worker == workers.end()) continue;
        done(worker->index, {contentOf(worker->text.get()), contentOf(worker->messages.get(), kMostMessages),
                             failureOf(status)});
        workers.erase(worker);
    }
}

}  // namespace qzcam
