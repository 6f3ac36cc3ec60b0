// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <host/StandardTags.h>
#include <system/camera_metadata.h>

namespace {

TEST(StandardTags, EachIsFoundByItsNumberAndByItsNames) {
    int found = 0;
    for (const auto& tag : qz::host::StandardTags()) {
        EXPECT_EQ(qz::host::findStandardTag(tag.tag), &tag);
        EXPECT_EQ(qz::host::findStandardTag(get_camera_metadata_section_name(tag.tag), tag.name), &tag);
        EXPECT_STREQ(get_camera_metadata_tag_name(tag.tag), tag.name);
        EXPECT_EQ(get_camera_metadata_tag_type(tag.tag), tag.type);
        ++found;
    }
    EXPECT_EQ(found, 322);
    EXPECT_EQ(qz::host::findStandardTag("android.control", "nothing"), nullptr);
    EXPECT_EQ(qz::host::findStandardTag("android", "control.mode"), nullptr);
}

// Constants and bounds end with Android 7.1, names with Android 14.
TEST(StandardTags, LevelsOfThePlatform) {
    uint32_t declared = 0;
    for (const auto& [start, end] : camera_metadata_section_bounds) declared += end - start;
    EXPECT_EQ(declared, 219U);
    EXPECT_EQ(ANDROID_SECTION_COUNT, 26);
    const struct {
        uint32_t tag;
        const char* section;  // null: unknown
        const char* name;
        int type;
    } kRows[] = {
        {ANDROID_CONTROL_END - 1U, "android.control", "postRawSensitivityBoost", TYPE_INT32},
        {ANDROID_CONTROL_END, "android.control", "enableZsl", TYPE_BYTE},
        {0x1003b, "android.control", "lowLightBoostState", TYPE_BYTE},
        {0x1003c, "android.control", nullptr, -1},
        {0x1a0000, "android.logicalMultiCamera", "physicalIds", TYPE_BYTE},
        {0x210005, "android.jpegr", "availableJpegRStallDurationsMaximumResolution", TYPE_INT64},
        {0x210006, "android.jpegr", nullptr, -1},
        {0x220000, nullptr, nullptr, -1},
        {0x7fffffff, nullptr, nullptr, -1},
    };
    for (const auto& row : kRows) {
        EXPECT_STREQ(get_camera_metadata_section_name(row.tag), row.section) << std::hex << row.tag;
        EXPECT_STREQ(get_camera_metadata_tag_name(row.tag), row.name) << std::hex << row.tag;
        EXPECT_EQ(get_camera_metadata_tag_type(row.tag), row.type) << std::hex << row.tag;
    }
}

TEST(StandardTags, ValuesAndNamesOfATag) {
    EXPECT_STREQ(qz::host::nameOfValue(ANDROID_SENSOR_TEST_PATTERN_MODE, 256), "CUSTOM1");
    EXPECT_STREQ(qz::host::nameOfValue(ANDROID_DEPTH_DEPTH_IS_EXCLUSIVE, 1), "TRUE");
    EXPECT_EQ(qz::host::nameOfValue(ANDROID_COLOR_CORRECTION_MODE, -1), nullptr);
    EXPECT_EQ(qz::host::nameOfValue(ANDROID_CONTROL_AE_REGIONS, 0), nullptr);
    EXPECT_EQ(qz::host::valueOfName(ANDROID_CONTROL_SCENE_MODE, "DISABLED"), 0);
    EXPECT_EQ(qz::host::valueOfName(ANDROID_CONTROL_SCENE_MODE, "HDR"), 18);
    EXPECT_EQ(qz::host::valueOfName(ANDROID_CONTROL_SCENE_MODE, "TORCH"), std::nullopt);
    EXPECT_EQ(qz::host::valueOfName(0xffffffff, "OFF"), std::nullopt);
}

TEST(StandardTags, ConstantsAndTextsOfValues) {
    const struct {
        uint32_t tag;
        uint32_t value;
        int status;
        const char* text;
    } kRows[] = {
        {ANDROID_CONTROL_AE_MODE, ANDROID_CONTROL_AE_MODE_ON, 0, "ON"},
        {ANDROID_CONTROL_AE_ANTIBANDING_MODE, ANDROID_CONTROL_AE_ANTIBANDING_MODE_60HZ, 0, "60HZ"},
        {ANDROID_CONTROL_AE_LOCK, ANDROID_CONTROL_AE_LOCK_OFF, 0, "OFF"},
        {ANDROID_FLASH_INFO_AVAILABLE, ANDROID_FLASH_INFO_AVAILABLE_TRUE, 0, "TRUE"},
        {ANDROID_SCALER_AVAILABLE_FORMATS, ANDROID_SCALER_AVAILABLE_FORMATS_YV12, 0, "YV12"},
        {ANDROID_CONTROL_AE_MODE, 6, 0, "ON_LOW_LIGHT_BOOST_BRIGHTNESS_PRIORITY"},
        {0xd0011, 2, 0, "180"},
        {0xc0015, 0xffffffff, 0, "UNSPECIFIED"},
        {ANDROID_CONTROL_AE_MODE, 7, -1, "error: enum value out of range"},
        {ANDROID_SCALER_CROP_REGION, 0, -1, "error: not an enum"},
    };
    for (const auto& row : kRows) {
        char text[60] = {};
        EXPECT_EQ(camera_metadata_enum_snprint(row.tag, row.value, text, sizeof text), row.status);
        EXPECT_STREQ(text, row.text);
    }
    EXPECT_EQ(ANDROID_CONTROL_AE_MODE_ON_ALWAYS_FLASH, 3);
    char cut[3] = "--";
    EXPECT_EQ(camera_metadata_enum_snprint(ANDROID_CONTROL_AE_MODE, 2, cut, sizeof cut), 0);
    EXPECT_STREQ(cut, "ON");
}

}  // namespace
