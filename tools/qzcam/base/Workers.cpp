// SPDX-License-Identifier: Apache-2.0
#include "base/Workers.h"

#include <fmt/format.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace qzcam {

namespace {

using Work = std::function<std::string(size_t)>;

constexpr size_t kMostMessages = size_t{16} << 10U;

void writeWhole(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t size = write(file, text.data(), text.size());
        if (size < 0 && errno != EINTR) return;
        if (size > 0) text.remove_prefix(static_cast<size_t>(size));
    }
}

// A pipe whose reading end is closed at the end of the scope.
class Pipe {
  public:
    Pipe() {
        std::array<int, 2> ends{-1, -1};
        if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
        mRead = ends[0];
        mWrite = ends[1];
    }
    Pipe(Pipe&& other) noexcept
        : mRead(std::exchange(other.mRead, -1)), mWrite(std::exchange(other.mWrite, -1)) {}
    Pipe& operator=(Pipe&& other) noexcept {
        std::swap(mRead, other.mRead);
        std::swap(mWrite, other.mWrite);
        return *this;
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        closeEnd(mRead);
        closeEnd(mWrite);
    }

    bool isOpen() const { return mRead >= 0; }
    int readingEnd() const { return mRead; }
    int writingEnd() const { return mWrite; }
    void closeWritingEnd() { closeEnd(mWrite); }

    // Reads the available bytes. Closes the pipe at its end.
    void readInto(std::string& text) {
        std::array<char, 1U << 16U> chunk{};
        const ssize_t size = read(mRead, chunk.data(), chunk.size());
        if (size > 0) text.append(chunk.data(), static_cast<size_t>(size));
        if (size == 0 || (size < 0 && errno != EINTR)) closeEnd(mRead);
    }

  private:
    static void closeEnd(int& end) {
        if (end >= 0) close(std::exchange(end, -1));
    }

    int mRead = -1;
    int mWrite = -1;
};

struct Worker {
    size_t index = 0;
    pid_t process = -1;
    Pipe text;
    Pipe messages;
    WorkResult result;
};

[[noreturn]] void workHere(const Worker& worker, const Work& work) {
    dup2(worker.messages.writingEnd(), STDERR_FILENO);
    writeWhole(worker.text.writingEnd(), work(worker.index));
    _exit(0);
}

std::string failureOf(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFSIGNALED(status))
        return fmt::format("the process that read it was ended by signal {}", WTERMSIG(status));
    return WEXITSTATUS(status) == 0
               ? ""
               : fmt::format("the process that read it ended with {}", WEXITSTATUS(status));
}

// Returns the failure of the process, or an empty text.
std::string start(Worker& worker, const Work& work) {
    if (!worker.text.isOpen() || !worker.messages.isOpen()) return std::strerror(errno);
    worker.process = fork();
    if (worker.process == 0) workHere(worker, work);
    if (worker.process < 0) return std::strerror(errno);
    worker.text.closeWritingEnd();
    worker.messages.closeWritingEnd();
    return {};
}

bool isDone(const Worker& worker) { return !worker.text.isOpen() && !worker.messages.isOpen(); }

// Waits for output of the workers, and reads it.
void readSome(std::vector<Worker>& workers) {
    std::vector<pollfd> ends;
    for (const Worker& worker : workers) {
        // A closed end is negative, and poll() takes no notice of it.
        ends.push_back({worker.text.readingEnd(), POLLIN, 0});
        ends.push_back({worker.messages.readingEnd(), POLLIN, 0});
    }
    if (poll(ends.data(), ends.size(), -1) <= 0) return;
    for (size_t i = 0; i < workers.size(); ++i) {
        Worker& worker = workers[i];
        if (ends[2 * i].revents != 0) worker.text.readInto(worker.result.text);
        if (ends[2 * i + 1].revents != 0) worker.messages.readInto(worker.result.messages);
        worker.result.messages.resize(std::min(worker.result.messages.size(), kMostMessages));
    }
}

}  // namespace

void workInProcesses(size_t count, const Work& work, const std::function<void(size_t, WorkResult)>& done) {
    const size_t cores = std::max(std::thread::hardware_concurrency(), 1U);
    std::vector<Worker> workers;
    for (size_t next = 0; next < count || !workers.empty();) {
        if (next < count && workers.size() < cores) {
            Worker worker;
            worker.index = next++;
            const std::string wrong = start(worker, work);
            if (wrong.empty()) {
                workers.push_back(std::move(worker));
            } else {
                done(worker.index, {{}, {}, "no process could be started for it: " + wrong});
            }
            continue;
        }
        readSome(workers);
        const auto finished = std::partition(workers.begin(), workers.end(),
                                             [](const Worker& worker) { return !isDone(worker); });
        for (auto worker = finished; worker != workers.end(); ++worker) {
            worker->result.failure = failureOf(worker->process);
            done(worker->index, std::move(worker->result));
        }
        workers.erase(finished, workers.end());
    }
}

}  // namespace qzcam
