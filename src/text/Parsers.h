// Parsers of application texts that are more than one word: coordinates, tuples, exposure times.
#pragma once

#include <system/camera_metadata.h>

#include <cstddef>
#include <cstdint>

namespace qz {

// "12,34" into out[0], out[1]. 0, or -1 without a comma after the first number (out untouched).
int parseCoodinate(const char* text, int32_t* out);

// "(1,2,3)(4,5,6)": `count` numbers behind every "(", one separating character between them passed over
// unchecked. Each group writes the same slots, so that the last one stays. 0, or -22 at the first number that
// is missing or out of range, which leaves its slot as it was. A text without "(" parses and writes nothing.
int parseIntTuples(const char* text, int32_t* out, size_t count);
int parseFloatTuples(const char* text, float* out, size_t count);

// An exposure time in seconds, "1/4000", "0.5" or "2", in microseconds. A denominator of 0 gives 0.
int32_t exposureTimeToMicroSecond(const char* text);

// The same texts as a fraction: "1/4000" as written, "0.5" as 5/10, "1.25" as 125/100, "2" as 2/1. A decimal
// text with no, or more than two, decimals leaves `out` untouched.
void parseExposureRational(const char* text, camera_metadata_rational* out);

// Microseconds as a text in seconds: "3" from a second up, "1/4" below, "0" for 0. An error line and the
// empty text when buf is too small.
void microSecondToSecond(int32_t us, char* buf, size_t size);

}  // namespace qz
