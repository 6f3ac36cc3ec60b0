// SPDX-License-Identifier: Apache-2.0
#include <android/log.h>
#include <gtest/gtest.h>
#include <system/camera_metadata.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/Log.h"
#include "support/VendorTags.h"

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

TEST(MetadataBuffer, FullBufferRefusesChanges) {
    EXPECT_EQ(allocate_camera_metadata(SIZE_MAX, 0), nullptr);
    EXPECT_EQ(allocate_camera_metadata(SIZE_MAX / 16 + 2, 8), nullptr);  // times the entry size wraps
    EXPECT_EQ(allocate_camera_metadata(1, SIZE_MAX), nullptr);
    const Buffer buffer = makeBuffer(2, 24);
    const int32_t numbers[5] = {1, 2, 3, 4, 5};
    const float aperture = 1.8F;
    camera_metadata_t* const metadata = buffer.get();
    ASSERT_EQ(add_camera_metadata_entry(metadata, ANDROID_SCALER_CROP_REGION, numbers, 5), 0);
    EXPECT_EQ(add_camera_metadata_entry(metadata, ANDROID_CONTROL_AE_REGIONS, numbers, 2), 1);
    EXPECT_EQ(update_camera_metadata_entry(metadata, 0, numbers, 7, nullptr), 1);
    EXPECT_EQ(update_camera_metadata_entry(metadata, 0, numbers, SIZE_MAX / 4 + 2, nullptr), 1);
    ASSERT_EQ(add_camera_metadata_entry(metadata, ANDROID_LENS_APERTURE, &aperture, 1), 0);
    EXPECT_EQ(add_camera_metadata_entry(metadata, ANDROID_LENS_APERTURE, &aperture, 1), 1);
    EXPECT_EQ(append_camera_metadata(metadata, metadata), 1);
    EXPECT_EQ(copy_camera_metadata(metadata, 8, metadata), nullptr);

    camera_metadata_ro_entry_t entry = {};
    EXPECT_EQ(find_camera_metadata_ro_entry(metadata, ANDROID_CONTROL_MODE, &entry), -2);
    ASSERT_EQ(find_camera_metadata_ro_entry(metadata, ANDROID_SCALER_CROP_REGION, &entry), 0);
    EXPECT_EQ(std::vector<int32_t>(entry.data.i32, entry.data.i32 + entry.count),
              (std::vector<int32_t>{1, 2, 3, 4, 5}));
    EXPECT_EQ(update_camera_metadata_entry(metadata, 0, numbers, 6 - 1, nullptr), 0) << "the same size again";
}

