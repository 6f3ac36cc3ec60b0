#include <camera/CameraMetadata.h>

#include <gtest/gtest.h>

#include <array>
#include <utility>
#include <vector>

#include "VendorTags.h"

using android::BAD_VALUE;
using android::CameraMetadata;
using android::INVALID_OPERATION;
using android::NO_MEMORY;
using android::OK;
using android::String8;

namespace {

constexpr uint32_t kVendorTag = 0x80010000;
constexpr std::array<uint8_t, 3> kBytes = {1, 2, 3};

// Random changes beside a plain list of entries: fuzz/MetadataTarget.cpp, which the test fuzz.metadata
// replays.

TEST(CameraMetadata, UpdateRefusesUnknownTagsAndOtherTypes) {
    const qz::test::GlobalVendorTags vendor({{kVendorTag, "com.ambrix.test", "iso", TYPE_INT32}});
    const int32_t number = 7;
    CameraMetadata metadata;
    EXPECT_EQ(metadata.update(kVendorTag, &number, 1), OK);
    EXPECT_EQ(metadata.update(kVendorTag, kBytes.data(), 3), INVALID_OPERATION);
    EXPECT_EQ(metadata.update(kVendorTag, String8("7")), INVALID_OPERATION);
    EXPECT_EQ(metadata.update(kVendorTag + 1, &number, 1), INVALID_OPERATION);
    EXPECT_EQ(metadata.update(ANDROID_CONTROL_MODE, &number, 1), INVALID_OPERATION);
    EXPECT_EQ(metadata.update(ANDROID_CONTROL_END, kBytes.data(), 1), INVALID_OPERATION);
    EXPECT_EQ(metadata.update(kVendorTag, static_cast<const int32_t*>(nullptr), 1), BAD_VALUE);
    EXPECT_EQ(metadata.update(kVendorTag, &number, SIZE_MAX / 2), NO_MEMORY);
    EXPECT_EQ(metadata.update(kVendorTag, &number, SIZE_MAX / 4 + 2), NO_MEMORY);  // times four wraps to four
    EXPECT_EQ(metadata.entryCount(), 1U);
    EXPECT_EQ(*std::as_const(metadata).find(kVendorTag).data.i32, 7);
}

TEST(CameraMetadata, AnEmptyEntryIsPresentAndATextKeepsItsTerminator) {
    CameraMetadata metadata;
    EXPECT_EQ(metadata.find(ANDROID_JPEG_GPS_PROCESSING_METHOD).data.u8, nullptr);
    EXPECT_EQ(metadata.update(ANDROID_JPEG_GPS_PROCESSING_METHOD, static_cast<const uint8_t*>(nullptr), 0),
              OK);
    EXPECT_TRUE(metadata.exists(ANDROID_JPEG_GPS_PROCESSING_METHOD));
    EXPECT_EQ(metadata.update(ANDROID_JPEG_GPS_PROCESSING_METHOD, String8("GPS fix")), OK);
    EXPECT_EQ(metadata.find(ANDROID_JPEG_GPS_PROCESSING_METHOD).count, 8U);
    EXPECT_STREQ(reinterpret_cast<const char*>(metadata.find(ANDROID_JPEG_GPS_PROCESSING_METHOD).data.u8),
                 "GPS fix");
}

TEST(CameraMetadata, ALockedObjectRefusesEveryChange) {
    CameraMetadata metadata;
    ASSERT_EQ(metadata.update(ANDROID_CONTROL_MODE, kBytes.data(), 1), OK);
    const CameraMetadata other(metadata);
    const qz::test::ErrorLog log;
    const camera_metadata_t* const buffer = metadata.getAndLock();
    EXPECT_EQ(metadata.update(ANDROID_CONTROL_MODE, kBytes.data(), 2), INVALID_OPERATION);
    EXPECT_EQ(metadata.erase(ANDROID_CONTROL_MODE), INVALID_OPERATION);
    EXPECT_EQ(metadata.append(other), INVALID_OPERATION);
    metadata.clear();
    metadata = CameraMetadata();
    const CameraMetadata moved(std::move(metadata));
    EXPECT_EQ(moved.find(ANDROID_CONTROL_MODE).count, 1U);
    // Moved from, but it was locked: NOLINTNEXTLINE(clang-analyzer-cplusplus.Move,bugprone-use-after-move)
    EXPECT_EQ(std::as_const(metadata).find(ANDROID_CONTROL_MODE).count, 1U);
    EXPECT_NE(metadata.unlock(moved.getAndLock()), OK);
    EXPECT_EQ(metadata.update(ANDROID_CONTROL_MODE, kBytes.data(), 2), INVALID_OPERATION) << "still locked";
    EXPECT_EQ(qz::test::ErrorLog::lines().size(), 7U);
    EXPECT_EQ(metadata.unlock(buffer), OK);
    EXPECT_NE(metadata.unlock(buffer), OK);
    EXPECT_EQ(metadata.update(ANDROID_CONTROL_MODE, kBytes.data(), 2), OK);
}

// The elements come from the object's own buffer, which a change moves about or replaces.
TEST(CameraMetadata, UpdatesFromItsOwnBuffer) {
    constexpr std::array<int32_t, 6> kNumbers = {10, 20, 30, 40, 50, 60};
    CameraMetadata metadata;
    metadata.update(ANDROID_SCALER_CROP_REGION, kNumbers.data(), 4);
    metadata.update(ANDROID_CONTROL_AE_REGIONS, kNumbers.data(), 6);
    const auto copy = [&metadata](uint32_t to, uint32_t from, size_t first, size_t count) {
        EXPECT_EQ(metadata.update(to, metadata.find(from).data.i32 + first, count), OK);
        return std::vector<int32_t>(metadata.find(to).data.i32, metadata.find(to).data.i32 + count);
    };
    using Numbers = std::vector<int32_t>;
    EXPECT_EQ(copy(ANDROID_SCALER_CROP_REGION, ANDROID_CONTROL_AE_REGIONS, 1, 5),
              (Numbers{20, 30, 40, 50, 60}));
    EXPECT_EQ(copy(ANDROID_CONTROL_AE_REGIONS, ANDROID_SCALER_CROP_REGION, 2, 3), (Numbers{40, 50, 60}));
    EXPECT_EQ(copy(ANDROID_CONTROL_AE_REGIONS, ANDROID_CONTROL_AE_REGIONS, 1, 1), (Numbers{50}));
    for (uint32_t tag = ANDROID_SCALER_AVAILABLE_PROCESSED_SIZES; tag > ANDROID_SCALER_CROP_REGION; --tag) {
        if (get_camera_metadata_tag_type(tag) != TYPE_INT32) continue;
        for (size_t round = 0; round < 5; ++round) {  // grows in between
            EXPECT_EQ(copy(tag, ANDROID_SCALER_CROP_REGION, round, 5 - round),
                      Numbers(kNumbers.begin() + 1 + static_cast<int>(round), kNumbers.end()));
        }
    }
    EXPECT_EQ(metadata.append(metadata), OK);
    EXPECT_EQ(metadata.find(ANDROID_SCALER_CROP_REGION).count, 5U);
}

}  // namespace
