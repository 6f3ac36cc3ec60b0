// SPDX-License-Identifier: Apache-2.0
#include "text/BoundedMemory.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

extern "C" {

int memset_s(void* dest, size_t destSize, int c, size_t count) {
    if (dest == nullptr) return EINVAL;
    if (count > destSize) return ERANGE;
    memset(dest, c, count);
    return 0;
}

int memcpy_s(void* dest, size_t destSize, const void* src, size_t count) {
    if (dest == nullptr || src == nullptr) return EINVAL;
    if (count > destSize) return ERANGE;
    memcpy(dest, src, count);
    return 0;
}

int snprintf_s(char* dest, size_t destSize, size_t count, const char* format, ...) {
    if (dest == nullptr || destSize == 0 || format == nullptr) return -1;
    va_list arguments;
    va_start(arguments, format);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_start() is called above
    const int length = vsnprintf(dest, destSize, format, arguments);
    va_end(arguments);

    const bool fits =
        length >= 0 && static_cast<size_t>(length) < destSize && static_cast<size_t>(length) <= count;
    if (fits) return length;
    dest[length >= 0 && count < destSize ? count : 0] = '\0';
    return -1;
}
}
