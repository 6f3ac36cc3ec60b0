#include "verdict/Scratch.h"

#include "host/Camera.h"
#include "host/LogCapture.h"

namespace qzcam {

namespace {

using android::VendorTagDescriptor;

class VendorTagsInPlace {
  public:
    VendorTagsInPlace() : mBefore(VendorTagDescriptor::getGlobalVendorTagDescriptor()) {}
    ~VendorTagsInPlace() { VendorTagDescriptor::setAsGlobalVendorTagDescriptor(mBefore); }
    VendorTagsInPlace(const VendorTagsInPlace&) = delete;
    VendorTagsInPlace& operator=(const VendorTagsInPlace&) = delete;

  private:
    android::sp<VendorTagDescriptor> mBefore;
};

void replaceAll(android::CameraParameters2& parameters, const Texts& texts) {
    parameters = android::CameraParameters2();
    for (const auto& [key, value] : texts) parameters.set(key.c_str(), value.c_str());
}

}  // namespace

// Without any vendor tag the resolver would not get as far as saying which name it looks for.
Scratch::Scratch(const Device& device, const android::CameraMetadata& characteristics)
    : mCharacteristics(characteristics), mFreeIds(device.vendorTags) {
    mDevice.vendorTags = device.vendorTags;
    mDevice.hasVendorTags = true;
    mDevice.vendorTags.push_back({mFreeIds.next(), TYPE_BYTE, "qzcam.nothing", "nothing"});
}

Trace Scratch::request(const Texts& parameters, const Circumstances& circumstances,
                       android::status_t answer) {
    const VendorTagsInPlace restored;
    VendorTagDescriptor::setAsGlobalVendorTagDescriptor(mDescriptor);
    for (;;) {
        Trace before;
        Trace trace = pass(parameters, circumstances, answer, before);
        const bool known = mDescriptor != nullptr && !declareMissing(before);
        if (!declareMissing(trace) && known) return trace;
        installVendorTags(mDevice);
        mDescriptor = VendorTagDescriptor::getGlobalVendorTagDescriptor();
        if (mDescriptor == nullptr) return trace;  // the platform refused the tags, and would again
    }
}

Trace Scratch::pass(const Texts& parameters, const Circumstances& circumstances, android::status_t answer,
                    Trace& before) const {
    Trace trace;
    Trace* current = &before;
    const LogListener listener([&](const LogEvent& line) { addLogLine(*current, line); });
    Camera camera(circumstances.camera, mCharacteristics, [](Message&&) {});
    camera.translator().setCallBackFlag(circumstances.callbackFlag);
    camera.translator().setClientName(android::String16(circumstances.client.c_str()));
    camera.adapter().answerUpdates(android::OK);
    android::CameraMetadata metadata;
    replaceAll(camera.parameters(), circumstances.before);
    camera.translator().paramToMetaData(&metadata);

    replaceAll(camera.parameters(), parameters);
    current = &trace;
    camera.adapter().watch(&trace);
    camera.adapter().answerUpdates(answer);
    camera.translator().paramToMetaData(&metadata);
    camera.adapter().watch(nullptr);
    current = &before;
    return trace;
}

// A name without a section is one that no device can declare.
bool Scratch::declareMissing(const Trace& trace) {
    const size_t before = mAdded.size();
    for (const TraceStep& step : trace) {
        const size_t dot = step.name.rfind('.');
        if (step.kind != TraceStep::Kind::Missing || dot == std::string::npos) continue;
        if (!mAdded.insert(step.name).second) continue;
        mDevice.vendorTags.push_back(
            {mFreeIds.next(), TYPE_BYTE, step.name.substr(0, dot), step.name.substr(dot + 1)});
    }
    return mAdded.size() > before;
}

}  // namespace qzcam
