// Inspection of what goes through, under system properties, and the buffers that are skipped for a round.
//
// The host creates one for each camera and calls it where static metadata become known, with every batch of
// requests and with every result. It writes nothing to the metadata, which may be locked, and leaves the lock
// as it is.
//
// "camera.qzperformex.loglevel" (decimal, 0x or 0 octal), read with every batch of requests, says how much is
// shown:
//   0 nothing  1 the kind of request  2 and the chosen tags of static info and requests
//   3 and the chosen tag and the identity of results  4 and, in setInfo, all vendor tags and static entries
//   5 and all entries of every request
// "camera.qzperformex.captag", ".ctrltag" and ".stattag" choose a tag of the static info, of requests and of
// results by its dotted name, vendor or standard.
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

    // Keeps `info`, the host's and alive as long as this object, for skipRoundBuffer; before the first of
    // these and on its thread. Null is passed over.
    QZ_API void setInfo(const android::CameraMetadata* info);

    // Request thread. Costs one property read and a comparison while the level is 0.
    QZ_API void checkRequest(android::List<const android::CameraMetadata>& requests, bool repeating);

    // Result thread. Costs one comparison while the level is below 3.
    QZ_API void checkResult(const android::CaptureResult& result);

    // Whether a buffer of this size (pixels) and pixel format (HAL_PIXEL_FORMAT_*) is skipped: the front
    // panorama's, and every size that the device lists as a sub-sensor JPEG or a super-resolution picture
    // size.
    QZ_API bool skipRoundBuffer(int32_t width, int32_t height, int32_t format);

  private:
    friend struct TestPeer;

    void getTagInfo(const android::CameraMetadata& metadata, uint32_t tag);
    void dumpVendorTags();
    void dumpCurrentTags(const android::CameraMetadata& metadata);
    bool isCustomizedSize(int32_t width, int32_t height, uint32_t tag);
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount, bool required);

    // One level for all cameras of the process: the request thread writes it, the result thread reads it, and
    // a stale one only changes how much is shown.
    static std::atomic<uint32_t> sLogLevel;
    static uint32_t logLevel() { return sLogLevel.load(std::memory_order_relaxed); }

    int32_t mCameraId;
    const android::CameraMetadata* mStaticInfo = nullptr;
};

}  // namespace qz
