// SPDX-License-Identifier: Apache-2.0
// Parsers of application texts with several numbers: coordinates, tuples, exposure times.
#pragma once

#include <system/camera_metadata.h>

#include <cstddef>
#include <cstdint>

namespace qz {

// Parses "12,34" into out[0] and out[1]. Returns 0, or -1 without a comma after the first number; `out` is
// then unchanged.
int parseCoodinate(const char* text, int32_t* out);

// Parses "(1,2,3)(4,5,6)": `count` numbers after every "(". One separating character between two numbers is
// skipped and not checked. Each group writes the same slots, so that the last group remains. Returns 0.
// Returns -22 at the first number that is missing or out of range, and leaves its slot unchanged. A text
// without "(" gives 0 and writes nothing.
int parseIntTuples(const char* text, int32_t* out, size_t count);
int parseFloatTuples(const char* text, float* out, size_t count);

// Converts an exposure time in seconds, "1/4000", "0.5" or "2", to microseconds. A denominator of 0 gives 0.
int32_t exposureTimeToMicroSecond(const char* text);

// Converts the same texts to a fraction: "1/4000" as written, "0.5" to 5/10, "1.25" to 125/100, "2" to 2/1. A
// text with a decimal point and no decimals, or more than two, leaves `out` unchanged.
void parseExposureRational(const char* text, camera_metadata_rational* out);

// Writes microseconds as a text in seconds: "3" from one second up, "1/4" below, "0" for 0. If `buf` is too
// small, it logs an error and writes the empty text.
void microSecondToSecond(int32_t us, char* buf, size_t size);

}  // namespace qz
