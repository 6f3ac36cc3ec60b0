#include "core/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

namespace qz {
namespace {

constexpr int32_t kMin = INT32_MIN;
constexpr int32_t kMax = INT32_MAX;

TEST(Numbers, AtoiSaturates) {
    const struct {
        const char* text;
        int32_t number;
    } rows[] = {{"42", 42},
                {" -7x", -7},
                {"010", 10},
                {"0x10", 0},
                {"", 0},
                {"x1", 0},
                {"2147483647", kMax},
                {"2147483648", kMax},
                {"99999999999999999999", kMax},
                {"-2147483648", kMin},
                {"-2147483649", kMin}};
    for (const auto& row : rows) EXPECT_EQ(parseInt32(row.text), row.number) << row.text;
}

TEST(Numbers, UnsignedHas32Bits) {
    const struct {
        const char* text;
        uint32_t number;
    } rows[] = {{"3", 3},
                {"0x3", 3},
                {"017", 15},
                {"", 0},
                {"debug", 0},
                {"-1", UINT32_MAX},
                {"4294967294", UINT32_MAX - 1},
                {"4294967295", UINT32_MAX},
                {"4294967296", UINT32_MAX},
                {"-4294967295", 1},
                {"-4294967296", UINT32_MAX},
                {"99999999999999999999", UINT32_MAX}};
    for (const auto& row : rows) EXPECT_EQ(parseUint32(row.text), row.number) << row.text;
}

TEST(Numbers, ArithmeticWraps) {
    EXPECT_EQ(wrapMultiply(3000, 1000000), -1294967296);
    EXPECT_EQ(wrapMultiply(kMin, -1), kMin);
    EXPECT_EQ(wrapAdd(kMax, 1), kMin);
    EXPECT_EQ(wrapAdd(-3, 5), 2);
    EXPECT_EQ(wrapDivide(kMin, -1), kMin);
    EXPECT_EQ(wrapDivide(-7, 2), -3);
}

TEST(Numbers, FloatingPointTruncatesAndSaturates) {
    const struct {
        double value;
        int32_t number;
    } rows[] = {{2.9, 2},      {-2.9, -2},       {2147483647.5, kMax},
                {1e300, kMax}, {-1e300, kMin},   {-2147483648.5, kMin},
                {NAN, 0},      {INFINITY, kMax}, {-INFINITY, kMin}};
    for (const auto& row : rows) EXPECT_EQ(truncateToInt32(row.value), row.number) << row.value;
}

}  // namespace
}  // namespace qz
