// SPDX-License-Identifier: Apache-2.0
// Logs requests and results as system properties select, and decides which buffers the host skips.
//
// The host creates one for each camera, and calls it when static metadata become known, with every batch of
// requests and with every result. The metadata may be locked: they are not changed, and the lock stays.
//
// The property "camera.qzperformex.loglevel" (decimal, 0x or 0 octal) is read with every batch of requests.
// It chooses how much is logged; each level adds to the one before:
//   0 nothing
//   1 the kind of request, and the checks of skipRoundBuffer
//   2 the chosen tags of static info and requests
//   3 the chosen tag of results, and their request id, trigger ids and frame number
//   4 all vendor tags and static entries, in setInfo
//   5 all entries of every request
// The properties "camera.qzperformex.captag", ".ctrltag" and ".stattag" choose a tag of the static info, of
// requests and of results by its dotted name, vendor or standard.
#pragma once

#include "QzHostInterfaces.h"

#include <camera/CaptureResult.h>
#include <utils/List.h>

#include <atomic>

namespace qz {

class QzPerformEx : public virtual android::RefBase {
  public:
    QZ_API explicit QzPerformEx(int32_t cameraId);
    QZ_API ~QzPerformEx() override;

    // Keeps `info` for skipRoundBuffer(). The host owns it and keeps it alive as long as this object. Call it
    // before the first skipRoundBuffer(), on the same thread. Null is ignored. Logs at the level that the
    // last batch of requests has read, so nothing before the first batch.
    QZ_API void setInfo(const android::CameraMetadata* info);

    // Logs a batch of requests. Called on the request thread. Costs one property read and one comparison at
    // level 0.
    QZ_API void checkRequest(android::List<const android::CameraMetadata>& requests, bool repeating);

    // Logs a result. Called on the result thread. Costs one comparison below level 3.
    QZ_API void checkResult(const android::CaptureResult& result);

    // Returns true if a buffer of this size (pixels) and pixel format (HAL_PIXEL_FORMAT_*) is skipped: the
    // buffer of the front panorama, and every size that the device lists as a sub-sensor JPEG size or a
    // super-resolution picture size.
    QZ_API bool skipRoundBuffer(int32_t width, int32_t height, int32_t format);

  private:
    friend struct TestPeer;

    void getTagInfo(const android::CameraMetadata& metadata, uint32_t tag);
    void dumpVendorTags();
    void dumpCurrentTags(const android::CameraMetadata& metadata);
    bool isCustomizedSize(int32_t width, int32_t height, uint32_t tag);
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount, bool required);

    // One level for all cameras of the process. The request thread writes it, the result thread reads it. A
    // reader with an old level only logs too much or too little.
    static std::atomic<uint32_t> sLogLevel;
    static uint32_t logLevel() { return sLogLevel.load(std::memory_order_relaxed); }

    int32_t mCameraId;
    const android::CameraMetadata* mStaticInfo = nullptr;
};

}  // namespace qz
