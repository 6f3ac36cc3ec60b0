// SPDX-License-Identifier: Apache-2.0
// Lists of modes, numbers and sizes that need a function.
#include "capabilities/CapabilitySteps.h"

#include "capabilities/Capability.h"
#include "text/Log.h"
#include "text/Text.h"
#include "text/Vocabularies.h"

namespace qz {

using android::String8;

// Adds the extended modes to the scene modes that the host has published. The first mode is appended without
// a separator, and a comma follows each mode except the entry's last element: applications rely on this form.
void CapabilitySteps::getSupportedExtScene(CCameraQzParam& camera) {
    const Capability<uint8_t> scenes(camera.mExtParam, ANDROID_CONTROL_AVAILABLE_SCENE_MODES, 0);
    if (scenes.unusable()) LOG(line::ExtSceneCount, scenes.count());
    if (!scenes.usable()) return;
    const char* current = camera.mExtParam->get("scene-mode-values");
    if (current == nullptr) {
        LOG(line::NoSceneModes, __func__);
        return;
    }
    Text modes;
    modes << current;
    for (size_t i = 0; i < scenes.count(); ++i) {
        const char* mode = findWord(kExtScene, scenes[i]);
        if (mode == nullptr) continue;
        modes << mode;
        if (i + 1 < scenes.count()) modes << ',';
    }
    camera.mExtParam->set("scene-mode-values", modes.c_str());
}

// The flag is published as true for any number except 0. The sizes require exactly 1.
void CapabilitySteps::getSupportedSuperPictureSizes(CCameraQzParam& camera) {
    const Capability<uint8_t> flag(camera.mExtParam, CAPABILITY("super_resolution_supported"), 1);
    if (flag.unusable()) LOG(line::SuperResolutionCount, flag.count());
    if (!flag.usable()) return;
    publishFlag(camera.mExtParam, "key-super-resolution-supported", flag);
    LOG(line::SuperResolution, published(camera.mExtParam, "key-super-resolution-supported"));
    if (flag[0] != 1) {
        LOG(line::NoSuperResolution, __func__);
        return;
    }
    const Capability<int32_t> sizes(camera.mExtParam, CAPABILITY("superResolutionPictureSize"), 2);
    const String8 list = sizeList(sizes.elements());
    if (list.length() == 0) return;
    camera.mExtParam->set("super-resolution-picture-size-values", list.c_str());
    camera.mSuperResPicSizes = list;
    LOG(line::SuperResolutionSizes, __func__, list.c_str());
}

// Each element is logged before it is converted.
void CapabilitySteps::getSupportedMakeUpEffect(CCameraQzParam& camera) {
    const Capability<uint8_t> effects(camera.mExtParam, CAPABILITY("makeUpEffectSupported"), 1);
    if (effects.unusable()) LOG(line::MakeUpCount, effects.count());
    if (!effects.usable()) return;
    Text words;
    for (size_t i = 0; i < effects.count(); ++i) {
        LOG(line::MakeUpElement, static_cast<int>(i), effects[i]);
        if (i > 0) words << ',';
        words << wordOf(kMakeUp, effects[i]);
    }
    camera.mExtParam->set("qz-makeup-support", words.c_str());
    LOG(line::MakeUp, published(camera.mExtParam, "qz-makeup-support"));
}

void CapabilitySteps::getFrontFlashLevels(CCameraQzParam& camera) {
    const Capability<int32_t> levels(camera.mExtParam, CAPABILITY("availbaleFrontFlashLevel"), 0);
    if (levels.unusable()) LOG(line::FrontFlashCount, levels.count());
    if (!levels.usable()) return;
    camera.mExtParam->set("front_flash_adjust_supported", "true");
    publishNumbers(camera.mExtParam, "front_flash_supports", levels);
}

// The only list with a comma after its last element.
void CapabilitySteps::getSensorBinningSizes(CCameraQzParam& camera) {
    const Capability<int32_t> sizes(camera.mExtParam, CAPABILITY("qz-sensor-binning-sizes-supported"), 0);
    if (sizes.unusable()) LOG(line::BinningSizesCount, sizes.count());
    if (!sizes.usable()) return;
    Text list;
    for (const int32_t size : sizes.elements()) list << size << ',';
    camera.mExtParam->set("qz-sensor-binning-sizes-supported", list.c_str());
    LOG(line::BinningSizes, published(camera.mExtParam, "qz-sensor-binning-sizes-supported"));
}

// An entry without a complete pair publishes and stores the empty text.
void CapabilitySteps::getSubSupportedPictureSizes(CCameraQzParam& camera) {
    const Capability<int32_t> sizes(camera.mExtParam, CAPABILITY("qzSubSensorJpegSize"), 0);
    if (sizes.unusable()) LOG(line::SubPictureSizesCount, sizes.count());
    if (!sizes.usable()) return;
    camera.mSubPicSizes = sizeList(sizes.elements());
    camera.mExtParam->set("sub-picture-size-values", camera.mSubPicSizes.c_str());
    LOG(line::SubPictureSizes, __func__, camera.mSubPicSizes.c_str());
}

}  // namespace qz
