#include <gtest/gtest.h>
#include <system/camera_metadata.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "VendorTags.h"

namespace {

using Buffer = std::unique_ptr<camera_metadata_t, decltype(&free_camera_metadata)>;

Buffer makeBuffer(size_t entries, size_t data) {
    return {allocate_camera_metadata(entries, data), &free_camera_metadata};
}

std::string dumpOf(const camera_metadata_t* metadata, int verbosity, int indentation) {
    const std::unique_ptr<FILE, decltype(&std::fclose)> file(std::tmpfile(), &std::fclose);
    dump_indented_camera_metadata(metadata, fileno(file.get()), verbosity, indentation);
    std::rewind(file.get());
    std::string text(4096, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), file.get()));
    return text;
}

template <typename T>
void add(const Buffer& buffer, uint32_t tag, std::initializer_list<T> elements) {
    EXPECT_EQ(add_camera_metadata_entry(buffer.get(), tag, elements.begin(), elements.size()), 0)
        << std::hex << tag;
}

TEST(MetadataBuffer, RefusesWhatItHasNoRoomForAndStaysAsItWas) {
    EXPECT_EQ(allocate_camera_metadata(SIZE_MAX, 0), nullptr);
    EXPECT_EQ(allocate_camera_metadata(SIZE_MAX / 16 + 2, 8), nullptr);  // times the entry size wraps
    EXPECT_EQ(allocate_camera_metadata(1, SIZE_MAX), nullptr);
    EXPECT_EQ(calculate_camera_metadata_entry_data_size(TYPE_RATIONAL, SIZE_MAX / 8 + 2), SIZE_MAX);
    EXPECT_EQ(calculate_camera_metadata_entry_data_size(NUM_TYPES, 1), SIZE_MAX);

    const Buffer buffer = makeBuffer(2, 24);
    const int32_t numbers[5] = {1, 2, 3, 4, 5};
    const float aperture = 1.8F;
    ASSERT_EQ(add_camera_metadata_entry(buffer.get(), ANDROID_SCALER_CROP_REGION, numbers, 5), 0);
    EXPECT_EQ(add_camera_metadata_entry(buffer.get(), ANDROID_CONTROL_AE_REGIONS, numbers, 2), -12);
    EXPECT_EQ(update_camera_metadata_entry(buffer.get(), 0, numbers, 7, nullptr), -12);
    EXPECT_EQ(update_camera_metadata_entry(buffer.get(), 0, numbers, SIZE_MAX / 4 + 2, nullptr), -12);
    ASSERT_EQ(add_camera_metadata_entry(buffer.get(), ANDROID_LENS_APERTURE, &aperture, 1), 0);
    EXPECT_EQ(add_camera_metadata_entry(buffer.get(), ANDROID_LENS_APERTURE, &aperture, 1), -12);
    EXPECT_EQ(add_camera_metadata_entry(buffer.get(), ANDROID_LENS_END, &aperture, 1), -22);
    EXPECT_EQ(delete_camera_metadata_entry(buffer.get(), 2), -2);

    camera_metadata_ro_entry_t entry = {};
    EXPECT_NE(get_camera_metadata_ro_entry(buffer.get(), 2, &entry), 0);
    EXPECT_EQ(find_camera_metadata_ro_entry(buffer.get(), ANDROID_CONTROL_MODE, &entry), -2);
    ASSERT_EQ(find_camera_metadata_ro_entry(buffer.get(), ANDROID_SCALER_CROP_REGION, &entry), 0);
    EXPECT_EQ(std::vector<int32_t>(entry.data.i32, entry.data.i32 + entry.count),
              (std::vector<int32_t>{1, 2, 3, 4, 5}));
    EXPECT_EQ(update_camera_metadata_entry(buffer.get(), 0, numbers, 6 - 1, nullptr), 0)
        << "the same size again";
}

// Each byte of a sound buffer takes each value: what is still called sound must be readable and changeable to
// its end.
TEST(MetadataBuffer, ValidationAcceptsOnlyWhatIsSafeToUse) {
    const Buffer buffer = makeBuffer(3, 32);
    add<int32_t>(buffer, ANDROID_SCALER_CROP_REGION, {1, 2, 3});
    add<uint8_t>(buffer, ANDROID_CONTROL_MODE, {1});
    add<int64_t>(buffer, ANDROID_SENSOR_EXPOSURE_TIME, {4});
    const size_t size = get_camera_metadata_size(buffer.get());
    EXPECT_EQ(validate_camera_metadata_structure(buffer.get(), size), 0);
    EXPECT_NE(validate_camera_metadata_structure(buffer.get(), size - 1), 0);
    EXPECT_NE(validate_camera_metadata_structure(nullptr, size), 0);
    size_t refused = 0;
    for (size_t at = 0; at < size; ++at) {
        for (int value = 0; value < 256; ++value) {
            std::vector<uint64_t> memory((size + 7) / 8);  // its own block, so that a sanitizer sees its end
            std::memcpy(memory.data(), buffer.get(), size);
            reinterpret_cast<uint8_t*>(memory.data())[at] = static_cast<uint8_t>(value);
            auto* const changed = reinterpret_cast<camera_metadata_t*>(memory.data());
            if (validate_camera_metadata_structure(changed, size) != 0) {
                ++refused;
                continue;
            }
            const Buffer copy(clone_camera_metadata(changed), &free_camera_metadata);
            while (delete_camera_metadata_entry(changed, 0) == 0) {
                EXPECT_EQ(validate_camera_metadata_structure(changed, size), 0) << at << " = " << value;
            }
        }
    }
    EXPECT_GT(refused, size_t{2040});  // eight bytes' worth: at least the counts and the offsets
}

