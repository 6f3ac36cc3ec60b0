#include "CapabilityNames.h"

#include "Camera.h"
#include "Device.h"
#include "LogCapture.h"

#include <camera/VendorTagDescriptor.h>

#include <string_view>
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

// A name that no section matches stands in the resolver's log line between the last two quotes.
std::string nameInLogLine(const LogEvent& line) {
    if (line.tag != "QzName2Tag" || line.text.find("find section for tag '") == std::string::npos) return {};
    const size_t end = line.text.rfind('\'');
    const size_t begin = line.text.rfind('\'', end - 1) + 1;
    return line.text.substr(begin, end - begin);
}

}  // namespace

CapabilityNames lookUpCapabilityNames() {
    Device stranger;
    stranger.hasVendorTags = true;
    stranger.vendorTags = {{CAMERA_METADATA_VENDOR_TAG_BOUNDARY, TYPE_BYTE, "qzcam.nothing", "nothing"}};
    const DescriptorInPlace descriptor(stranger);

    CapabilityNames names;
    std::set<std::string> seen;
    const LogListener listener([&](const LogEvent& line) {
        std::string name = nameInLogLine(line);
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
