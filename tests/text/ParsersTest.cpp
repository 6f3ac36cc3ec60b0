// SPDX-License-Identifier: Apache-2.0
#include "text/Parsers.h"

#include "support/Rows.h"
#include "text/BoundedMemory.h"
#include "text/Numbers.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace qz::test {
namespace {

using testing::ElementsAre;

TEST(BoundedMemory, StaysWithinTheDestination) {
    char dest[] = "......";
    EXPECT_EQ(memset_s(dest, 4, 'x', 4), 0);
    EXPECT_EQ(memset_s(dest, 4, 'y', 2), 0);
    EXPECT_STREQ(dest, "yyxx..");
    EXPECT_EQ(memcpy_s(dest, 4, "abcd", 4), 0);
    EXPECT_EQ(memcpy_s(dest, 4, "zz", 1), 0);
    EXPECT_NE(memset_s(dest, 4, 'y', 5), 0);
    EXPECT_NE(memcpy_s(dest, 4, "vwxyz", 5), 0);
    EXPECT_NE(memcpy_s(dest, 4, nullptr, 1), 0);
    EXPECT_NE(memset_s(nullptr, 4, 'y', 1), 0);
    EXPECT_NE(memcpy_s(nullptr, 4, "a", 1), 0);
    EXPECT_STREQ(dest, "zbcd..");
    EXPECT_EQ(snprintf_s(nullptr, 8, 8, "a"), -1);
    EXPECT_EQ(snprintf_s(dest, 0, 0, "a"), -1);
    EXPECT_STREQ(dest, "zbcd..");
    EXPECT_EQ(snprintf_s(dest, 4, 3, "%s", ""), 0);
    EXPECT_STREQ(dest, "");
    for (const Row& row : rowsOf(R"(
            1234567|8|7|1234567 12345678|8|-1|$ abc|3|3|abc abcd|3|-1|abc 123456789|3|-1|123
            1234567|9|7|1234567 12345678|7|-1|1234567 a|0|-1|$)")) {
        char eight[] = "????????$";
        EXPECT_EQ(snprintf_s(eight, 8, std::stoul(row[1]), "%s", row[0].c_str()), std::stoi(row[2]))
            << row[0];
        EXPECT_EQ(eight[0] == '\0' ? "$" : eight, row[3]) << row[0];
        EXPECT_EQ(eight[8], '$') << row[0];
    }
}

TEST(Numbers, Have32Bits) {
    for (const Row& row : rowsOf(R"(
            7x|7|7 7:5|7|7 0x3|0|3 017|17|15 debug|0|0 -1|-1|4294967295 -2147483649|-2147483648|2147483647
            2147483648|2147483647|2147483648 4294967296|2147483647|4294967295 -4294967295|-2147483648|1
            -4294967296|-2147483648|4294967295 99999999999999999999|2147483647|4294967295)")) {
        EXPECT_EQ(parseInt32(row[0].c_str()), std::stoll(row[1])) << row[0];
        EXPECT_EQ(parseUint32(row[0].c_str()), std::stoll(row[2])) << row[0];
    }
    EXPECT_EQ(parseInt32(" \t\n\v\f\r-42\t"), -42);
    EXPECT_EQ(parseInt32("\b42"), 0);
    EXPECT_EQ(parseInt32("- 42"), 0);
    EXPECT_EQ(wrapMultiply(3000, 1000000), -1294967296);
    EXPECT_EQ(wrapAdd(INT32_MAX, 1), INT32_MIN);
    EXPECT_EQ(wrapDivide(INT32_MIN, -1), INT32_MIN);
    EXPECT_EQ(wrapDivide(-7, 2), -3);
    for (const Row& row : rowsOf(R"(
            2.9|2 -2.9|-2 2147483647.5|2147483647 -2147483648.5|-2147483648 nan|0 inf|2147483647)")) {
        EXPECT_EQ(truncateToInt32(std::stod(row[0])), std::stoi(row[1])) << row[0];
    }
}

template <typename T>
void expectReads(const std::string& text, T (*read)(const char*, const char**),
                 T (*standard)(const char*, char**)) {
    const std::vector<char> own(text.c_str(), text.c_str() + text.size() + 1);  // in a block of its own
    const char* end = nullptr;
    const T number = read(own.data(), &end);
    const int error = errno;
    char* standardEnd = nullptr;
    errno = 0;
    const T expected = standard(own.data(), &standardEnd);
    const int standardError = errno;
    EXPECT_EQ(memcmp(&number, &expected, sizeof(T)), 0) << text << ": " << number;  // -0 is not 0
    EXPECT_EQ(end, standardEnd) << text;
    if (sizeof(T) == sizeof(float)) {
        EXPECT_EQ(error, standardError) << text;
    }
}

TEST(Numbers, AreRoundedToNearest) {
    std::vector<std::string> texts{"", " 1.5", "\t2", "1.5 "};
    for (const Row& row : rowsOf(R"(
            0 -0 0.0 12. .5 . 1:5 1.5:2 -1.5 +2 0.98,1.02 1.5abc 1.5e 1e3 1E3 1.e5 2.5e-3 0x10 0X1p3 0x x 1..5 00012.50
            16777215 16777216 16777217 33554433 123456789.5 1.6777215 1.6777216 0.16777217 167772.17 167772160 16777216.5 1677721.60 1.67772161
            0.0000001 0.00000001 0.000000000000000000000001 99999999999999999999 4294967296.5
            3.4028236e38 1e39 1e-50 nan inf infinity -inf)")) {
        texts.push_back(row[0]);
    }
    for (int i = 0; i < 20000; i += 7)
        texts.push_back(std::to_string(i / 1000) + "." + std::to_string(i % 1000));
    for (const std::string& text : texts) {
        errno = ERANGE;
        expectReads(text, parseFloat, std::strtof);
        expectReads(text, parseDouble, std::strtod);
    }
}

TEST(Parsers, Coordinate) {
    LogCapture log;
    for (const Row& row : rowsOf(R"(
            12,34|0|12|34 -5,+6px|0|-5|6 1,2,3|0|1|2 ,5|0|0|5 5,|0|5|0 12;34|-1|7|8 12|-1|7|8
            3000000000,-3000000000|0|2147483647|-2147483648)")) {
        int32_t out[] = {7, 8};
        EXPECT_EQ(parseCoodinate(row[0].c_str(), out), std::stoi(row[1])) << row[0];
        EXPECT_THAT(out, ElementsAre(std::stoi(row[2]), std::stoi(row[3]))) << row[0];
        const std::string line = "parseCoodinate(), Cannot find delimeter ',' in coordinate: " + row[0];
        EXPECT_EQ(log.take(), lineOf(ANDROID_LOG_ERROR, "CameraQzParam", row[1] == "0" ? "" : line));
    }
}

// Parses two numbers. errno has the value of an earlier conversion.
template <typename T>
void expectTuples(int (*parse)(const char*, T*, size_t), const char* table) {
    for (const Row& row : rowsOf(table)) {
        T out[] = {7, 8, 9};
        errno = ERANGE;
        EXPECT_EQ(parse(row[0].c_str(), out, 2), std::stoi(row[1])) << row[0];
        EXPECT_THAT(out, ElementsAre(std::stod(row[2]), std::stod(row[3]), 9)) << row[0];
    }
}

TEST(Parsers, Tuples) {
    expectTuples(parseIntTuples, R"(
        (1,2),(3,4)|0|3|4 see(-1;+2|0|-1|2 (1(2,3)|0|2|3 (0x10,5)|0|0|10 1,2)|0|7|8
        (2147483647,-2147483648)|0|2147483647|-2147483648 (|-22|7|8 ((1,2)|-22|7|8 (1|-22|1|8 (1,x)|-22|1|8
        (1,2)(3,2147483648)|-22|3|2 (-2147483649,4)(5,6)|-22|7|8
        (-21474836480,4)|-22|7|8 (21474836470,4)|-22|7|8)");
    expectTuples(parseFloatTuples, R"(
        (1.5,2.5)|0|1.5|2.5 (1,2)(-3e2;.25)|0|-300|0.25 0.98,1.02|0|7|8 (1.5)|-22|1.5|8 (1.5|-22|1.5|8
        (on,1)|-22|7|8 (1,1e39)|-22|1|8 (1,1e-50)|-22|1|8)");
}

// Columns: microseconds, and the fraction. -7/-7 means unchanged.
TEST(Parsers, ExposureTimes) {
    for (const Row& row : rowsOf(R"(
            1/8000|125|1/8000 1/3|333333|1/3 1/0|0|1/0 /4|0|0/4 1.5/2|500000|1/2 1/2/4|500000|1/2
            3000/1|-1294967296|3000/1 33554432/-1|-2147483648|33554432/-1 0.5|500000|5/10 1.25|1250000|125/100
            0.05|50000|5/100 .5|500000|5/10 -1.5|-1500000|-5/10 1.5s|1500000|15/10 1.5~|1500000|15/10 0.125|125000|-7/-7
            1.|1000000|-7/-7 0.+5|0|-7/-7 1.9999999|1999999|-7/-7 3000.0|2147483647|30000/10
            -3000.0|-2147483648|-30000/10 300000000.5|2147483647|-1294967291/10 nan.|0|-7/-7 2|2000000|2/1
            214748364.9|2147483647|-2147483647/10 3000|-1294967296|3000/1 2147483648|-1000000|2147483647/1
            auto|0|0/1)")) {
        EXPECT_EQ(exposureTimeToMicroSecond(row[0].c_str()), std::stoi(row[1])) << row[0];
        camera_metadata_rational out{-7, -7};
        parseExposureRational(row[0].c_str(), &out);
        EXPECT_EQ(std::to_string(out.numerator) + "/" + std::to_string(out.denominator), row[2]) << row[0];
    }
}

TEST(Parsers, MicrosecondsAsSeconds) {
    LogCapture log;
    char text[32];
    for (const Row& row : rowsOf(R"(
            250000|1/4 3000000|3 1500000|1 1000000|1 999999|1/1 1|1/1000000 0|0 -1|1/-1000000 -3|1/-333333
            -2147483648|1/0 2147483647|2147)")) {
        microSecondToSecond(std::stoi(row[0]), text, row[1].size() + 1);
        EXPECT_EQ(text, row[1]) << row[0];
        EXPECT_EQ(log.take(), lineOf(0, "", ""));
        microSecondToSecond(std::stoi(row[0]), text, 0);
        EXPECT_EQ(text, row[1]) << "nothing of it is the function's";
        log.take();
        microSecondToSecond(std::stoi(row[0]), text, row[1].size());
        EXPECT_STREQ(text, "");
        EXPECT_EQ(log.take(),
                  lineOf(ANDROID_LOG_ERROR, "CameraQzParam", "microSecondToSecond(), snprintf_s failed!"));
    }
}

}  // namespace
}  // namespace qz::test
