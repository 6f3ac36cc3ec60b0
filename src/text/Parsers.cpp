// SPDX-License-Identifier: Apache-2.0
#include "text/Parsers.h"

#include "text/BoundedMemory.h"
#include "text/Log.h"
#include "text/Numbers.h"
#include "text/Text.h"

#include <utils/Errors.h>

#include <cerrno>
#include <cstring>

namespace qz {

namespace {

constexpr int32_t kMicrosecondsPerSecond = 1000000;

// `read` leaves errno at 0 unless the number is out of range.
template <typename T>
int parseTuples(const char* text, T* out, size_t count, T (*read)(const char*, const char**)) {
    for (const char* open = strchr(text, '('); open != nullptr; open = strchr(open + 1, '(')) {
        const char* at = open + 1;
        for (size_t i = 0; i < count; ++i) {
            const char* end = nullptr;
            const T number = read(at, &end);
            if (errno != 0 || end == at) return android::BAD_VALUE;
            out[i] = number;
            at = skipSeparator(end);
        }
    }
    return android::OK;
}

}  // namespace

int parseCoodinate(const char* text, int32_t* out) {
    constexpr char delimiter = ',';
    const char* end = nullptr;
    const int32_t x = parseInt32(text, &end);
    if (*end != delimiter) {
        LOG(line::NoDelimiter, __func__, delimiter, text);
        return -1;
    }
    out[0] = x;
    out[1] = parseInt32(end + 1);
    return 0;
}

int parseIntTuples(const char* text, int32_t* out, size_t count) {
    return parseTuples<int32_t>(text, out, count, parseInt32);
}

int parseFloatTuples(const char* text, float* out, size_t count) {
    return parseTuples<float>(text, out, count, parseFloat);
}

int32_t exposureTimeToMicroSecond(const char* text) {
    if (const char* slash = strchr(text, '/')) {
        const int32_t denominator = parseInt32(slash + 1);
        if (denominator == 0) return 0;
        return wrapDivide(wrapMultiply(parseInt32(text), kMicrosecondsPerSecond), denominator);
    }
    if (strchr(text, '.') != nullptr) {
        const char* end = nullptr;
        return truncateToInt32(parseDouble(text, &end) * kMicrosecondsPerSecond);
    }
    return wrapMultiply(parseInt32(text), kMicrosecondsPerSecond);
}

void parseExposureRational(const char* text, camera_metadata_rational* out) {
    if (const char* slash = strchr(text, '/')) {
        *out = {parseInt32(text), parseInt32(slash + 1)};
    } else if (const char* point = strchr(text, '.')) {
        const size_t decimals = strspn(point + 1, "0123456789");
        if (decimals != 1 && decimals != 2) return;
        const int32_t scale = decimals == 1 ? 10 : 100;
        *out = {wrapAdd(wrapMultiply(parseInt32(text), scale), parseInt32(point + 1)), scale};
    } else {
        *out = {parseInt32(text), 1};
    }
}

void microSecondToSecond(int32_t us, char* buf, size_t size) {
    // A negative time is invalid. Its text is a fraction with a negative denominator, which shows the
    // mistake.
    const bool fraction = us != 0 && us < kMicrosecondsPerSecond;
    Text text;
    if (fraction) {
        text << "1/" << kMicrosecondsPerSecond / us;
    } else {
        text << us / kMicrosecondsPerSecond;
    }
    if (memcpy_s(buf, size, text.c_str(), text.size() + 1) == 0) return;
    LOG(line::FormattingFailed, __func__);
    if (size > 0) buf[0] = '\0';
}

}  // namespace qz
