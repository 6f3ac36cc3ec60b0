// Any static metadata, published as parameters.
#include "Devices.h"
#include "ExactCamera.h"
#include "Queries.h"
#include "Target.h"

namespace qz::fuzz {

void execute(Input& input) {
    capabilityTags();
    declare(input.number());
    ExactCamera camera(input.number<int8_t>());
    camera.info = metadataFrom(input, capabilityTags());
    require(camera.translator().metaDataToParam() == 0, "publishing returns 0");
    const std::string published = camera.flattened();
    camera.adapter->forget();
    askAll(input, camera);

    if (input.flag()) {
        ExactCamera again(0);
        again.info = camera.info;
        again.translator().metaDataToParam();
        again.translator().metaDataToParam();
        require(again.flattened() == published, "publishing twice is publishing once");
    }
    if (input.atEnd()) return;
    // Another sensor's characteristics, over what the first one left.
    camera.info = metadataFrom(input, capabilityTags());
    require(camera.translator().metaDataToParam() == 0, "publishing returns 0");
    askAll(input, camera);
}

}  // namespace qz::fuzz
