// SPDX-License-Identifier: Apache-2.0
// Publishes any static metadata as parameters.
#include "Devices.h"
#include "ExactCamera.h"
#include "Queries.h"
#include "Target.h"

namespace qz::fuzz {

namespace {

// Returns the published parameters and the answers of the queries.
std::string outcomeOf(ExactCamera& camera) {
    const char* unused = nullptr;
    android::String8 sizes;
    camera.translator().getSupportedSuperResPicSizes(unused, unused, sizes);
    return camera.flattened() + ';' + sizes.c_str();
}

}  // namespace

void execute(Input& input) {
    capabilityTags();
    const bool twice = input.flag();
    ExactCamera camera(input.number<int8_t>());
    camera.info = deviceFrom(input);
    require(camera.translator().metaDataToParam() == 0, "publishing returns 0");
    const std::string published = outcomeOf(camera);
    camera.adapter->forget();
    askAll(input, camera);

    if (twice) {
        ExactCamera again(0);
        again.info = camera.info;
        again.translator().metaDataToParam();
        again.translator().metaDataToParam();
        require(outcomeOf(again) == published, "publishing twice is publishing once");
    }
    if (input.atEnd()) return;
    // Publishes the characteristics of another sensor after those of the first one.
    camera.info = metadataFrom(input, capabilityTags());
    require(camera.translator().metaDataToParam() == 0, "publishing returns 0");
    askAll(input, camera);
}

}  // namespace qz::fuzz
