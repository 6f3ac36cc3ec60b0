// Memory and text functions that know where their destination ends. A device's platform may bring its own
// under the same names: a build there leaves BoundedMemory.cpp out.
#pragma once

#include <cstddef>

extern "C" {

// 0, or non-zero with nothing written when `count` exceeds destSize or a pointer is null.
int memset_s(void* dest, size_t destSize, int c, size_t count);
int memcpy_s(void* dest, size_t destSize, const void* src, size_t count);

// The number of characters written, or -1 when the text does not fit: with `count` below destSize its first
// `count` characters stay, otherwise dest becomes the empty text.
int snprintf_s(char* dest, size_t destSize, size_t count, const char* format, ...)
    __attribute__((format(printf, 4, 5)));
}
