// A camera as a host has it. Its device's vendor tags are those of the process while it is measured.
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
    // Writes down into `record`, unless it is null, what is asked of its adapter and its host.
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
