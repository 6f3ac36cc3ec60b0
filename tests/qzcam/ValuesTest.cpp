// SPDX-License-Identifier: Apache-2.0
#include "base/Values.h"

#include "base/Text.h"
#include "device/Properties.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace qzcam {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

TEST(Values, ReadsListsOfEveryTypeAndShowsThem) {
    const struct {
        uint8_t type;
        const char* list;
        const char* shown;  // null: refused
    } kRows[] = {
        {TYPE_BYTE, "0,255,0x10", "0 255 16"},
        {TYPE_BYTE, "256", nullptr},
        {TYPE_BYTE, "-1", nullptr},
        {TYPE_BYTE, "1,,2", nullptr},
        {TYPE_BYTE, "1,", nullptr},
        {TYPE_BYTE, "", ""},
        {TYPE_BYTE, "1 2", nullptr},
        {TYPE_BYTE, "1, 2", "1 2"},
        {TYPE_BYTE, "7,\"a,b\",0", "7 97 44 98 0"},
        {TYPE_BYTE, "\"dcim\",0", "100 99 105 109 0  \"dcim\""},
        {TYPE_BYTE, "u\"a.jp\",0,0", "97 0 46 0 106 0 112 0 0 0  u\"a.jp\""},
        {TYPE_BYTE, "\"open", nullptr},
        {TYPE_INT32, "-2147483648,2147483647", "-2147483648 2147483647"},
        {TYPE_INT32, "0xC0000010", "-1073741808"},
        {TYPE_INT32, "2147483648", nullptr},
        {TYPE_INT32, "0x100000000", nullptr},
        {TYPE_INT32, "\"text\"", nullptr},
        {TYPE_INT64, "-9223372036854775808", "-9223372036854775808"},
        {TYPE_INT64, "9223372036854775808", nullptr},
        {TYPE_FLOAT, "0.1,1e3,-2", "0.1 1000 -2"},
        {TYPE_FLOAT, "0.1f", nullptr},
        {TYPE_DOUBLE, "0.1", "0.1"},
        {TYPE_RATIONAL, "1/3,-1/0", "1/3 -1/0"},
        {TYPE_RATIONAL, "1", nullptr},
    };
    for (const auto& row : kRows) {
        const auto values = parseValues(row.type, 0x80000000, row.list);
        ASSERT_EQ(values.has_value(), row.shown != nullptr) << row.list;
        EXPECT_EQ(values ? toText(*values, 0x80000000) : "", row.shown ? row.shown : "") << row.list;
    }
    const auto named = parseValues(TYPE_BYTE, ANDROID_CONTROL_AE_MODE, "OFF,1");
    ASSERT_TRUE(named.has_value());
    EXPECT_EQ(toText(*named, ANDROID_CONTROL_AE_MODE), "0 (OFF) 1 (ON)");
}

TEST(Values, PrintedValuesGiveTheSameEntry) {
    const struct {
        uint32_t tag;
        uint8_t type;
        const char* list;
    } kRows[] = {
        {ANDROID_CONTROL_AE_MODE, TYPE_BYTE, "1"},
        {ANDROID_CONTROL_AE_REGIONS, TYPE_INT32, "-1,2,3"},
        {ANDROID_LENS_APERTURE, TYPE_FLOAT, "1.8"},
        {ANDROID_SENSOR_EXPOSURE_TIME, TYPE_INT64, "20000000"},
        {ANDROID_JPEG_GPS_COORDINATES, TYPE_DOUBLE, "1.5,2.5,-3"},
        {ANDROID_CONTROL_AE_COMPENSATION_STEP, TYPE_RATIONAL, "1/3"},
        {ANDROID_CONTROL_AF_REGIONS, TYPE_INT32, ""},
    };
    for (const auto& row : kRows) {
        android::CameraMetadata metadata;
        const auto values = parseValues(row.type, row.tag, row.list);
        ASSERT_EQ(update(metadata, row.tag, *values), android::OK) << row.list;
        ASSERT_TRUE(metadata.exists(row.tag));
        const android::CameraMetadata& read = metadata;
        EXPECT_EQ(valuesOf(read.find(row.tag)), *values) << row.list;
        EXPECT_NE(update(metadata, 0x80000000, *values), android::OK);
    }
}

TEST(Properties, ReadsBothForms) {
    Problems problems("p");
    const auto properties = parseProperties(
        "# build.prop\n[camera.a]: [1]\n[two.lines]: [x\ny]\n\ncamera.b = 2=3 \n[camera.c]: []\n"
        "[broken]\nneither\n[open]: [x\n",
        problems);
    EXPECT_THAT(properties, ElementsAre(Pair("camera.a", "1"), Pair("two.lines", "x\ny"),
                                        Pair("camera.b", "2=3"), Pair("camera.c", "")));
    EXPECT_THAT(problems.first(),
                ElementsAre(HasSubstr("p:8: expected '[name]: [value]'"),
                            HasSubstr("p:9: expected 'name=value'"), HasSubstr("p:10: expected ']'")));
}

TEST(Properties, RefusesAMissingName) {
    for (const char* line : {"[]: [x]", "[]: []", "=x", " = x"}) {
        Problems problems("p");
        EXPECT_TRUE(parseProperties(line, problems).empty()) << line;
        EXPECT_EQ(problems.count(), 1) << line;
    }
}

}  // namespace
}  // namespace qzcam
