#include "core/BoundedMemory.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(BoundedMemory, WritesNothingBeyondTheDestination) {
    char dest[] = "......";
    EXPECT_EQ(memset_s(dest, 4, 'x', 4), 0);
    EXPECT_STREQ(dest, "xxxx..");
    EXPECT_EQ(memset_s(dest, 4, 'y', 2), 0);
    EXPECT_STREQ(dest, "yyxx..");
    EXPECT_EQ(memcpy_s(dest, 4, "abcd", 4), 0);
    EXPECT_STREQ(dest, "abcd..");
    EXPECT_EQ(memcpy_s(dest, 4, "zz", 1), 0);
    EXPECT_STREQ(dest, "zbcd..");
    EXPECT_NE(memset_s(dest, 4, 'y', 5), 0);
    EXPECT_NE(memcpy_s(dest, 4, "vwxyz", 5), 0);
    EXPECT_NE(memcpy_s(dest, 4, nullptr, 1), 0);
    EXPECT_NE(memset_s(nullptr, 4, 'y', 1), 0);
    EXPECT_NE(memcpy_s(nullptr, 4, "a", 1), 0);
    EXPECT_STREQ(dest + 4, "..");
}

TEST(BoundedMemory, FormatsWithinBounds) {
    const struct {
        size_t size;
        size_t count;
        const char* text;
        int result;
        const char* left;
    } rows[] = {
        {8, 8, "1234567", 7, "1234567"},
        {8, 8, "12345678", -1, ""},
        {8, 3, "abc", 3, "abc"},
        {8, 3, "abcd", -1, "abc"},
        {8, 3, "123456789", -1, "123"},
        {8, 7, "12345678", -1, "1234567"},
        {8, 20, "1234567", 7, "1234567"},
        {8, 20, "123456789", -1, ""},
        {8, 0, "a", -1, ""},
        {8, 8, "", 0, ""},
    };
    for (const auto& row : rows) {
        char dest[] = "??????????";
        EXPECT_EQ(snprintf_s(dest, row.size, row.count, "%s", row.text), row.result) << row.text;
        EXPECT_STREQ(dest, row.left);
        EXPECT_EQ(std::string(dest + row.size), "??") << "beyond the destination: " << row.text;
    }
    char dest[] = "?";
    EXPECT_EQ(snprintf_s(nullptr, 8, 8, "a"), -1);
    EXPECT_EQ(snprintf_s(dest, 0, 0, "a"), -1);
    EXPECT_STREQ(dest, "?");
}

}  // namespace
