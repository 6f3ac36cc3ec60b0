// Any static metadata, published as parameters.
#include "Devices.h"
#include "ExactCamera.h"
#include "Queries.h"
#include "Target.h"

namespace qz::fuzz {

namespace {

// What is published, and what is kept to be asked for.
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
    // Another sensor's characteristics, over what the first one left.
    camera.info = metadataFrom(input, capabilityTags());
    require(camera.translator().metaDataToParam() == 0, "publishing returns 0");
    askAll(input, camera);
}

}  // namespace qz::fuzz
