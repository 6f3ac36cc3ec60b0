// SPDX-License-Identifier: Apache-2.0
#include <CameraQzCallBack.h>
#include <CameraQzSendCmd.h>
#include <QzParametersEx.h>
#include <QzPerformEx.h>
#include <android/log.h>
#include <camera/VendorTagDescriptor.h>
#include <cstdio>

using android::CameraMetadata;
using android::sp;
using android::VendorTagDescriptor;

// The HAL: four vendor tags of the many that the library can use. The HAL chooses their numbers.
struct Tag {
    const char* section;
    const char* name;
    int type;
};
constexpr uint32_t kIsoValues = 0x80000000, kIso = 0x80000001, kFocusMotor = 0x80000002,
                   kAbnormal = 0x80000003;
constexpr Tag kTags[] = {{"com.ambrix.device.capabilities", "supported_iso_values", TYPE_BYTE},
                         {"com.ambrix.capture.metadata", "iso", TYPE_BYTE},
                         {"com.ambrix.capture.metadata", "focusVcmValue", TYPE_INT32},
                         {"com.ambrix.capture.metadata", "dualSensorAbnormal", TYPE_INT32}};

sp<VendorTagDescriptor> vendorTags() {
    vendor_tag_ops_t ops{};
    ops.get_tag_count = [](const vendor_tag_ops_t*) { return 4; };
    ops.get_all_tags = [](const vendor_tag_ops_t*, uint32_t* tags) {
        for (uint32_t tag = kIsoValues; tag <= kAbnormal; ++tag) *tags++ = tag;
    };
    ops.get_section_name = [](const vendor_tag_ops_t*, uint32_t tag) {
        return kTags[tag - kIsoValues].section;
    };
    ops.get_tag_name = [](const vendor_tag_ops_t*, uint32_t tag) { return kTags[tag - kIsoValues].name; };
    ops.get_tag_type = [](const vendor_tag_ops_t*, uint32_t tag) { return kTags[tag - kIsoValues].type; };
    sp<VendorTagDescriptor> descriptor;
    VendorTagDescriptor::createDescriptorFromOps(&ops, descriptor);
    return descriptor;
}

// Delivers messages to the application.
class Service : public qz::ExtCallBackInterface {
  public:
    android::status_t notifyCallback(int32_t msgType, int32_t ext1, int32_t ext2) override {
        return std::printf("notify %#x %d %d\n", static_cast<unsigned>(msgType), ext1, ext2) > 0 ? 0 : -1;
    }
    android::status_t dataCallback(int32_t msgType, const void*, uint32_t size) override {
        return std::printf("data %#x, %u bytes\n", static_cast<unsigned>(msgType), size) > 0 ? 0 : -1;
    }
    camera_metadata_ro_entry findResultEntry(const CameraMetadata& result, uint32_t tag) override {
        return result.find(tag);
    }
};

// One open camera.
struct Camera {
    Camera(android::CameraParameters2& parameters, const CameraMetadata& characteristics, Service& service)
        : adapter(new qz::QzParametersEx(parameters, 0)), inspection(new qz::QzPerformEx(0)) {
        adapter->mInfo = &characteristics;
        inspection->setInfo(&characteristics);
        translator = adapter->mCameraQzParam;
        translator->metaDataToParam();  // publishes the capabilities as parameters
        results = qz::CreateCameraQzCallBack(&service, translator.get());
        commands = qz::CreateCameraQzSendCmd(translator.get());
    }
    android::status_t request(CameraMetadata& settings) { return translator->paramToMetaData(&settings); }
    void result(const CameraMetadata& metadata) { results->processQzCallBack(metadata); }
    android::status_t command(int32_t code) { return commands->sendCommand(code, 0, 0); }

    sp<qz::QzParametersEx> adapter;
    sp<qz::QzPerformEx> inspection;
    sp<qz::CCameraQzParam> translator;
    sp<qz::CameraQzCallBack> results;  // destroyed before the translator, which it uses
    sp<qz::CameraQzSendCmd> commands;  // likewise
};

int main() {
    // Without this line the log has an error for each tag that this HAL does not declare.
    __android_log_set_minimum_priority(ANDROID_LOG_FATAL);

    // The service does this once for each process.
    VendorTagDescriptor::setAsGlobalVendorTagDescriptor(vendorTags());

    android::CameraParameters2 parameters;  // set by the application
    CameraMetadata characteristics;         // static info of the HAL
    const uint8_t isoValues[] = {0, 2, 7};
    characteristics.update(kIsoValues, isoValues, 3);
    Service service;

    Camera camera(parameters, characteristics, service);
    std::printf("iso-mode-values: %s\n", parameters.get("iso-mode-values"));

    CameraMetadata request;
    parameters.set("iso", "1600");
    const android::status_t status = camera.request(request);
    const camera_metadata_entry_t iso = request.find(kIso);
    std::printf("request: status %d, iso %d\n", status, iso.count == 1 ? iso.data.u8[0] : -1);

    CameraMetadata result;
    const int32_t position = 318, abnormal = 2;
    result.update(kFocusMotor, &position, 1);
    result.update(kAbnormal, &abnormal, 1);
    camera.result(result);

    std::printf("focus motor: %d\n", camera.command(qz::CMD_GET_FOCUS_VCM_VALUE));
}
