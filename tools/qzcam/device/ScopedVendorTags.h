// SPDX-License-Identifier: Apache-2.0
// Saves the process's vendor tags, and restores them at the end of the scope.
#pragma once

#include "device/Device.h"

#include <camera/VendorTagDescriptor.h>
#include <utils/StrongPointer.h>

namespace qzcam {

class ScopedVendorTags {
  public:
    ScopedVendorTags() : mBefore(android::VendorTagDescriptor::getGlobalVendorTagDescriptor()) {}
    explicit ScopedVendorTags(const Device& device) : ScopedVendorTags() { installVendorTags(device); }
    ~ScopedVendorTags() { android::VendorTagDescriptor::setAsGlobalVendorTagDescriptor(mBefore); }
    ScopedVendorTags(const ScopedVendorTags&) = delete;
    ScopedVendorTags& operator=(const ScopedVendorTags&) = delete;

  private:
    android::sp<android::VendorTagDescriptor> mBefore;
};

}  // namespace qzcam
