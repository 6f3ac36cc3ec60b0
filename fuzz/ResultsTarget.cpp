// SPDX-License-Identifier: Apache-2.0
// Processes any sequence of capture results, with commands between them.
#include "Devices.h"
#include "ExactCamera.h"
#include "Target.h"

#include <CameraQzCallBack.h>
#include <CameraQzSendCmd.h>
#include <unistd.h>

#include <numeric>

// The focus contrast command waits for results. Here they arrive only after it, so it must not wait.
int usleep(useconds_t /*time*/) { return 0; }

namespace qz::fuzz {

namespace {

void requireSize(bool right) { require(right, "a data block has the size of its message"); }

class ExactHost : public ExtCallBackInterface {
  public:
    status_t notifyCallback(int32_t message, int32_t ext1, int32_t ext2) override {
        switch (static_cast<MessageType>(message)) {
            case MSG_SMART_MODE:
            case MSG_PREVIEW_PARAMETERS:
            case MSG_MMI_FOCUS_TEST:
            case MSG_LPD_PARAMETERS:
                require(false, "this message carries data");
                break;
            case MSG_OIS_CALIB_RESULT:
                require(ext1 == OIS_HALL_CHECK, "only the hall check is a notification");
                break;
            default:
                require(message != 0 && (message & (message - 1)) == 0, "a message is one bit");
        }
        return ext1 == ext2 ? android::OK : android::INVALID_OPERATION;
    }

    status_t dataCallback(int32_t message, const void* data, uint32_t size) override {
        // Reads every byte, so that a sanitizer checks each.
        const auto* const bytes = static_cast<const uint8_t*>(data);
        mSum = std::accumulate(bytes, bytes + size, mSum);
        switch (static_cast<MessageType>(message)) {
            case MSG_SMART_MODE:
                requireSize(size == 8);
                break;
            case MSG_PREVIEW_PARAMETERS:
                requireSize(size == 3 * sizeof(int32_t));
                break;
            case MSG_MMI_FOCUS_TEST:
                requireSize(size % sizeof(int32_t) == 0 && size >= 8 && size <= 80);
                break;
            case MSG_LPD_PARAMETERS:
                requireSize(size % sizeof(int32_t) == 0 && size > 0);
                break;
            case MSG_OIS_CALIB_RESULT:
                requireSize(size > sizeof(int32_t));
                break;
            default:
                require(false, "this message is a notification");
        }
        return android::OK;
    }

    camera_metadata_ro_entry findResultEntry(const android::CameraMetadata& result, uint32_t tag) override {
        return entries.copy(result.find(tag));
    }

    ExactEntries entries;

  private:
    unsigned mSum = 0;
};

struct Host {
    explicit Host(ExactCamera& camera)
        : interface(new ExactHost),
          callbacks(CreateCameraQzCallBack(interface.get(), &camera.translator())),
          commands(CreateCameraQzSendCmd(&camera.translator())) {}

    android::sp<ExactHost> interface;
    android::sp<CameraQzCallBack> callbacks;
    android::sp<CameraQzSendCmd> commands;
};

void command(Input& input, Host& host) {
    const int32_t number =
        input.flag() ? 202 + static_cast<int32_t>(input.below(2)) : input.number<int32_t>();
    const status_t status =
        host.commands->sendCommand(number, input.number<int8_t>(), input.number<int8_t>());
    if (number == CMD_GET_FOCUS_VCM_VALUE) return;
    const bool isContrast = number == CMD_GET_FOCUS_CONTRAST_VALUE;
    require(isContrast ? status >= -1 && status < 1 << 30 : status == android::BAD_VALUE,
            "a command gives 30 bits of contrast or its failure");
}

void step(Input& input, ExactCamera& camera, Host& host) {
    switch (input.below(8)) {
        case 0:
            return command(input, host);
        case 1:
            return host.callbacks->callbackSmartMode(input.number<int32_t>());
        case 2:
            host.callbacks->callbackHDCCalibResult(input.number<int32_t>());
            host.callbacks->callbackFovCalibResult(input.number<int32_t>());
            return;
        case 3: {  // the translator's switches, among them the professional mode
            camera.adapter->set(keyFrom(input).c_str(), textFrom(input).c_str());
            android::CameraMetadata request;
            camera.translator().paramToMetaData(&request);
            return;
        }
        default:
            require(host.callbacks->processQzCallBack(metadataFrom(input, resultTags())) == android::OK,
                    "a result is always processed");
            host.interface->entries.clear();
    }
}

}  // namespace

void execute(Input& input) {
    resultTags();
    declare(input.number());
    ExactCamera camera(0);
    if (input.flag()) camera.adapter->set("qz-professional-mode", "on");
    android::CameraMetadata request;
    camera.translator().paramToMetaData(&request);
    Host host(camera);
    for (int steps = 0; steps < 32 && !input.atEnd(); ++steps) step(input, camera, host);
}

}  // namespace qz::fuzz
