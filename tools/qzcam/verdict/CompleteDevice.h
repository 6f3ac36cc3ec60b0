// SPDX-License-Identifier: Apache-2.0
// A device for comparison: the real device, with all missing tags of the rows added, which accepts every
// update. If the library takes a step there and not on the real device, the reason is the device. If it does
// not take the step even there, the reason is the library.
#pragma once

#include "device/Device.h"
#include "host/Trace.h"

#include <camera/CameraMetadata.h>
#include <camera/VendorTagDescriptor.h>
#include <utils/StrongPointer.h>

#include <cstdint>
#include <string>

namespace qzcam {

// State that influences a request beside its parameters.
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

    // Returns the steps of one request on a separate camera. During the call the process has other vendor
    // tags, and this thread's log is captured.
    Trace request(const Texts& parameters, const Circumstances& circumstances) const;

  private:
    const Device& mDevice;
    const android::CameraMetadata& mCharacteristics;
    mutable android::sp<android::VendorTagDescriptor> mDescriptor;  // made when it is wanted first
};

}  // namespace qzcam
