// SPDX-License-Identifier: Apache-2.0
// Decides by size and format which buffers are skipped.
#include "QzName2Tag.h"
#include "QzPerformEx.h"
#include "inspect/SizeLists.h"
#include "tags/EntryView.h"
#include "tags/TagLabels.h"
#include "text/Checked.h"

#include <system/graphics.h>

namespace qz {

namespace {

constexpr int32_t kPanoramaWidth = 3264;
constexpr int32_t kPanoramaHeight = 2448;

}  // namespace

// The format matters for the panorama only: a listed size is skipped in any format.
bool QzPerformEx::skipRoundBuffer(int32_t width, int32_t height, int32_t format) {
    const bool shown = logLevel() != 0;
    if (shown) LOG(line::BufferSize, __func__, width, height, static_cast<uint32_t>(format));
    if (width == kPanoramaWidth && height == kPanoramaHeight && format == HAL_PIXEL_FORMAT_YCbCr_420_888) {
        if (shown) LOG(line::PanoramaSkipped, __func__);
        return true;
    }
    const QzName2Tag* names = QzName2Tag::getInstance();
    for (const EntryRow& list : kSizeLists) {
        const uint32_t tag = names->vendorTagFromName(list.tag);
        if (names->validTag(tag) == 1 && isCustomizedSize(width, height, tag)) return true;
    }
    return false;
}

// A size that is found is logged at every level, level 0 included.
bool QzPerformEx::isCustomizedSize(int32_t width, int32_t height, uint32_t tag) {
    const bool shown = logLevel() != 0;
    if (shown) LOG(line::Entered, __func__);
    const EntryView<int32_t> sizes(getStaticInfo(tag, 2, 0, true));
    if (sizes.count() == 0) {
        if (shown) LOG(line::NoSizes, __func__);
        return false;
    }
    for (size_t i = 0; i + 1 < sizes.count(); i += 2) {
        if (sizes[i] != width || sizes[i + 1] != height) continue;
        LOG(line::SizeListed, __func__, width, height, tag);
        return true;
    }
    if (shown) LOG(line::SizeNotListed, __func__, width, height, tag);
    return false;
}

camera_metadata_ro_entry QzPerformEx::getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                                    bool required) {
    const bool shown = logLevel() != 0;
    if (shown) LOG(line::Entered, __func__);
    if (mStaticInfo == nullptr) {
        LOG(line::NoStaticInfo, __func__);
        camera_metadata_ro_entry none;  // NOLINT(cppcoreguidelines-pro-type-member-init): cleared here
        succeeded<line::InspectorNotCleared>(memset_s(&none, sizeof(none), 0, sizeof(none)), __func__);
        return none;
    }
    const camera_metadata_ro_entry entry = mStaticInfo->find(tag);
    if (!shown) return entry;
    if (entry.count == 0 && required) {
        const TagLabel label(tag);
        LOG(line::StaticEntryMissing, __func__, label.section(), label.name(), tag);
    } else if (entry.count < minCount || (maxCount != 0 && entry.count > maxCount)) {
        const TagLabel label(tag);
        LOG(line::StaticEntryMalformed, __func__, label.section(), label.name(), tag, minCount, maxCount,
            entry.count);
    }
    return entry;
}

}  // namespace qz
