// SPDX-License-Identifier: Apache-2.0
// Memory and text functions that check the size of their destination. A device's platform may have its own
// functions of the same names: a build there leaves BoundedMemory.cpp out.
#pragma once

#include <cstddef>

extern "C" {

// Return 0. If `count` exceeds destSize or a pointer is null, they write nothing and return non-zero.
int memset_s(void* dest, size_t destSize, int c, size_t count);
int memcpy_s(void* dest, size_t destSize, const void* src, size_t count);

// Returns the number of characters written, or -1 if the text does not fit. In that case dest holds the first
// `count` characters if `count` is below destSize, otherwise the empty text.
int snprintf_s(char* dest, size_t destSize, size_t count, const char* format, ...)
    __attribute__((format(printf, 4, 5)));
}
