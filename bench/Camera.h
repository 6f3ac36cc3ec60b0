// SPDX-License-Identifier: Apache-2.0
// A camera of a host. The vendor tags of its device are those of the process during the measurement.
#pragma once

#include <CameraQzCallBack.h>
#include <QzParametersEx.h>
#include <camera/VendorTagDescriptor.h>

namespace qz::bench {

struct Calls;

struct Device {
    android::sp<android::VendorTagDescriptor> tags;
    android::CameraMetadata info;

    void install() const { android::VendorTagDescriptor::setAsGlobalVendorTagDescriptor(tags); }
};

struct Camera {
    // Records the calls to its adapter and its host in `record`, unless it is null.
    explicit Camera(const Device& device, Calls* record = nullptr);
    Camera(const Camera&) = delete;
    Camera& operator=(const Camera&) = delete;

    CCameraQzParam& translator() { return *adapter->mCameraQzParam; }

    const android::CameraMetadata& info;
    android::CameraParameters2 parameters;
    android::sp<ExtCallBackInterface> host;
    android::sp<QzParametersEx> adapter;
    android::sp<CameraQzCallBack> callbacks;
};

}  // namespace qz::bench
