// SPDX-License-Identifier: Apache-2.0
// Saves the process's vendor tags, and restores them at the end of the scope.
#pragma once

#include "device/Device.h"

#include <camera/VendorTagDescriptor.h>
#include <utils/StrongPointer.h>

namespace qzcam {

class VendorTagsInPlace {
  public:
    VendorTagsInPlace() : mBefore(android::VendorTagDescriptor::getGlobalVendorTagDescriptor()) {}
    explicit VendorTagsInPlace(const Device& device) : VendorTagsInPlace() { installVendorTags(device); }
    ~VendorTagsInPlace() { android::VendorTagDescriptor::setAsGlobalVendorTagDescriptor(mBefore); }
    VendorTagsInPlace(const VendorTagsInPlace&) = delete;
    VendorTagsInPlace& operator=(const VendorTagsInPlace&) = delete;

  private:
    android::sp<android::VendorTagDescriptor> mBefore;
};

}  // namespace qzcam
