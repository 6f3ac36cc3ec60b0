// SPDX-License-Identifier: Apache-2.0
// Work that is done in processes of its own. The vendor tags that a camera's metadata refer to are global to
// a process, so that devices can be looked at side by side in several processes only; and an input that
// breaks its process breaks no other.
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

// Does the work of each index below `count`, as many at a time as there are cores. Results come in any order,
// on this thread. The caller has no other thread, or none that holds a lock which the work takes.
void workInProcesses(size_t count, const std::function<std::string(size_t)>& work,
                     const std::function<void(size_t, WorkResult)>& done);

}  // namespace qzcam
