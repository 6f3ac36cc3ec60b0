#include <gtest/gtest.h>
#include <host/StandardTags.h>
#include <system/camera_metadata.h>

namespace {

TEST(StandardTags, EachIsFoundByItsNumberAndByItsNames) {
    int found = 0;
    for (uint32_t section = 0; section < ANDROID_SECTION_COUNT; ++section) {
        const auto& [start, end] = camera_metadata_section_bounds[section];
        for (uint32_t tag = start; tag < end; ++tag, ++found) {
            const auto* const row = qz::host::findStandardTag(camera_metadata_section_names[section],
                                                              get_camera_metadata_tag_name(tag));
            ASSERT_EQ(row, qz::host::findStandardTag(tag));
            EXPECT_EQ(row->tag, tag);
        }
        EXPECT_EQ(get_camera_metadata_tag_name(end), nullptr);
        EXPECT_EQ(get_camera_metadata_tag_type(end), -1);
    }
    EXPECT_EQ(found, 219);
    EXPECT_EQ(get_camera_metadata_section_name(ANDROID_SECTION_COUNT << 16), nullptr);
    EXPECT_EQ(qz::host::findStandardTag("android.control", "nothing"), nullptr);
    EXPECT_EQ(qz::host::findStandardTag("android", "control.mode"), nullptr);
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

}  // namespace