// The status is 1 or another refusal. A call that would crash on a device is logged.
TEST(MetadataBuffer, NullAndAbsentArguments) {
    const Buffer buffer = makeBuffer(2, 24);
    camera_metadata_t* const sound = buffer.get();
    add<uint8_t>(buffer, ANDROID_CONTROL_MODE, {1});
    camera_metadata_entry_t entry = {};
    camera_metadata_ro_entry_t view = {};
    alignas(8) char memory[200] = {};
    const auto isNull = [](const camera_metadata_t* made) { return made == nullptr ? 1 : 0; };
    const struct {
        const char* call;
        std::function<size_t()> answer;
        size_t expected;
        std::string logged;
    } kRows[] = {
        {"entry count", [] { return get_camera_metadata_entry_count(nullptr); }, 0,
         "get_camera_metadata_entry_count: the buffer is null"},
        {"entry capacity", [] { return get_camera_metadata_entry_capacity(nullptr); }, 0,
         "get_camera_metadata_entry_capacity: the buffer is null"},
        {"data count", [] { return get_camera_metadata_data_count(nullptr); }, 0,
         "get_camera_metadata_data_count: the buffer is null"},
        {"data capacity", [] { return get_camera_metadata_data_capacity(nullptr); }, 0,
         "get_camera_metadata_data_capacity: the buffer is null"},
        {"size", [] { return get_camera_metadata_size(nullptr); }, 1, ""},
        {"compact size", [] { return get_camera_metadata_compact_size(nullptr); }, 1, ""},
        {"entry of null", [&] { return get_camera_metadata_entry(nullptr, 0, &entry); }, 1, ""},
        {"entry to null", [&] { return get_camera_metadata_entry(sound, 0, nullptr); }, 1, ""},
        {"entry beyond", [&] { return get_camera_metadata_ro_entry(sound, 1, &view); }, 1, ""},
        {"find in null", [&] { return find_camera_metadata_ro_entry(nullptr, 0, &view); }, 1, ""},
        {"add to null", [] { return add_camera_metadata_entry(nullptr, 0, nullptr, 0); }, 1, ""},
        {"add null", [&] { return add_camera_metadata_entry(sound, 0x10000, nullptr, 1); }, 1, ""},
        {"add unknown", [&] { return add_camera_metadata_entry(sound, 0x7fff0000, nullptr, 0); }, 1, ""},
        {"update null", [] { return update_camera_metadata_entry(nullptr, 0, nullptr, 0, nullptr); }, 1, ""},
        {"update by null", [&] { return update_camera_metadata_entry(sound, 0, nullptr, 1, nullptr); }, 1,
         "update_camera_metadata_entry: there are no data"},
        {"update beyond", [&] { return update_camera_metadata_entry(sound, 1, "", 1, nullptr); }, 1, ""},
        {"delete in null", [] { return delete_camera_metadata_entry(nullptr, 0); }, 1, ""},
        {"delete beyond", [&] { return delete_camera_metadata_entry(sound, 1); }, 1, ""},
        {"append null", [&] { return append_camera_metadata(sound, nullptr); }, 1, ""},
        {"append to null", [&] { return append_camera_metadata(nullptr, sound); }, 1, ""},
        {"sort null", [] { return sort_camera_metadata(nullptr); }, 1, ""},
        {"validate null", [] { return validate_camera_metadata_structure(nullptr, nullptr); }, 1, ""},
        {"clone null", [&] { return isNull(clone_camera_metadata(nullptr)); }, 1, ""},
        {"copy null", [&] { return isNull(copy_camera_metadata(memory, 200, nullptr)); }, 1,
         "copy_camera_metadata: the buffer is null"},
        {"copy to null", [&] { return isNull(copy_camera_metadata(nullptr, 200, sound)); }, 1, ""},
        {"checked null", [&] { return isNull(allocate_copy_camera_metadata_checked(nullptr, 200)); }, 1, ""},
        {"place at null", [&] { return isNull(place_camera_metadata(nullptr, 200, 1, 1)); }, 1, ""},
        {"place askew", [&] { return isNull(place_camera_metadata(memory + 4, 196, 1, 1)); }, 1,
         "place_camera_metadata: the memory does not start on 8 bytes"},
        {"place too much", [&] { return isNull(place_camera_metadata(memory, SIZE_MAX, SIZE_MAX, 1)); }, 1,
         ""},
        {"no room for a name", [&] { return camera_metadata_enum_snprint(0x1000f, 0, memory, 0) + 2; }, 1,
         "camera_metadata_enum_snprint: there is no room for a text"},
    };
    for (const auto& row : kRows) {
        qz::test::LogCapture log;
        EXPECT_EQ(row.answer(), row.expected) << row.call;
        std::vector<qz::test::LogLine> expected;
        if (!row.logged.empty()) expected.push_back({ANDROID_LOG_ERROR, "camera_metadata", row.logged});
        EXPECT_EQ(log.take(), expected) << row.call;
    }
    EXPECT_EQ(get_camera_metadata_entry_count(sound), 1U);
}

TEST(MetadataBuffer, Sizes) {
    const struct {
        uint8_t type;
        size_t count;
        size_t size;
    } kRows[] = {
        {TYPE_BYTE, 0, 0},     {TYPE_BYTE, 4, 0},
        {TYPE_BYTE, 5, 8},     {TYPE_INT32, 1, 0},
        {TYPE_INT32, 2, 8},    {TYPE_INT32, 3, 16},
        {TYPE_RATIONAL, 1, 8}, {TYPE_RATIONAL, SIZE_MAX / 8 + 2, SIZE_MAX},
        {NUM_TYPES, 100, 0},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(calculate_camera_metadata_entry_data_size(row.type, row.count), row.size)
            << int{row.type} << ' ' << row.count;
    }
    const size_t none = calculate_camera_metadata_size(0, 0);
    EXPECT_EQ(calculate_camera_metadata_size(3, 1), none + 3 * 16 + 8);
    EXPECT_EQ(calculate_camera_metadata_size(0, SIZE_MAX), SIZE_MAX);
    EXPECT_EQ(get_camera_metadata_size(makeBuffer(3, 1).get()), none + 3 * 16 + 8);
}

