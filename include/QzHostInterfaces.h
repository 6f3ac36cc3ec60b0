// SPDX-License-Identifier: Apache-2.0
// The two interfaces between the library and its host, the camera service.
//
// ExtParamInterface gives parameters, static info and requests to the translator: QzParametersEx implements
// it. ExtCallBackInterface delivers messages to the application: the host implements it.
//
// The order of the virtual operations is part of the binary interface: a host built against an earlier
// library calls them by slot.
#pragma once

#if __cplusplus < 201703L
#error "The headers of qzcamera need C++17 or later: compile with -std=c++17"
// Ends the compilation here, before further errors with the same cause.
#include <C++17>
#endif

#include <camera/CameraMetadata.h>
#include <system/camera_metadata.h>
#include <utils/Errors.h>
#include <utils/RefBase.h>
#include <utils/String8.h>

#include <cstddef>
#include <cstdint>

#define QZ_API __attribute__((visibility("default")))

namespace qz {

using android::status_t;

// Access of the translator to the application parameters, the static characteristics and the request. It is
// called on the thread that runs the translator's passes. Its ten operations take the slots after the pair of
// destructors.
class QZ_API ExtParamInterface : public virtual android::RefBase {
  public:
    ~ExtParamInterface() override = default;

    // Application parameters. For an absent key get() returns null and getInt() returns -1. The host owns the
    // text that get() returns. It stays valid until that key changes.
    virtual void set(const char* key, const char* value) = 0;
    virtual const char* get(const char* key) = 0;
    virtual int getInt(const char* key) = 0;

    // Returns the static characteristic `tag`, or an entry of count 0. The entry should hold minCount to
    // maxCount elements (maxCount 0: no upper bound). Another count is logged, and the entry is returned
    // nevertheless. With `required` an absent entry is logged too. The host owns the data.
    virtual camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                                   bool required) = 0;

    // Write `count` elements at `data` to the entry `tag` of the request. Return 0, or the status of a
    // refused update (unknown tag, other element type, locked buffer), which leaves the request unchanged.
    virtual status_t update(android::CameraMetadata* metadata, uint32_t tag, const uint8_t* data,
                            size_t count) = 0;
    virtual status_t update(android::CameraMetadata* metadata, uint32_t tag, const int32_t* data,
                            size_t count) = 0;
    virtual status_t update(android::CameraMetadata* metadata, uint32_t tag,
                            const camera_metadata_rational* data, size_t count) = 0;
    virtual status_t update(android::CameraMetadata* metadata, uint32_t tag, const float* data,
                            size_t count) = 0;
    virtual status_t update(android::CameraMetadata* metadata, uint32_t tag, const double* data,
                            size_t count) = 0;
    virtual status_t update(android::CameraMetadata* metadata, uint32_t tag,
                            const android::String8& value) = 0;
};

// Message codes for ExtCallBackInterface, each with its form and its numbers.
enum MessageType : int32_t {
    MSG_SMART_MODE = 0x100,                      // data: 8-byte smart-mode block
    MSG_TARGET_TRACKING = 0x10000,               // notify: x offset, y offset
    MSG_DUAL_CAMERA_VERIFY_RESULT = 0x40000,     // notify: verification result, index
    MSG_DUAL_ABNORMAL = 0x80000,                 // notify: abnormal value, 0
    MSG_EXPOSURE_MESURE = 0x100000,              // notify: exposure time in seconds, 0
    MSG_EXPOSURE_MODE_PREVIEW_STATE = 0x200000,  // notify: 0, 0
    MSG_MMI_PDAF_VERIFY_RESULT = 0x400000,       // notify: verification result, 0
    MSG_PREVIEW_PARAMETERS = 0x800000,           // data: int32 exposure time (us), ISO, exposure hint
    MSG_LASER_CALIBRATION_RESULT = 0x1000000,    // notify: calibration result, 0
    MSG_HDC_CALIB_RESULT = 0x2000000,            // notify: calibration result, 0
    MSG_FOV_CALIB_RESULT = 0x4000000,            // notify: calibration result, 0
    MSG_DARK_RAIDER_CAPTURE = 0x8000000,         // notify: capture state, 0
    MSG_MMI_FOCUS_TEST = 0x10000000,             // data: 2 to 20 int32 focus values
    MSG_MMI_FEATURE_TEST_RESULT = 0x20000000,    // notify: test result, request
    MSG_OIS_CALIB_RESULT = 0x40000000,           // data or notify, told apart by OisCalibKind
    MSG_LPD_PARAMETERS = INT32_MIN,              // 0x80000000; data: int32 values
};

// Three OIS results share one message code. The first int32 of the data block, or ext1, distinguishes them.
enum OisCalibKind : int32_t {
    OIS_GYRO_OFFSET = 1,  // data: int32 1, result, x offset, y offset
    OIS_HALL_CALIB = 2,   // data: int32 2, then the driver's blob, unchanged
    OIS_HALL_CHECK = 3,   // notify: 3, check result
};

// Delivers messages to the application. The host creates and owns it, and keeps it alive as long as the
// CameraQzCallBack that uses it. It is called on the thread that delivers the results. Its four operations
// take the slots after the pair of destructors.
class QZ_API ExtCallBackInterface : public virtual android::RefBase {
  public:
    ~ExtCallBackInterface() override = default;

    // Sends a message with two numbers. msgType is a MessageType. callbackHDCCalibResult and
    // callbackFovCalibResult return the status to their caller; otherwise it is ignored.
    virtual status_t notifyCallback(int32_t msgType, int32_t ext1, int32_t ext2) = 0;

    // Sends a message with `size` bytes at `data`. The library owns them; they are valid only during the
    // call. The status is ignored.
    virtual status_t dataCallback(int32_t msgType, const void* data, uint32_t size) = 0;

    // An operation of the host's own. It keeps its slot; the library never calls it.
    virtual status_t hostOperation() { return android::OK; }

    // Returns the entry `tag` of a capture result, count 0 if it is absent. The result owns the data.
    virtual camera_metadata_ro_entry findResultEntry(const android::CameraMetadata& result, uint32_t tag) = 0;
};

}  // namespace qz
