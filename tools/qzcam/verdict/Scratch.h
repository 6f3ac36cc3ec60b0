// A request made for comparison only, on a device that declares and takes whatever the library looks for.
// What a parameter does there and not on the real device is the device's doing; what it does not even do
// there is the library's.
#pragma once

#include "device/Device.h"
#include "host/Trace.h"

#include <camera/CameraMetadata.h>
#include <camera/VendorTagDescriptor.h>
#include <utils/Errors.h>
#include <utils/StrongPointer.h>

#include <cstdint>
#include <set>
#include <string>

namespace qzcam {

// What beside parameters decides about a request: what the host told the translator, and the parameters of
// the request before.
struct Circumstances {
    int32_t camera = 0;
    uint32_t callbackFlag = 0;
    std::string client;
    Texts before = {};
};

class Scratch {
  public:
    // Both must outlive it.
    Scratch(const Device& device, const android::CameraMetadata& characteristics);

    // The steps of one request on a camera of its own. Each update gets `answer`. For that time the vendor
    // tags of the process are others, and nobody else hears this thread's log.
    Trace request(const Texts& parameters, const Circumstances& circumstances,
                  android::status_t answer = android::OK);

  private:
    Trace pass(const Texts& parameters, const Circumstances& circumstances, android::status_t answer,
               Trace& before) const;
    bool declareMissing(const Trace& trace);

    Device mDevice;  // grows
    const android::CameraMetadata& mCharacteristics;
    FreeTagIds mFreeIds;
    std::set<std::string> mAdded;
    android::sp<android::VendorTagDescriptor> mDescriptor;
};

}  // namespace qzcam
