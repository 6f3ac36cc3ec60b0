// SPDX-License-Identifier: Apache-2.0
// A device for comparison: the real device, with all missing tags of the rows added, which accepts every
// update. If the library takes a step only on the complete device, the real device is the reason. If it takes
// the step on neither, the library is the reason.
#pragma once

#include "device/Device.h"
#include "host/PassSteps.h"

#include <camera/CameraMetadata.h>
#include <camera/VendorTagDescriptor.h>
#include <utils/StrongPointer.h>

#include <cstdint>
#include <string>

namespace qzcam {

// State that influences a request in addition to its parameters.
struct Circumstances {
    int32_t camera = 0;
    uint32_t callbackFlag = 0;
    std::string client;
    Texts before = {};  // parameters of the previous request
};

class CompleteDevice {
  public:
    // The arguments must outlive the object.
    CompleteDevice(const Device& device, const android::CameraMetadata& characteristics);

    // Returns the steps of one request on a separate camera. During the call the process has other vendor
    // tags, and this thread's log is captured.
    PassSteps request(const Texts& parameters, const Circumstances& circumstances) const;

  private:
    void installTags() const;

    const Device& mDevice;
    const android::CameraMetadata& mCharacteristics;
    mutable android::sp<android::VendorTagDescriptor> mDescriptor;  // created when it is first needed
};

}  // namespace qzcam