// The text that people have from devices, entry for entry.
TEST(MetadataDump, WritesThePlatformsText) {
    const char* const section = "com.ambrix.device.capabilities";
    const qz::test::GlobalVendorTags vendor({
        {0x80010000, section, "supported_iso_values", TYPE_BYTE},
        {0x80010002, section, "qz-slow-jpeg-mode-threshold", TYPE_INT64},
        {0x80010003, section, "qzSubSensorJpegSize", TYPE_INT32},
        {0x80010004, section, "oisDefaultGryoGain", TYPE_FLOAT},
    });
    const Buffer buffer = makeBuffer(14, 208);
    add<uint8_t>(buffer, 0x80010000, {0, 2, 3, 4, 5, 7, 8, 9});
    add<int64_t>(buffer, 0x80010002, {8000000});
    add<int32_t>(buffer, 0x80010003, {4000, 3000, 1920, 1080, 1280, 720, 640, 480});
    add<float>(buffer, 0x80010004, {0.98F, 1.02F});
    add<uint8_t>(buffer, ANDROID_CONTROL_AVAILABLE_SCENE_MODES, {0, 1, 18});
    add<int32_t>(buffer, ANDROID_SCALER_AVAILABLE_STREAM_CONFIGURATIONS, {33, 4000, 3000, 0});
    add<camera_metadata_rational_t>(buffer, ANDROID_CONTROL_AE_COMPENSATION_STEP, {{1, 3}, {-1, 2}, {0, 1}});
    add<uint8_t>(buffer, ANDROID_FLASH_INFO_AVAILABLE, {1});
    add<double>(buffer, ANDROID_JPEG_GPS_COORDINATES, {-0.5});
    add<uint8_t>(buffer, ANDROID_COLOR_CORRECTION_MODE, {});
    EXPECT_EQ(dumpOf(buffer.get(), 1, 4),
              R"(    Dumping camera metadata array: 10 / 14 entries, 104 / 208 bytes of extra data.
      Version: 1, Flags: 00000000
      com.ambrix.device.capabilities.supported_iso_values (80010000): byte[8]
        [0 2 3 4 5 7 8 9 ]
      com.ambrix.device.capabilities.qz-slow-jpeg-mode-threshold (80010002): int64[1]
        [8000000 ]
      com.ambrix.device.capabilities.qzSubSensorJpegSize (80010003): int32[8]
        [4000 3000 1920 1080 ]
        [1280 720 640 480 ]
      com.ambrix.device.capabilities.oisDefaultGryoGain (80010004): float[2]
        [0.98000002 1.01999998 ]
      android.control.availableSceneModes (10019): byte[3]
        [0 1 18 ]
      android.scaler.availableStreamConfigurations (d000a): int32[4]
        [33 4000 3000 OUTPUT ]
      android.control.aeCompensationStep (10016): rational[3]
        [(1 / 3) (-1 / 2) ]
        [(0 / 1) ]
      android.flash.info.available (50000): byte[1]
        [TRUE ]
      android.jpeg.gpsCoordinates (70000): double[1]
        [-0.50000000 ]
      android.colorCorrection.mode (00000): byte[0]
)");
}

TEST(MetadataDump, VerbosityLimitsTheValuesAndUnknownTagsAreNamedSo) {
    const Buffer buffer = makeBuffer(1, 32);
    {
        const qz::test::GlobalVendorTags vendor({{0x80000000, "com.ambrix.test", "list", TYPE_BYTE}});
        add<uint8_t>(buffer, 0x80000000, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 255});
    }
    const std::string head =
        "Dumping camera metadata array: 1 / 1 entries, 24 / 32 bytes of extra data.\n"
        "  Version: 1, Flags: 00000000\n"
        "  unknownSection.unknownTag (80000000): byte[17]\n";
    const std::string firstLine = "    [1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 ]\n";
    EXPECT_EQ(dumpOf(buffer.get(), 0, 0), head);
    EXPECT_EQ(dumpOf(buffer.get(), 1, 0), head + firstLine);
    EXPECT_EQ(dumpOf(buffer.get(), 2, 0), head + firstLine + "    [255 ]\n");
}

}  // namespace
