// SPDX-License-Identifier: Apache-2.0
#include "QzPerformEx.h"

#include "QzName2Tag.h"
#include "tags/TagLabels.h"
#include "text/BoundedMemory.h"
#include "text/Log.h"
#include "text/Numbers.h"
#include "text/Properties.h"

#include <camera/VendorTagDescriptor.h>

#include <cstring>
#include <vector>

namespace qz {

namespace {

using android::CameraMetadata;

// Inspection levels. Each logs more than the one before.
constexpr uint32_t kShowRequestKind = 1;
constexpr uint32_t kShowChosenTags = 2;
constexpr uint32_t kShowResults = 3;
constexpr uint32_t kDumpStaticInfo = 4;
// One level above the static info: requests come with every frame, the static info once.
constexpr uint32_t kDumpRequests = 5;

// Returns the tag that a property chooses, or INVALID_TAG. Vendor names are tried before standard ones. No
// tag has a name of fewer than ten characters.
uint32_t chosenTag(const Property& property) {
    constexpr size_t shortestName = 10;
    const auto name = valueOf(property);
    if (strlen(name.data()) < shortestName) return QzName2Tag::INVALID_TAG;
    const QzName2Tag* names = QzName2Tag::getInstance();
    const uint32_t tag = names->vendorTagFromName(name.data());
    return names->validTag(tag) != 0 ? tag : names->androidTagFromName(name.data());
}

// Text for a missing name in the log.
constexpr char kNull[] = "(null)";

void showTag(const char* caller, uint32_t tag) {
    const TagLabel label(tag, kNull);
    LOG(line::ShownTag, caller, tag, label.section(), label.name());
}

// Returns the name of an element type for failure lines, followed by a blank.
const char* typeLabel(uint8_t type) {
    constexpr const char* labels[] = {"TYPE_BYTE ",  "TYPE_INT32 ",  "TYPE_FLOAT ",
                                      "TYPE_INT64 ", "TYPE_DOUBLE ", "TYPE_RATIONAL "};
    return type < NUM_TYPES ? labels[type] : "";
}

// Floating-point numbers are printed without decimals, and an int64 is followed by a blank: scripts that read
// these lines expect it.
int formatElement(char* text, size_t size, const camera_metadata_ro_entry& entry, size_t i) {
    switch (entry.type) {
        case TYPE_BYTE:
            return snprintf_s(text, size, size, "byte, value: %u", entry.data.u8[i]);
        case TYPE_INT32:
            return snprintf_s(text, size, size, "int32, value: %d", entry.data.i32[i]);
        case TYPE_FLOAT:
            return snprintf_s(text, size, size, "float, value: %.f", static_cast<double>(entry.data.f[i]));
        case TYPE_INT64:
            return snprintf_s(text, size, size, "int64, value: %lld ",
                              static_cast<long long>(entry.data.i64[i]));
        case TYPE_DOUBLE:
            return snprintf_s(text, size, size, "double, value: %.f", entry.data.d[i]);
        case TYPE_RATIONAL:
            return snprintf_s(text, size, size, "rational, value: %d/%d", entry.data.r[i].numerator,
                              entry.data.r[i].denominator);
        default:
            return snprintf_s(text, size, size, "known type");
    }
}

}  // namespace

std::atomic<uint32_t> QzPerformEx::sLogLevel{0};

QzPerformEx::QzPerformEx(int32_t cameraId) : mCameraId(cameraId) {
    LOG(line::Inspector, __func__, static_cast<void*>(this), mCameraId);
}

QzPerformEx::~QzPerformEx() { LOG(line::Inspector, __func__, static_cast<void*>(this), mCameraId); }

void QzPerformEx::setInfo(const CameraMetadata* info) {
    LOG(line::StaticInfo, __func__, static_cast<void*>(this));
    if (info == nullptr) return;
    mStaticInfo = info;
    if (logLevel() >= kShowChosenTags) getTagInfo(*info, chosenTag(property::staticTag));
    if (logLevel() >= kDumpStaticInfo) {
        dumpVendorTags();
        dumpCurrentTags(*info);
    }
}

void QzPerformEx::checkRequest(android::List<const CameraMetadata>& requests, bool repeating) {
    const uint32_t level = parseUint32(valueOf(property::logLevel).data());
    sLogLevel.store(level, std::memory_order_relaxed);
    if (level < kShowRequestKind) return;

    LOG(line::RequestKind, __func__, repeating ? "repeating" : "capture");
    if (level >= kShowChosenTags) {
        for (const CameraMetadata& request : requests) {
            getTagInfo(request, chosenTag(property::requestTag));
        }
    }
    if (level >= kDumpRequests) {
        for (const CameraMetadata& request : requests) dumpCurrentTags(request);
    }
}

void QzPerformEx::checkResult(const android::CaptureResult& result) {
    if (logLevel() < kShowResults) return;
    getTagInfo(result.mMetadata, chosenTag(property::resultTag));
    const android::CaptureResultExtras& extras = result.mResultExtras;
    LOG(line::ResultIdentity, __func__, extras.requestId, extras.burstId, extras.afTriggerId,
        extras.precaptureTriggerId, static_cast<long long>(extras.frameNumber), extras.partialResultCount);
}

void QzPerformEx::getTagInfo(const CameraMetadata& metadata, uint32_t tag) {
    if (tag == QzName2Tag::INVALID_TAG || logLevel() < kShowChosenTags) return;
    showTag(__func__, tag);
    if (!metadata.exists(tag)) {
        LOG(line::TagMissing, __func__, tag);
        return;
    }
    const camera_metadata_ro_entry entry = metadata.find(tag);
    if (entry.count == 0) {
        LOG(line::TagEmpty, __func__, tag);
        return;
    }
    for (size_t i = 0; i < entry.count; ++i) {
        char text[40] = {};
        if (formatElement(text, sizeof(text), entry, i) == -1) {
            LOG(line::ElementCut, __func__, typeLabel(entry.type));
        }
        LOG(line::Element, __func__, i + 1, entry.count, entry.index, entry.tag, text);
    }
}

void QzPerformEx::dumpVendorTags() {
    const android::sp<android::VendorTagDescriptor> descriptor =
        android::VendorTagDescriptor::getGlobalVendorTagDescriptor();
    if (descriptor == nullptr) {
        LOG(line::NoVendorTags, __func__);
        return;
    }
    const int count = descriptor->getTagCount();
    LOG(line::VendorTagCount, __func__, count);
    if (count <= 0) return;
    std::vector<uint32_t> tags(static_cast<size_t>(count));
    descriptor->getTagArray(tags.data());
    for (const uint32_t tag : tags) {
        LOG(line::VendorTag, __func__, tag, textOr(descriptor->getSectionName(tag), kNull),
            textOr(descriptor->getTagName(tag), kNull));
    }
}

// Entries can be read one by one only from locked metadata. The host may hold the lock, and unlocking would
// end the host's lock. So a copy is locked.
void QzPerformEx::dumpCurrentTags(const CameraMetadata& metadata) {
    const CameraMetadata copy(metadata);  // NOLINT(performance-unnecessary-copy-initialization)
    const camera_metadata_t* buffer = copy.getAndLock();
    const size_t count = metadata.entryCount();
    LOG(line::EntryCount, __func__, count);
    for (size_t i = 0; i < count; ++i) {
        camera_metadata_ro_entry entry = {};
        if (get_camera_metadata_ro_entry(buffer, i, &entry) != 0) continue;
        showTag(__func__, entry.tag);
    }
}

}  // namespace qz
