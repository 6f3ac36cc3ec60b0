// SPDX-License-Identifier: Apache-2.0
// Runs several request passes of one camera with any parameters on any device.
#include "Devices.h"
#include "ExactCamera.h"
#include "Queries.h"
#include "Target.h"

#include <cutils/properties.h>

namespace qz::fuzz {

namespace {

using android::CameraMetadata;

CameraMetadata pass(ExactCamera& camera) {
    CameraMetadata request;
    require(camera.translator().paramToMetaData(&request) == android::OK, "a pass returns 0");
    requireSound(request);
    return request;
}

// The state after a pass depends only on the parameters, so the same pass again changes nothing.
void requireSettled(ExactCamera& camera) {
    const auto first = entriesOf(pass(camera));
    const std::string parameters = camera.flattened();
    require(entriesOf(pass(camera)) == first, "a repeated request is the same");
    require(camera.flattened() == parameters, "a repeated request leaves the parameters alone");
}

void passOverOld(Input& input, ExactCamera& camera) {
    CameraMetadata request = metadataFrom(input, capabilityTags());
    const size_t before = request.entryCount();
    camera.translator().paramToMetaData(&request);
    requireSound(request);
    require(request.entryCount() >= before, "a pass erases nothing");
}

void tellHostState(Input& input, ExactCamera& camera) {
    static const std::vector<std::string> clients{"com.snapchat.android", "com.instagram.android", ""};
    const std::string client = input.flag() ? input.oneOf(clients) : input.bytes(40);
    camera.translator().setClientName(android::String16(client.c_str()));
    camera.translator().setCallBackFlag(input.number<uint32_t>());
    camera.translator().qzUpdateRecordingState(input.flag());
    property_set("camera.ignore.qz.customized.zsl", input.flag() ? "1" : "");
}

void step(Input& input, ExactCamera& camera) {
    const size_t choice = input.below(16);
    const std::string key = choice < 12 ? keyFrom(input) : std::string();
    if (choice < 11) {
        camera.adapter->set(key.c_str(), textFrom(input).c_str());
    } else if (choice == 11) {
        camera.adapter->remove(key.c_str());
    } else if (choice == 12) {
        tellHostState(input, camera);
    } else if (choice == 13) {
        pass(camera);
        requireSettled(camera);
    } else if (choice == 14) {
        require(camera.translator().metaDataToParam() == 0, "publishing returns 0");
    } else {
        passOverOld(input, camera);
    }
    camera.adapter->forget();
}

}  // namespace

void execute(Input& input) {
    parameterKeys();
    ExactCamera camera(input.number<int8_t>());
    camera.info = deviceFrom(input);
    for (int steps = 0; steps < 64 && !input.atEnd(); ++steps) step(input, camera);
    pass(camera);
    askAll(input, camera);
}

}  // namespace qz::fuzz