// Equal contents have equal bytes, even if other elements were stored there before: the padding is zero,
// after elements in the data area and after those in the entry itself.
TEST(MetadataBuffer, PaddingIsZero) {
    const uint8_t bytes[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    for (const size_t count : {1U, 3U, 5U, 6U, 9U, 15U}) {
        alignas(8) std::array<char, 200> memory = {};
        memory.fill('x');
        camera_metadata_t* const buffer = place_camera_metadata(memory.data(), memory.size(), 2, 32);
        ASSERT_EQ(add_camera_metadata_entry(buffer, ANDROID_CONTROL_MODE, bytes, 16), 0);
        ASSERT_EQ(update_camera_metadata_entry(buffer, 0, bytes, 5, nullptr), 0);
        ASSERT_EQ(update_camera_metadata_entry(buffer, 0, bytes, 8, nullptr), 0);
        camera_metadata_entry_t entry = {};
        ASSERT_EQ(update_camera_metadata_entry(buffer, 0, bytes, count, &entry), 0);
        for (size_t at = 0; at < (count <= 4 ? 4 : (count + 7) / 8 * 8); ++at) {
            EXPECT_EQ(entry.data.u8[at], at < count ? bytes[at] : 0) << at << " of " << count;
        }
    }
}

TEST(MetadataBuffer, CompactCopies) {
    const Buffer buffer = makeBuffer(9, 100);
    add<int32_t>(buffer, ANDROID_SCALER_CROP_REGION, {1, 2, 3});
    add<uint8_t>(buffer, ANDROID_CONTROL_MODE, {1});
    const size_t compact = get_camera_metadata_compact_size(buffer.get());
    EXPECT_EQ(compact, calculate_camera_metadata_size(2, 16));
    std::vector<uint64_t> memory(compact / 8);
    EXPECT_EQ(copy_camera_metadata(memory.data(), compact - 1, buffer.get()), nullptr);
    const Buffer clone(clone_camera_metadata(buffer.get()), &free_camera_metadata);
    const camera_metadata_t* const placed = copy_camera_metadata(memory.data(), compact, buffer.get());
    for (const camera_metadata_t* copy : {placed, static_cast<const camera_metadata_t*>(clone.get())}) {
        EXPECT_EQ(get_camera_metadata_entry_capacity(copy), 2U);
        EXPECT_EQ(get_camera_metadata_data_capacity(copy), 16U);
        EXPECT_EQ(dumpOf(copy, 2, 0), dumpOf(clone.get(), 2, 0));
    }
    const size_t size = get_camera_metadata_size(buffer.get());
    const Buffer whole(allocate_copy_camera_metadata_checked(buffer.get(), size), &free_camera_metadata);
    EXPECT_EQ(dumpOf(whole.get(), 2, 0), dumpOf(buffer.get(), 2, 0));
    EXPECT_EQ(allocate_copy_camera_metadata_checked(buffer.get(), size - 1), nullptr);
    EXPECT_EQ(allocate_copy_camera_metadata_checked(buffer.get(), 8), nullptr);
}

TEST(MetadataBuffer, AppendedEntriesKeepTheirElementsAndTheOrderIsKnown) {
    const Buffer buffer = makeBuffer(4, 64);
    const Buffer other = makeBuffer(2, 16);
    const auto flags = [&buffer] {
        const std::string text = dumpOf(buffer.get(), 0, 0);
        return text.substr(text.find("Flags: "), 15);
    };
    add<int32_t>(other, ANDROID_SCALER_CROP_REGION, {5, 6});
    add<uint8_t>(other, ANDROID_CONTROL_MODE, {2});
    ASSERT_EQ(sort_camera_metadata(other.get()), 0);
    ASSERT_EQ(append_camera_metadata(buffer.get(), other.get()), 0);
    EXPECT_EQ(flags(), "Flags: 00000001") << "as the other's";
    ASSERT_EQ(append_camera_metadata(buffer.get(), other.get()), 0);
    EXPECT_EQ(flags(), "Flags: 00000000");
    ASSERT_EQ(sort_camera_metadata(buffer.get()), 0);
    EXPECT_EQ(dumpOf(buffer.get(), 1, 0),
              "Dumping camera metadata array: 4 / 4 entries, 16 / 64 bytes of extra data.\n"
              "  Version: 1, Flags: 00000001\n"
              "  android.control.mode (1000f): byte[1]\n    [USE_SCENE_MODE ]\n"
              "  android.control.mode (1000f): byte[1]\n    [USE_SCENE_MODE ]\n"
              "  android.scaler.cropRegion (d0000): int32[2]\n    [5 6 ]\n"
              "  android.scaler.cropRegion (d0000): int32[2]\n    [5 6 ]\n");
    ASSERT_EQ(delete_camera_metadata_entry(buffer.get(), 0), 0);
    EXPECT_EQ(flags(), "Flags: 00000001");
    add<uint8_t>(buffer, ANDROID_CONTROL_MODE, {2});
    EXPECT_EQ(flags(), "Flags: 00000000");
}

// Sets each byte of a valid buffer to each value. A buffer that is still valid must be readable and
// changeable up to its end.
TEST(MetadataBuffer, ValidationAcceptsOnlySafeBuffers) {
    const Buffer buffer = makeBuffer(3, 32);
    add<int32_t>(buffer, ANDROID_SCALER_CROP_REGION, {1, 2, 3});
    add<uint8_t>(buffer, ANDROID_CONTROL_MODE, {1});
    add<int64_t>(buffer, ANDROID_SENSOR_EXPOSURE_TIME, {4});
    const size_t size = get_camera_metadata_size(buffer.get());
    const size_t less = size - 1;
    EXPECT_EQ(validate_camera_metadata_structure(buffer.get(), &size), 0);
    EXPECT_EQ(validate_camera_metadata_structure(buffer.get(), nullptr), 0);
    EXPECT_EQ(validate_camera_metadata_structure(buffer.get(), &less), 1);
    size_t refused = 0;
    for (size_t at = 0; at < size; ++at) {
        for (int value = 0; value < 256; ++value) {
            std::vector<uint64_t> memory((size + 7) /
                                         8);  // exactly this size, so that a sanitizer detects a read past it
            std::memcpy(memory.data(), buffer.get(), size);
            reinterpret_cast<uint8_t*>(memory.data())[at] = static_cast<uint8_t>(value);
            auto* const changed = reinterpret_cast<camera_metadata_t*>(memory.data());
            if (validate_camera_metadata_structure(changed, &size) != 0) {
                ++refused;
                continue;
            }
            const Buffer copy(clone_camera_metadata(changed), &free_camera_metadata);
            while (delete_camera_metadata_entry(changed, 0) == 0) {
                EXPECT_EQ(validate_camera_metadata_structure(changed, &size), 0) << at << " = " << value;
            }
        }
    }
    EXPECT_GT(refused, size_t{2040});  // every eighth byte: at least the counts and the offsets
}

// If the data area started among the entries, new entries would overwrite it.
TEST(MetadataBuffer, ValidationRefusesADataStartAmongTheEntriesAlsoWithoutEntries) {
    const Buffer buffer = makeBuffer(3, 32);
    auto* const words = reinterpret_cast<uint32_t*>(buffer.get());
    constexpr size_t kDataStart = 5;
    const uint32_t right = words[kDataStart];
    for (uint32_t start = 0; start <= right; start += 8) {
        words[kDataStart] = start;
        EXPECT_EQ(validate_camera_metadata_structure(buffer.get(), nullptr), start < right ? 1 : 0) << start;
    }
    EXPECT_EQ(right, 32U + 3 * 16);
}

TEST(MetadataBuffer, ValidationRefusesAStandardEntryOfAnotherType) {
    const Buffer buffer = makeBuffer(1, 0);
    add<uint8_t>(buffer, ANDROID_CONTROL_MODE, {1});
    auto* const tag = reinterpret_cast<uint32_t*>(buffer.get()) + 8;
    ASSERT_EQ(*tag, static_cast<uint32_t>(ANDROID_CONTROL_MODE));
    for (const auto& [other, status] :
         std::vector<std::pair<uint32_t, int>>{{ANDROID_CONTROL_AE_MODE, 0},     // also a byte
                                               {ANDROID_SENSOR_SENSITIVITY, 1},  // an int32
                                               {0x7fff0000, 1},                  // not a tag
                                               {0x80000000, 0}}) {  // its descriptor may be set later
        *tag = other;
        EXPECT_EQ(validate_camera_metadata_structure(buffer.get(), nullptr), status) << std::hex << other;
    }
}

// The text is the same as in the dump of a device.
TEST(MetadataDump, WritesThePlatformsText) {
    const char* const section = "com.ambrix.device.capabilities";
    const qz::test::VendorTags vendor(std::vector<qz::test::VendorTag>{
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

TEST(MetadataDump, VerbosityAndUnknownTags) {
    const Buffer buffer = makeBuffer(1, 32);
    {
        const qz::test::VendorTags vendor(
            std::vector<qz::test::VendorTag>{{0x80000000, "com.ambrix.test", "list", TYPE_BYTE}});
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
