#include <CameraQzCallBack.h>
#include <CameraQzSendCmd.h>
#include <QzParametersEx.h>
#include <QzPerformEx.h>
#include <cstdio>

using android::CameraMetadata;
using android::sp;

// The host's side of the road to the application.
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

int main() {
    android::CameraParameters2 parameters;  // the application's
    CameraMetadata characteristics;         // the HAL's
    Service service;

    // Opening a camera.
    sp<qz::QzParametersEx> ex = new qz::QzParametersEx(parameters, 0);
    ex->mInfo = &characteristics;
    sp<qz::CCameraQzParam> translator = ex->mCameraQzParam;
    translator->metaDataToParam();
    sp<qz::CameraQzCallBack> results = qz::CreateCameraQzCallBack(&service, translator.get());
    sp<qz::CameraQzSendCmd> commands = qz::CreateCameraQzSendCmd(translator.get());
    sp<qz::QzPerformEx> inspection = new qz::QzPerformEx(0);
    inspection->setInfo(&characteristics);

    // Every request, every result, every command.
    CameraMetadata request;
    parameters.set("iso", "1600");
    const android::status_t status = translator->paramToMetaData(&request);
    results->processQzCallBack(request);
    results->callbackSmartMode(1);
    std::printf("%s, request %d, focus motor at %d\n", parameters.flatten().c_str(), status,
                commands->sendCommand(qz::CMD_GET_FOCUS_VCM_VALUE, 0, 0));
}
