// SPDX-License-Identifier: Apache-2.0
// Number conversions of the 32-bit target, with the same results on a 64-bit host: a `long` has 32 bits,
// int32 arithmetic wraps, and a conversion from floating point to integer truncates and saturates.
#pragma once

#include <cstdint>

namespace qz {

// Converts like strtol with base 10. Outside int32 the value saturates and errno becomes ERANGE; otherwise
// errno becomes 0. *end is `text` if there is no number.
int32_t parseInt32(const char* text, const char** end);

// Converts like atoi: 0 without a number. Saturates.
int32_t parseInt32(const char* text);

// Converts like strtof. errno becomes ERANGE for a number that is too large or too small for float, otherwise
// 0.
float parseFloat(const char* text, const char** end);

// Converts like strtod. errno is undefined.
double parseDouble(const char* text, const char** end);

// Converts like strtoul with base 0 (decimal, 0x, 0 octal): a minus sign wraps, an overflow gives all ones.
uint32_t parseUint32(const char* text);

// Skips one separating character, which is not checked. At the end of the text it skips nothing.
inline const char* skipSeparator(const char* at) { return *at == '\0' ? at : at + 1; }

// Two's complement arithmetic. INT32_MIN / -1 is INT32_MIN. The divisor must not be 0.
int32_t wrapMultiply(int32_t a, int32_t b);
int32_t wrapAdd(int32_t a, int32_t b);
int32_t wrapDivide(int32_t a, int32_t b);

// Truncates toward zero. Saturates outside int32. NaN gives 0.
int32_t truncateToInt32(double value);

}  // namespace qz
