// Lists of modes, numbers and sizes.
#include "CCameraQzParam.h"
#include "capabilities/Capability.h"
#include "core/Text.h"
#include "core/Vocabulary.h"

namespace qz {

using android::String8;

int32_t CCameraQzParam::getSupportedDualPrimary() {
    const Capability<uint8_t> modes(mExtParam, CAPABILITY("availbaleDualPrimary"), 0);
    if (modes.lacks()) LOGI("supportedDualPrimary.count = %zu", modes.count());
    if (modes.holds()) publishWords(mExtParam, "qz-dual-primary-supported", modes, dualPrimaryEnumToString);
    return 0;
}

// Adds the extended modes to the scene modes that the host has published. The first is appended without a
// separator, and a comma follows each unless it is the entry's last element: applications know these texts.
int32_t CCameraQzParam::getSupportedExtScene() {
    const Capability<uint8_t> scenes(mExtParam, ANDROID_CONTROL_AVAILABLE_SCENE_MODES, 0);
    if (scenes.lacks()) LOGI("supportedExtScene.count = %zu", scenes.count());
    if (!scenes.holds()) return 0;
    const char* current = mExtParam->get("scene-mode-values");
    if (current == nullptr) {
        LOGI("%s(), extended scene mode is null.", __func__);
        return 0;
    }
    Text modes;
    modes << current;
    for (size_t i = 0; i < scenes.count(); ++i) {
        const char* mode = extSceneModeEnumToString(scenes[i]);
        if (mode == nullptr) continue;
        modes << mode;
        if (i + 1 < scenes.count()) modes << ",";
    }
    mExtParam->set("scene-mode-values", modes.c_str());
    return 0;
}

int32_t CCameraQzParam::getSupportedColorEffect() {
    const Capability<uint8_t> effects(mExtParam, CAPABILITY("availbaleEffectModes"), 0);
    if (effects.lacks()) LOGI("supportedColorEffect.count = %zu", effects.count());
    if (!effects.holds()) return 0;
    publishWords(mExtParam, "qz-effect-supported", effects, colorEffectModeEnumToString);
    LOGI("supported color effect = %s", published(mExtParam, "qz-effect-supported"));
    return 0;
}

int32_t CCameraQzParam::getSupportedExposureModes() {
    const Capability<uint8_t> modes(mExtParam, CAPABILITY("availbaleLightPaintingModes"), 0);
    if (modes.lacks()) LOGI("supportedExpMode.count = %zu", modes.count());
    if (!modes.holds()) return 0;
    publishWords(mExtParam, "qz-exposure-mode-values", modes, exposureModeEnumToString);
    LOGI("supported exposure modes = %s", published(mExtParam, "qz-exposure-mode-values"));
    return 0;
}

int32_t CCameraQzParam::getSupportedRelayoutModes() {
    const Capability<uint8_t> modes(mExtParam, CAPABILITY("availbaleRelayoutModes"), 0);
    if (modes.lacks()) LOGI("supportedRelayoutMode.count = %zu", modes.count());
    if (!modes.holds()) return 0;
    publishWords(mExtParam, "qz-relayout-mode-values", modes, relayoutModeEnumToString);
    LOGI("supported relayout modes = %s", published(mExtParam, "qz-relayout-mode-values"));
    return 0;
}

// This list and the next say nothing when they are empty.
int32_t CCameraQzParam::getSupernightSupportedIso() {
    const Capability<uint8_t> iso(mExtParam, CAPABILITY("availbaleSupernightIso"), 1);
    if (!iso.holds()) return 0;
    publishWords(mExtParam, "key-supernight-supported-iso", iso, isoModeEnumToString);
    LOGI("exposure mode supported ISO = %s", published(mExtParam, "key-supernight-supported-iso"));
    return 0;
}

int32_t CCameraQzParam::getSupernightSupportedExposure() {
    const Capability<uint8_t> times(mExtParam, CAPABILITY("availbaleSupernightExposureTime"), 1);
    if (!times.holds()) return 0;
    publishWords(mExtParam, "key-supernight-supported-exposure", times, manualExposureModeEnumToString);
    LOGI("exposure mode supported exposure time = %s",
         published(mExtParam, "key-supernight-supported-exposure"));
    return 0;
}

// The line of an element comes before its conversion, which may log an error.
int32_t CCameraQzParam::getSupportedMakeUpEffect() {
    const Capability<uint8_t> effects(mExtParam, CAPABILITY("makeUpEffectSupported"), 1);
    if (effects.lacks()) LOGI("supportedMakeUpEffect.count = %zu", effects.count());
    if (!effects.holds()) return 0;
    Text words;
    for (size_t i = 0; i < effects.count(); ++i) {
        LOGI("supportedMakeUpEffect.data[%d] = %d", static_cast<int>(i), effects[i]);
        if (i > 0) words << ",";
        words << makeUpEffectModeEnumToString(effects[i]);
    }
    mExtParam->set("qz-makeup-support", words.c_str());
    LOGI("supported make up effect = %s", published(mExtParam, "qz-makeup-support"));
    return 0;
}

// This list and the next say nothing when they are empty.
int32_t CCameraQzParam::getFocusAssistFlashModes() {
    const Capability<uint8_t> modes(mExtParam, CAPABILITY("flashAssistFocusSupported"), 1);
    if (!modes.holds()) return 0;
    publishWords(mExtParam, "qz-focus-assist-flash-mode-supported", modes, focusAssistFlashModeEnumToString);
    return 0;
}

int32_t CCameraQzParam::getSupportedColorModes() {
    const Capability<uint8_t> modes(mExtParam, CAPABILITY("supportedColorModes"), 1);
    if (!modes.holds()) return 0;
    publishWords(mExtParam, "qz-supported-color-modes", modes, colorModeEnumToString);
    LOGI("supported color modes: %s", published(mExtParam, "qz-supported-color-modes"));
    return 0;
}

int32_t CCameraQzParam::getSupportedVideoFps() {
    const Capability<int32_t> fps(mExtParam, CAPABILITY("videoFpsSupported"), 0);
    if (fps.lacks()) LOGI("supportedVideoFPS.count = %zu", fps.count());
    if (!fps.holds()) return 0;
    publishNumbers(mExtParam, "qz-video-fps-supported", fps);
    LOGI("supported video fps = %s", published(mExtParam, "qz-video-fps-supported"));
    return 0;
}

int32_t CCameraQzParam::getFrontFlashLevels() {
    const Capability<int32_t> levels(mExtParam, CAPABILITY("availbaleFrontFlashLevel"), 0);
    if (levels.lacks()) LOGI("supportedFrontFlashAdjust.count = %zu", levels.count());
    if (!levels.holds()) return 0;
    mExtParam->set("front_flash_adjust_supported", "true");
    publishNumbers(mExtParam, "front_flash_supports", levels);
    return 0;
}

// The one list with a comma behind its last element too.
int32_t CCameraQzParam::getSensorBinningSizes() {
    const Capability<int32_t> sizes(mExtParam, CAPABILITY("qz-sensor-binning-sizes-supported"), 0);
    if (sizes.lacks()) LOGI("sensorBinningSizesEntry.count = %zu", sizes.count());
    if (!sizes.holds()) return 0;
    Text list;
    for (const int32_t size : sizes.elements()) list << size << ",";
    mExtParam->set("qz-sensor-binning-sizes-supported", list.c_str());
    LOGD("sensor binning sizes supported = %s", published(mExtParam, "qz-sensor-binning-sizes-supported"));
    return 0;
}

// Published for any number but 0; the sizes ask for exactly 1.
int32_t CCameraQzParam::getSupportedSuperPictureSizes() {
    const Capability<uint8_t> flag(mExtParam, CAPABILITY("super_resolution_supported"), 1);
    if (flag.lacks()) LOGI("superResolution.count = %zu", flag.count());
    if (!flag.holds()) return 0;
    publishFlag(mExtParam, "key-super-resolution-supported", flag);
    LOGI("super resolution supported = %s", published(mExtParam, "key-super-resolution-supported"));
    if (flag[0] != 1) {
        LOGI("%s(), super resolution is not supported!", __func__);
        return 0;
    }
    const Capability<int32_t> sizes(mExtParam, CAPABILITY("superResolutionPictureSize"), 2);
    const String8 list = sizeList(sizes.elements());
    if (list.length() == 0) return 0;
    mExtParam->set("super-resolution-picture-size-values", list.c_str());
    mSuperResPicSizes = list;
    LOGI("%s(), supported super resolution picture sizes: %s", __func__, list.c_str());
    return 0;
}

// An entry without a whole pair publishes, and keeps, the empty text.
int32_t CCameraQzParam::getSubSupportedPictureSizes() {
    const Capability<int32_t> sizes(mExtParam, CAPABILITY("qzSubSensorJpegSize"), 0);
    if (sizes.lacks()) LOGI("subAvailableJpegSize.count = %zu", sizes.count());
    if (!sizes.holds()) return 0;
    mSubPicSizes = sizeList(sizes.elements());
    mExtParam->set("sub-picture-size-values", mSubPicSizes.c_str());
    LOGI("%s SubSupportedPictureSizes:%s", __func__, mSubPicSizes.c_str());
    return 0;
}

}  // namespace qz
