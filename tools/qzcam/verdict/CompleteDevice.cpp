// SPDX-License-Identifier: Apache-2.0
#include "verdict/CompleteDevice.h"

#include "device/ScopedVendorTags.h"
#include "host/Camera.h"
#include "host/LogCapture.h"

#include <request/Parameters.h>

#include <set>
#include <string>

namespace qzcam {

namespace {

using android::VendorTagDescriptor;

void replaceAll(android::CameraParameters2& parameters, const Texts& texts) {
    parameters = android::CameraParameters2();
    for (const auto& [key, value] : texts) parameters.set(key.c_str(), value.c_str());
}

// A name without a section is a name that no device can declare.
Device completed(const Device& device) {
    Device complete;
    complete.hasVendorTags = true;
    complete.vendorTags = device.vendorTags;
    FreeTagIds freeIds(device.vendorTags);
    const TagNames declared(device.vendorTags);
    std::set<std::string> added;
    for (const qz::Parameter& row : qz::kParameters) {
        for (const qz::EntryRow& entry : row.entries) {
            const std::string name = entry.tag;
            const size_t dot = name.rfind('.');
            const bool isMissing = dot != std::string::npos && declared.find(name) == nullptr;
            if (!isMissing || !added.insert(name).second) continue;
            complete.vendorTags.push_back(
                {freeIds.next(), entry.type, name.substr(0, dot), name.substr(dot + 1)});
        }
    }
    return complete;
}

}  // namespace

CompleteDevice::CompleteDevice(const Device& device, const android::CameraMetadata& characteristics)
    : mDevice(device), mCharacteristics(characteristics) {}

void CompleteDevice::installTags() const {
    if (mDescriptor == nullptr) {
        installVendorTags(completed(mDevice));
        mDescriptor = VendorTagDescriptor::getGlobalVendorTagDescriptor();
    }
    VendorTagDescriptor::setAsGlobalVendorTagDescriptor(mDescriptor);
}

PassSteps CompleteDevice::request(const Texts& parameters, const Circumstances& circumstances) const {
    const ScopedVendorTags restored;
    installTags();
    PassSteps steps;
    bool listens = false;
    const LogListener listener([&](const LogEvent& line) {
        if (listens) addLogLine(steps, line);
    });
    Camera camera(circumstances.camera, mCharacteristics, [](Message&&) {});
    camera.translator().setCallBackFlag(circumstances.callbackFlag);
    camera.translator().setClientName(android::String16(circumstances.client.c_str()));
    camera.adapter().answerUpdates(android::OK);
    android::CameraMetadata metadata;
    replaceAll(camera.parameters(), circumstances.before);
    camera.translator().paramToMetaData(&metadata);

    replaceAll(camera.parameters(), parameters);
    listens = true;
    camera.adapter().watch(&steps);
    camera.translator().paramToMetaData(&metadata);
    camera.adapter().watch(nullptr);
    return steps;
}

}  // namespace qzcam
