// A device for comparison: the real one, completed by every tag of the rows that it lacks, and taking every
// update. A step that the library takes there and not on the real device is the device's doing; a step that
// it does not take even there is the library's.
#pragma once

#include "device/Device.h"
#include "host/Trace.h"

#include <camera/CameraMetadata.h>
#include <camera/VendorTagDescriptor.h>
#include <utils/StrongPointer.h>

#include <cstdint>
#include <string>

namespace qzcam {

// Whatever decides about a request beside its parameters.
struct Circumstances {
    int32_t camera = 0;
    uint32_t callbackFlag = 0;
    std::string client;
    Texts before = {};  // parameters of the request before
};

class CompleteDevice {
  public:
    // Both must outlive it.
    CompleteDevice(const Device& device, const android::CameraMetadata& characteristics);

    // Returns the steps of one request on a camera of its own. For that time the vendor tags of the process
    // are others, and nobody else hears this thread's log.
    Trace request(const Texts& parameters, const Circumstances& circumstances) const;

  private:
    const Device& mDevice;
    const android::CameraMetadata& mCharacteristics;
    mutable android::sp<android::VendorTagDescriptor> mDescriptor;  // made when it is wanted first
};

}  // namespace qzcam
