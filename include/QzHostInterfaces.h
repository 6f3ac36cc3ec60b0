// The two interfaces between the library and its host, the camera service.
//
//   ExtParamInterface     what the translator may ask of the host's side; QzParametersEx implements it.
//   ExtCallBackInterface  where results go on their way to the application; the host implements it.
//
// The order of the virtual operations is binary interface: a host built against an earlier library calls by
// slot.
#pragma once

#if __cplusplus < 201703L
#error "The headers of qzcamera need C++17 or later: compile with -std=c++17"
// Ends the compilation, before errors that have the same cause.
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

// The translator's only way to the application parameters, the static characteristics and the request.
// Called on the thread that runs the translator's passes. Its ten operations take the slots behind the
// destructor pair.
class QZ_API ExtParamInterface : public virtual android::RefBase {
  public:
    ~ExtParamInterface() override = default;

    // Application parameters. get() gives null, getInt() -1 for an absent key; the text that get() gives is
    // the host's and stays valid until that key changes.
    virtual void set(const char* key, const char* value) = 0;
    virtual const char* get(const char* key) = 0;
    virtual int getInt(const char* key) = 0;

    // The static characteristic `tag`, or an entry of count 0. It is expected to hold minCount to maxCount
    // elements (maxCount 0: no upper bound); one that does not is reported in the log and returned all the
    // same. `required` asks for a report when it is absent. The data stay the host's.
    virtual camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                                   bool required) = 0;

    // Write `count` elements at `data` to entry `tag` of the request. Returns 0, or the status of the refusal
    // (unknown tag, other element type, locked buffer), which leaves the request as it was.
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

// Message codes that reach the application through ExtCallBackInterface. Beside each: what travels with it.
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

// Three OIS results share one message code; the first int32 of the data block, or ext1, tells them apart.
enum OisCalibKind : int32_t {
    OIS_GYRO_OFFSET = 1,  // data: int32 1, result, x offset, y offset
    OIS_HALL_CALIB = 2,   // data: int32 2, then the driver's blob as it came
    OIS_HALL_CHECK = 3,   // notify: 3, check result
};

// The road to the application. The host creates and owns it, keeps it alive as long as the CameraQzCallBack
// that it handed it to, and is called on the thread that brings the results. Its four operations take the
// slots behind the destructor pair.
class QZ_API ExtCallBackInterface : public virtual android::RefBase {
  public:
    ~ExtCallBackInterface() override = default;

    // A message with two numbers. msgType is a MessageType; the status goes back to the caller of
    // callbackHDCCalibResult and callbackFovCalibResult and is otherwise ignored.
    virtual status_t notifyCallback(int32_t msgType, int32_t ext1, int32_t ext2) = 0;

    // A message with `size` bytes at `data`, which are the library's and valid only during the call. The
    // status is ignored.
    virtual status_t dataCallback(int32_t msgType, const void* data, uint32_t size) = 0;

    // The host's own operation: it holds its slot, and the library never calls it.
    virtual status_t hostOperation() { return android::OK; }

    // The entry `tag` of a capture result, count 0 when absent. The data stay the result's.
    virtual camera_metadata_ro_entry findResultEntry(const android::CameraMetadata& result, uint32_t tag) = 0;
};

}  // namespace qz
