// SPDX-License-Identifier: Apache-2.0
#include "Allocations.h"

// The C library's own functions, which those below call. NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

size_t gAllocations = 0;

}  // namespace

size_t qz::bench::allocations() { return gAllocations; }

// Every library of the process calls these functions instead of the C library's; operator new does too.
extern "C" {
void* malloc(size_t size) {
    ++gAllocations;
    return __libc_malloc(size);
}
void* calloc(size_t count, size_t size) {
    ++gAllocations;
    return __libc_calloc(count, size);
}
void* realloc(void* memory, size_t size) {
    ++gAllocations;
    return __libc_realloc(memory, size);
}
}
