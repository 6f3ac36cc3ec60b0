#include "core/Parsers.h"

#include "support/Log.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <string>
#include <vector>

namespace qz {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int32_t kMin = INT32_MIN;
constexpr int32_t kMax = INT32_MAX;

TEST(Parsers, Coordinate) {
    const struct {
        const char* text;
        int result;
        std::vector<int32_t> out;
    } rows[] = {
        {"12,34", 0, {12, 34}}, {" -5, 6px", 0, {-5, 6}},
        {"1,2,3", 0, {1, 2}},   {",5", 0, {0, 5}},
        {"5,", 0, {5, 0}},      {"12 ,3", -1, {7, 8}},
        {"12;34", -1, {7, 8}},  {"12", -1, {7, 8}},
        {"", -1, {7, 8}},       {"3000000000,-3000000000", 0, {kMax, kMin}},
    };
    test::LogCapture log;
    for (const auto& row : rows) {
        std::vector<int32_t> out{7, 8};
        EXPECT_EQ(parseCoodinate(row.text, out.data()), row.result) << row.text;
        EXPECT_EQ(out, row.out) << row.text;
        const test::LogLine failure{
            ANDROID_LOG_ERROR, "CameraQzParam",
            std::string("parseCoodinate(), Cannot find delimeter ',' in coordinate: ") + row.text};
        EXPECT_EQ(log.take(), row.result == 0 ? std::vector<test::LogLine>{} : std::vector{failure});
    }
}

template <typename T>
struct Tuple {
    const char* text;
    int result;
    std::vector<T> out;  // from 7, 8, 9
};

// errno is what an earlier conversion left.
template <typename T>
void expectTuples(int (*parse)(const char*, T*, size_t), const std::vector<Tuple<T>>& rows) {
    const test::LogCapture log;
    for (const auto& row : rows) {
        std::vector<T> out{7, 8, 9};
        errno = ERANGE;
        EXPECT_EQ(parse(row.text, out.data(), 2), row.result) << row.text;
        EXPECT_EQ(out, row.out) << row.text;
    }
}

TEST(Parsers, Tuples) {
    expectTuples<int32_t>(parseIntTuples, {{"(1,2)", 0, {1, 2, 9}},
                                           {"(1,2),(3,4)", 0, {3, 4, 9}},
                                           {"see ( -1; +2", 0, {-1, 2, 9}},
                                           {"(1(2,3)", 0, {2, 3, 9}},
                                           {"(0x10,5)", 0, {0, 10, 9}},
                                           {"(2147483647,-2147483648)", 0, {kMax, kMin, 9}},
                                           {"", 0, {7, 8, 9}},
                                           {"1,2)", 0, {7, 8, 9}},
                                           {"(", -22, {7, 8, 9}},
                                           {"((1,2)", -22, {7, 8, 9}},
                                           {"(1", -22, {1, 8, 9}},
                                           {"(1,x)", -22, {1, 8, 9}},
                                           {"(1,2)(3,2147483648)", -22, {3, 2, 9}},
                                           {"(1,2)(-2147483649,4)(5,6)", -22, {1, 2, 9}},
                                           {"(1,99999999999999999999)", -22, {1, 8, 9}}});
    expectTuples<float>(parseFloatTuples, {{"(1.5,2.5)", 0, {1.5F, 2.5F, 9}},
                                           {"(1,2)(-3e2;.25)", 0, {-300, 0.25F, 9}},
                                           {"0.98,1.02", 0, {7, 8, 9}},
                                           {"(1.5)", -22, {1.5F, 8, 9}},
                                           {"(1.5", -22, {1.5F, 8, 9}},
                                           {"(on,1)", -22, {7, 8, 9}},
                                           {"(1,1e39)", -22, {1, 8, 9}},
                                           {"(1,1e-50)", -22, {1, 8, 9}}});
}

TEST(Parsers, ExposureTimes) {
    const struct {
        const char* text;
        int32_t microseconds;
        std::vector<int32_t> rational;  // from -1, -1
    } rows[] = {
        {"1/8000", 125, {1, 8000}},
        {"1/3", 333333, {1, 3}},
        {"1/0", 0, {1, 0}},
        {"1/", 0, {1, 0}},
        {"/4", 0, {0, 4}},
        {"-1/2", -500000, {-1, 2}},
        {"1.5/2", 500000, {1, 2}},
        {"1/2/4", 500000, {1, 2}},
        {"3000/1", -1294967296, {3000, 1}},
        {"33554432/-1", kMin, {33554432, -1}},
        {"0.5", 500000, {5, 10}},
        {"1.25", 1250000, {125, 100}},
        {"0.05", 50000, {5, 100}},
        {".5", 500000, {5, 10}},
        {"-1.5", -1500000, {-5, 10}},
        {"1.5s", 1500000, {15, 10}},
        {"0.125", 125000, {-1, -1}},
        {"1.", 1000000, {-1, -1}},
        {"0.+5", 0, {-1, -1}},
        {"1.9999999", 1999999, {-1, -1}},
        {"3000.0", kMax, {30000, 10}},
        {"-3000.0", kMin, {-30000, 10}},
        {"300000000.5", kMax, {-1294967291, 10}},
        {"nan.", 0, {-1, -1}},
        {"2", 2000000, {2, 1}},
        {"-3", -3000000, {-3, 1}},
        {"3000", -1294967296, {3000, 1}},
        {"2147483648", -1000000, {kMax, 1}},
        {"auto", 0, {0, 1}},
        {"", 0, {0, 1}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(exposureTimeToMicroSecond(row.text), row.microseconds) << row.text;
        camera_metadata_rational rational{-1, -1};
        parseExposureRational(row.text, &rational);
        EXPECT_THAT(row.rational, ElementsAre(rational.numerator, rational.denominator)) << row.text;
    }
}

TEST(Parsers, MicrosecondsAsSeconds) {
    const struct {
        int32_t us;
        const char* text;
    } rows[] = {{250000, "1/4"},   {3000000, "3"},   {1500000, "1"}, {1000000, "1"},
                {999999, "1/1"},   {1, "1/1000000"}, {0, "0"},       {-1, "1/-1000000"},
                {-3, "1/-333333"}, {kMin, "1/0"},    {kMax, "2147"}};
    test::LogCapture log;
    char text[32];
    for (const auto& row : rows) {
        microSecondToSecond(row.us, text, sizeof(text));
        EXPECT_STREQ(text, row.text) << row.us;
    }
    microSecondToSecond(250000, text, 4);
    EXPECT_STREQ(text, "1/4");
    EXPECT_THAT(log.take(), IsEmpty());
    const test::LogLine failure{ANDROID_LOG_ERROR, "CameraQzParam",
                                "microSecondToSecond(), snprintf_s failed!"};
    for (const int32_t us : {250000, 2000000000}) {
        microSecondToSecond(us, text, 3);
        EXPECT_STREQ(text, "");
        EXPECT_THAT(log.take(), ElementsAre(failure));
    }
}

}  // namespace
}  // namespace qz
