// Numbers as the 32-bit target has them, the same on a 64-bit host: a `long` has 32 bits, int32 arithmetic
// wraps, and floating point to integer truncates and saturates.
#pragma once

#include <cstdint>

namespace qz {

// strtol with base 10. Outside int32 the value saturates and errno becomes ERANGE; otherwise errno becomes 0.
// *end is `text` itself when there is no number.
int32_t parseInt32(const char* text, const char** end);

// atoi: 0 without a number, saturating.
int32_t parseInt32(const char* text);

// strtof. errno becomes ERANGE when float has no such number or none so small, otherwise 0.
float parseFloat(const char* text, const char** end);

// strtod; errno is not to be relied on.
double parseDouble(const char* text, const char** end);

// strtoul with base 0 (decimal, 0x, 0 octal): a minus wraps, overflow gives all ones.
uint32_t parseUint32(const char* text);

// The character after a separator that is passed over unchecked; at the end of the text it stays there.
inline const char* skipSeparator(const char* at) { return *at == '\0' ? at : at + 1; }

// Two's complement; INT32_MIN / -1 is INT32_MIN. The divisor is never 0.
int32_t wrapMultiply(int32_t a, int32_t b);
int32_t wrapAdd(int32_t a, int32_t b);
int32_t wrapDivide(int32_t a, int32_t b);

// Toward zero; beyond int32 the nearest end of it; NaN gives 0.
int32_t truncateToInt32(double value);

}  // namespace qz
