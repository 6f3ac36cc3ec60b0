// SPDX-License-Identifier: Apache-2.0
// Runs work in separate processes. The vendor tags that a camera's metadata refer to are global to a process,
// so several devices need several processes. An input that crashes its process does not stop the others.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace qzcam {

struct WorkResult {
    std::string text;      // returned by the work
    std::string messages;  // standard error of the process, its beginning
    std::string failure;   // empty, or how the process ended instead
};

// Runs `work` for each index below `count`, with as many processes at a time as there are cores. Results are
// delivered in any order, on this thread. The caller must have no other thread that holds a lock which `work`
// takes.
void workInProcesses(size_t count, const std::function<std::string(size_t)>& work,
                     const std::function<void(size_t, WorkResult)>& done);

}  // namespace qzcam
