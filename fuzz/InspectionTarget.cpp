// SPDX-License-Identifier: Apache-2.0
// Inspects any metadata under any properties, and skips buffers by any lists of sizes.
#include "Devices.h"
#include "Target.h"

#include <QzName2Tag.h>
#include <QzPerformEx.h>
#include <cutils/properties.h>
#include <fcntl.h>
#include <system/graphics.h>

#include <algorithm>
#include <list>

namespace qz::fuzz {

namespace {

using android::CameraMetadata;

constexpr const char* kSizeLists[] = {"com.ambrix.device.capabilities.qzSubSensorJpegSize",
                                      "com.ambrix.device.capabilities.superResolutionPictureSize"};

std::string tagNameFrom(Input& input) {
    if (input.below(4) == 0) return input.bytes(PROPERTY_VALUE_MAX - 1);
    const uint32_t tag = tagFrom(input, {});
    const char* const section = get_camera_metadata_section_name(tag);
    const char* const name = get_camera_metadata_tag_name(tag);
    if (section == nullptr || name == nullptr) return "0";
    return std::string(section) + '.' + name;
}

void setProperties(Input& input) {
    const std::string level = input.flag() ? std::to_string(input.below(8)) : input.bytes(20);
    property_set("camera.qzperformex.loglevel", level.c_str());
    for (const char* property :
         {"camera.qzperformex.captag", "camera.qzperformex.ctrltag", "camera.qzperformex.stattag"}) {
        if (input.flag()) property_set(property, tagNameFrom(input).c_str());
    }
}

// The level belongs to the process: an execution must not depend on an earlier one.
void resetLevel(QzPerformEx& inspection) {
    property_set("camera.qzperformex.loglevel", "0");
    android::List<const CameraMetadata> none;
    inspection.checkRequest(none, false);
}

// Returns the elements of both lists of sizes, one list after the other.
std::vector<std::vector<int32_t>> sizeLists(const CameraMetadata& info) {
    std::vector<std::vector<int32_t>> lists;
    for (const char* list : kSizeLists) {
        const camera_metadata_ro_entry entry = info.find(QzName2Tag::getInstance()->vendorTagFromName(list));
        if (entry.count == 0 || entry.type != TYPE_INT32) continue;
        lists.emplace_back(entry.data.i32, entry.data.i32 + entry.count);
    }
    return lists;
}

bool isListed(const std::vector<int32_t>& sizes, int32_t width, int32_t height) {
    for (size_t i = 1; i < sizes.size(); i += 2) {
        if (sizes[i - 1] == width && sizes[i] == height) return true;
    }
    return false;
}

// Returns one of the numbers of a list, since other numbers are rarely found in it, or any number.
int32_t sideFrom(Input& input, const std::vector<std::vector<int32_t>>& lists, int32_t panorama) {
    const size_t choice = input.below(8);
    if (choice == 0) return panorama;
    return choice == 1 || lists.empty() ? input.number<int32_t>() : input.oneOf(input.oneOf(lists));
}

void skip(Input& input, QzPerformEx& inspection, const CameraMetadata* info) {
    const auto lists = info != nullptr ? sizeLists(*info) : std::vector<std::vector<int32_t>>();
    const int32_t width = sideFrom(input, lists, 3264);
    const int32_t height = sideFrom(input, lists, 2448);
    const int32_t format = input.flag() ? HAL_PIXEL_FORMAT_YCbCr_420_888 : input.number<int32_t>();
    const bool panorama = width == 3264 && height == 2448 && format == HAL_PIXEL_FORMAT_YCbCr_420_888;
    const bool listed = std::any_of(lists.begin(), lists.end(),
                                    [&](const auto& list) { return isListed(list, width, height); });
    require(inspection.skipRoundBuffer(width, height, format) == (panorama || listed),
            "listed sizes are skipped, no others");
}

// A lock that the host may hold on its metadata. It must be unchanged when the host releases it.
class HostLock {
  public:
    HostLock(const CameraMetadata& metadata, bool held)
        : mMetadata(metadata), mHeld(held), mBuffer(held ? metadata.getAndLock() : nullptr) {}
    ~HostLock() {
        require((mMetadata.unlock(mBuffer) == android::OK) == mHeld, "inspection leaves locks as they are");
    }
    HostLock(const HostLock&) = delete;
    HostLock& operator=(const HostLock&) = delete;

  private:
    const CameraMetadata& mMetadata;
    const bool mHeld;
    const camera_metadata_t* const mBuffer;
};

void check(Input& input, QzPerformEx& inspection, bool locked) {
    android::List<const CameraMetadata> requests;
    for (size_t count = input.below(4); count > 0; --count) requests.push_back(metadataFrom(input, {}));
    const android::sp<android::CaptureResult> result = new android::CaptureResult;
    result->mMetadata = metadataFrom(input, resultTags());
    result->mResultExtras.frameNumber = input.number<int64_t>();
    std::list<HostLock> locks;
    for (const CameraMetadata& request : requests) locks.emplace_back(request, locked);
    locks.emplace_back(result->mMetadata, locked);
    const auto before = entriesOf(result->mMetadata);
    inspection.checkRequest(requests, input.flag());
    inspection.checkResult(*result);
    require(entriesOf(result->mMetadata) == before, "inspection changes nothing");
}

void dump(Input& input, const CameraMetadata& metadata) {
    static const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    metadata.dump(nowhere, static_cast<int>(input.below(3)), input.number<int8_t>());
}

}  // namespace

void execute(Input& input) {
    resultTags();
    declare(input.number());
    const android::sp<QzPerformEx> inspection = new QzPerformEx(0);
    resetLevel(*inspection);
    std::vector<uint32_t> lists;
    for (const char* list : kSizeLists) lists.push_back(QzName2Tag::getInstance()->vendorTagFromName(list));
    CameraMetadata info = metadataFrom(input, {});
    for (const uint32_t list : lists) addEntry(input, list, info);
    const uint8_t choices = input.number();
    const bool hasInfo = (choices & 1) != 0;
    const bool locked = (choices & 2) != 0;
    const HostLock lock(info, locked);
    while (!input.atEnd()) {
        setProperties(input);
        check(input, *inspection, locked);
        inspection->setInfo(hasInfo ? &info : nullptr);
        skip(input, *inspection, hasInfo ? &info : nullptr);
        dump(input, info);
    }
}

}  // namespace qz::fuzz
