// SPDX-License-Identifier: Apache-2.0
// Random devices: vendor tags, and static information, requests and results with entries of these tags.
#pragma once

#include "Inputs.h"

#include <camera/CameraMetadata.h>
#include <camera/CaptureResult.h>
#include <camera/VendorTagDescriptor.h>
#include <utils/List.h>

#include <deque>
#include <vector>

namespace qz::compare {

using Requests = android::List<const android::CameraMetadata>;

struct Device {
    const char* kind;
    android::sp<android::VendorTagDescriptor> tags;  // null: the HAL has not set it
    std::vector<android::CameraMetadata> metadata;
};

class Devices {
  public:
    Devices(const Inputs& inputs, uint64_t seed);

    // Makes a declaration the process's vendor tags.
    const Device& use(Random& random) const;

    const android::CameraMetadata& metadata(Random& random) const;
    Requests& requests(Random& random) { return random.of(mRequests); }
    const android::CaptureResult& result(Random& random) const { return *random.of(mResults); }

  private:
    void make(const Inputs& inputs, size_t number, Random& random);

    std::vector<Device> mDevices;
    std::deque<Requests> mRequests;
    std::vector<android::sp<android::CaptureResult>> mResults;
};

}  // namespace qz::compare
