// SPDX-License-Identifier: Apache-2.0
#include <camera/CameraMetadata.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/Log.h"
#include "support/VendorTags.h"

using android::BAD_VALUE;
using android::CameraMetadata;
using android::INVALID_OPERATION;
using android::NO_MEMORY;
using android::OK;
using android::String8;

namespace {

constexpr uint32_t kVendorTag = 0x80010000;
constexpr std::array<uint8_t, 3> kBytes = {1, 2, 3};
constexpr const uint8_t* kNoBytes = nullptr;
const std::vector<std::string> kOneLine = {"Camera2-Metadata"};

// fuzz/MetadataTarget.cpp makes random changes and compares them with a simple list of entries; the test
// fuzz.metadata replays its seeds.

TEST(CameraMetadata, UpdateRefusesUnknownTagsAndOtherTypes) {
    const qz::test::VendorTags vendor(
        std::vector<qz::test::VendorTag>{{kVendorTag, "com.ambrix.test", "iso", TYPE_INT32}});
    const int32_t number = 7;
    CameraMetadata metadata;
    EXPECT_EQ(metadata.update(kVendorTag, &number, 1), OK);
    EXPECT_EQ(metadata.update(kVendorTag, kBytes.data(), 3), INVALID_OPERATION);
    EXPECT_EQ(metadata.update(kVendorTag, String8("7")), INVALID_OPERATION);
    EXPECT_EQ(metadata.update(kVendorTag + 1, &number, 1), INVALID_OPERATION);
    EXPECT_EQ(metadata.update(ANDROID_CONTROL_MODE, &number, 1), INVALID_OPERATION);
    EXPECT_EQ(metadata.update(ANDROID_SYNC_END, kBytes.data(), 1), INVALID_OPERATION);
    EXPECT_EQ(metadata.update(kVendorTag, &number, SIZE_MAX / 2), NO_MEMORY);
    EXPECT_EQ(metadata.update(kVendorTag, &number, SIZE_MAX / 4 + 2), NO_MEMORY);  // times four wraps to four
    EXPECT_EQ(metadata.entryCount(), 1U);
    EXPECT_EQ(*std::as_const(metadata).find(kVendorTag).data.i32, 7);
}

TEST(CameraMetadata, AnEmptyEntryIsPresentAndATextKeepsItsTerminator) {
    CameraMetadata metadata;
    EXPECT_EQ(metadata.find(ANDROID_JPEG_GPS_PROCESSING_METHOD).data.u8, nullptr);
    EXPECT_EQ(metadata.update(ANDROID_JPEG_GPS_PROCESSING_METHOD, kNoBytes, 0), OK);
    EXPECT_TRUE(metadata.exists(ANDROID_JPEG_GPS_PROCESSING_METHOD));
    EXPECT_EQ(metadata.update(ANDROID_JPEG_GPS_PROCESSING_METHOD, String8("GPS fix")), OK);
    EXPECT_EQ(metadata.find(ANDROID_JPEG_GPS_PROCESSING_METHOD).count, 8U);
    EXPECT_STREQ(reinterpret_cast<const char*>(metadata.find(ANDROID_JPEG_GPS_PROCESSING_METHOD).data.u8),
                 "GPS fix");
}

TEST(CameraMetadata, LockedObjectRefusesEveryChange) {
    CameraMetadata metadata;
    ASSERT_EQ(metadata.update(ANDROID_CONTROL_MODE, kBytes.data(), 1), OK);
    CameraMetadata other(metadata);
    ASSERT_EQ(other.update(ANDROID_CONTROL_MODE, kBytes.data(), 3), OK);
    const camera_metadata_ro_entry_t entry = std::as_const(other).find(ANDROID_CONTROL_MODE);
    camera_metadata_t* const loose = allocate_camera_metadata(1, 0);
    const camera_metadata_t* const buffer = metadata.getAndLock();
    const struct {
        const char* change;
        std::function<bool()> isRefused;
    } kRows[] = {
        {"update", [&] { return metadata.update(ANDROID_CONTROL_MODE, kBytes.data(), 2) == -38; }},
        {"update of a text", [&] { return metadata.update(ANDROID_CONTROL_MODE, String8("a")) == -38; }},
        {"update by an entry", [&] { return metadata.update(entry) == -38; }},
        {"erase", [&] { return metadata.erase(ANDROID_CONTROL_MODE) == -38; }},
        {"append", [&] { return metadata.append(other) == -38; }},
        {"sort", [&] { return metadata.sort() == -38; }},
        {"clear", [&] { return metadata.clear(), true; }},
        {"release", [&] { return metadata.release() == nullptr; }},
        {"acquire a buffer", [&] { return metadata.acquire(loose), true; }},
        {"acquire an object", [&] { return metadata.acquire(other), true; }},
        {"swap", [&] { return metadata.swap(other), true; }},
        {"swap the other way", [&] { return other.swap(metadata), true; }},
        {"assign", [&] { return &(metadata = other) == &metadata; }},
        {"assign a buffer", [&] { return &(metadata = loose) == &metadata; }},
        {"assign itself", [&] { return &(metadata = *&metadata) == &metadata; }},
        {"find to write", [&] { return metadata.find(ANDROID_CONTROL_MODE).data.u8 == nullptr; }},
        {"unlock by another buffer", [&] { return metadata.unlock(loose) == BAD_VALUE; }},
    };
    for (const auto& row : kRows) {
        qz::test::LogCapture log;
        EXPECT_TRUE(row.isRefused()) << row.change;
        EXPECT_EQ(log.takeErrors(), kOneLine) << row.change;
        EXPECT_EQ(metadata.getAndLock(), buffer) << row.change;
        EXPECT_EQ(std::as_const(metadata).find(ANDROID_CONTROL_MODE).count, 1U) << row.change;
        EXPECT_EQ(std::as_const(other).find(ANDROID_CONTROL_MODE).count, 3U) << row.change;
    }
    free_camera_metadata(loose);
    EXPECT_EQ(CameraMetadata(metadata).erase(ANDROID_CONTROL_MODE), OK) << "a copy is not locked";
    EXPECT_EQ(metadata.unlock(buffer), OK);
    qz::test::LogCapture log;
    EXPECT_EQ(metadata.unlock(buffer), INVALID_OPERATION) << "not locked any more";
    EXPECT_EQ(log.takeErrors(), kOneLine);
    EXPECT_EQ(metadata.find(ANDROID_CONTROL_MODE).count, 1U);
    EXPECT_EQ(metadata.update(ANDROID_CONTROL_MODE, kBytes.data(), 2), OK);
}

// Tests calls that a device refuses, and calls that would crash there.
TEST(CameraMetadata, RefusalsAreLogged) {
    const std::array<int32_t, 4> numbers = {10, 20, 30, 40};
    CameraMetadata metadata;
    CameraMetadata none;
    camera_metadata_ro_entry_t typeless = {};
    typeless.tag = ANDROID_CONTROL_MODE;
    typeless.type = NUM_TYPES;
    ASSERT_EQ(metadata.update(ANDROID_SCALER_CROP_REGION, numbers.data(), 4), OK);
    ASSERT_EQ(metadata.update(ANDROID_SENSOR_SENSITIVITY, numbers.data(), 1), OK);
    const auto own = [&](uint32_t tag) { return std::as_const(metadata).find(tag).data.i32; };
    const int32_t* const inEntry = own(ANDROID_SENSOR_SENSITIVITY);
    const int32_t* const inData = own(ANDROID_SCALER_CROP_REGION);
    const std::vector<std::pair<const char*, std::function<bool()>>> kRows = {
        {"own data", [&] { return metadata.update(ANDROID_SCALER_CROP_REGION, inData + 1, 2) == -38; }},
        {"own data, none", [&] { return metadata.update(ANDROID_SCALER_CROP_REGION, inData, 0) == -38; }},
        {"own entry", [&] { return metadata.update(ANDROID_CONTROL_AE_REGIONS, inEntry, 1) == -38; }},
        {"no type", [&] { return metadata.update(typeless) == -38; }},
        {"null data", [&] { return metadata.update(ANDROID_CONTROL_MODE, kNoBytes, 1) == 1; }},
        {"erase without a buffer", [&] { return none.erase(ANDROID_CONTROL_MODE) == 1; }},
        {"append without a buffer", [&] { return metadata.append(none) == 1; }},
        {"append itself", [&] { return metadata.append(metadata) == -38; }},
    };
    for (const auto& [what, isRefused] : kRows) {
        qz::test::LogCapture log;
        EXPECT_TRUE(isRefused()) << what;
        EXPECT_EQ(log.takeErrors(), kOneLine) << what;
        EXPECT_EQ(metadata.entryCount(), 2U) << what;
        EXPECT_EQ(metadata.find(ANDROID_SCALER_CROP_REGION).count, 4U) << what;
    }
    qz::test::LogCapture log;
    EXPECT_EQ(none.sort(), 1);
    EXPECT_EQ(metadata.erase(ANDROID_CONTROL_MODE), OK) << "absent";
    EXPECT_TRUE(log.takeErrors().empty());
}

// An entry keeps its type if its tag is later declared with another type.
TEST(CameraMetadata, AnEntryOfAFormerTypeIsNotUpdated) {
    const int32_t number = 7;
    CameraMetadata metadata;
    {
        const qz::test::VendorTags vendor(
            std::vector<qz::test::VendorTag>{{kVendorTag, "com.ambrix.test", "iso", TYPE_INT32}});
        ASSERT_EQ(metadata.update(kVendorTag, &number, 1), OK);
    }
    const qz::test::VendorTags vendor(
        std::vector<qz::test::VendorTag>{{kVendorTag, "com.ambrix.test", "iso", TYPE_BYTE}});
    qz::test::LogCapture log;
    EXPECT_EQ(metadata.update(kVendorTag, kBytes.data(), 3), INVALID_OPERATION);
    EXPECT_EQ(log.takeErrors(), kOneLine);
    EXPECT_EQ(*metadata.find(kVendorTag).data.i32, 7);
}

TEST(CameraMetadata, AppendAddsASecondEntryAndTheOlderIsFound) {
    CameraMetadata metadata;
    CameraMetadata other;
    metadata.update(ANDROID_CONTROL_MODE, kBytes.data(), 1);
    other.update(ANDROID_CONTROL_MODE, kBytes.data() + 1, 1);
    other.update(ANDROID_CONTROL_AE_MODE, kBytes.data() + 2, 1);
    EXPECT_EQ(metadata.append(other), OK);
    EXPECT_EQ(metadata.entryCount(), 3U);
    EXPECT_EQ(*metadata.find(ANDROID_CONTROL_MODE).data.u8, 1);
    EXPECT_EQ(metadata.sort(), OK);
    EXPECT_EQ(metadata.find(ANDROID_CONTROL_AE_MODE).index, 0U);
    EXPECT_EQ(*metadata.find(ANDROID_CONTROL_MODE).data.u8, 1);
    EXPECT_EQ(metadata.erase(ANDROID_CONTROL_MODE), OK);
    EXPECT_EQ(*metadata.find(ANDROID_CONTROL_MODE).data.u8, 2);
}

TEST(CameraMetadata, BufferOwnership) {
    CameraMetadata metadata(4, 100);
    const auto capacities = [](const CameraMetadata& object) {
        const camera_metadata_t* const buffer = object.getAndLock();
        object.unlock(buffer);
        return std::make_pair(get_camera_metadata_entry_capacity(buffer),
                              get_camera_metadata_data_capacity(buffer));
    };
    EXPECT_EQ(capacities(metadata), std::make_pair(size_t{4}, size_t{100}));
    for (uint32_t tag = ANDROID_CONTROL_AE_LOCK; metadata.entryCount() < 5; ++tag) {
        if (get_camera_metadata_tag_type(tag) == TYPE_BYTE) metadata.update(tag, kBytes.data(), 3);
    }
    EXPECT_EQ(capacities(metadata), std::make_pair(size_t{10}, size_t{100})) << "twice of what is needed";

    CameraMetadata moved(std::move(metadata));
    // There is no move: NOLINTNEXTLINE(clang-analyzer-cplusplus.Move,bugprone-use-after-move)
    EXPECT_EQ(metadata.entryCount(), 5U);
    EXPECT_EQ(capacities(moved), std::make_pair(size_t{5}, size_t{0})) << "just what it needs";

    camera_metadata_t* const buffer = moved.release();
    EXPECT_EQ(get_camera_metadata_entry_count(buffer), 5U);
    EXPECT_TRUE(moved.isEmpty());
    moved = buffer;
    camera_metadata_t* const copy = moved.release();
    EXPECT_NE(copy, buffer);
    free_camera_metadata(copy);
    moved.acquire(buffer);
    metadata.clear();
    metadata.swap(moved);
    EXPECT_EQ(metadata.entryCount(), 5U);
    EXPECT_TRUE(moved.isEmpty());
    moved.acquire(metadata);
    EXPECT_EQ(moved.release(), buffer);
    EXPECT_TRUE(metadata.isEmpty());

    auto* const broken = reinterpret_cast<uint32_t*>(buffer);
    std::fill_n(broken, 4, 0xffffffff);
    qz::test::LogCapture log;
    EXPECT_TRUE(CameraMetadata(buffer).isEmpty());
    EXPECT_EQ(log.takeErrors(), kOneLine);
}

}  // namespace
