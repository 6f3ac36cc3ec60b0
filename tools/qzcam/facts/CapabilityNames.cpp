#include "facts/CapabilityNames.h"

#include "device/Device.h"
#include "host/Camera.h"
#include "host/LogCapture.h"

#include <camera/VendorTagDescriptor.h>

#include <utility>

namespace qzcam {

namespace {

using android::VendorTagDescriptor;

class DescriptorInPlace {
  public:
    explicit DescriptorInPlace(const Device& device)
        : mBefore(VendorTagDescriptor::getGlobalVendorTagDescriptor()) {
        installVendorTags(device);
    }
    ~DescriptorInPlace() { VendorTagDescriptor::setAsGlobalVendorTagDescriptor(mBefore); }
    DescriptorInPlace(const DescriptorInPlace&) = delete;
    DescriptorInPlace& operator=(const DescriptorInPlace&) = delete;

  private:
    android::sp<VendorTagDescriptor> mBefore;
};

}  // namespace

CapabilityNames lookUpCapabilityNames() {
    Device stranger;
    stranger.hasVendorTags = true;
    stranger.vendorTags = {{CAMERA_METADATA_VENDOR_TAG_BOUNDARY, TYPE_BYTE, "qzcam.nothing", "nothing"}};
    const DescriptorInPlace descriptor(stranger);

    CapabilityNames names;
    std::set<std::string> seen;
    const LogListener listener([&](const LogEvent& line) {
        std::string name = missingName(line);
        if (!name.empty() && seen.insert(name).second) names.all.push_back(std::move(name));
    });
    const android::CameraMetadata nothing;
    Camera camera(0, nothing, [](Message&&) {});
    camera.translator().metaDataToParam();
    for (auto& published : camera.adapter().takePublished()) {
        names.unconditional.insert(std::move(published.key));
    }
    return names;
}

}  // namespace qzcam
