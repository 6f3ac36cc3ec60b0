// Image-quality lists. All hold bytes of a vocabulary.
#include "CCameraQzParam.h"
#include "capabilities/Capability.h"
#include "core/Vocabulary.h"

namespace qz {

// The one list here that says nothing when it is empty.
int32_t CCameraQzParam::getSupportedIso() {
    const Capability<uint8_t> iso(mExtParam, CAPABILITY("supported_iso_values"), 0);
    if (iso.holds()) publishWords(mExtParam, "iso-mode-values", iso, isoModeEnumToString);
    return 0;
}

int32_t CCameraQzParam::getSupportedContrast() {
    const Capability<uint8_t> contrast(mExtParam, CAPABILITY("availbaleContrast"), 0);
    if (contrast.lacks()) LOGI("supportedContrast.count = %zu", contrast.count());
    if (contrast.holds()) publishWords(mExtParam, "contrast-values", contrast, contrastModeEnumToString);
    return 0;
}

int32_t CCameraQzParam::getSupportedSaturation() {
    const Capability<uint8_t> saturation(mExtParam, CAPABILITY("availbaleSaturation"), 0);
    if (saturation.lacks()) LOGI("supportedSaturation.count = %zu", saturation.count());
    if (saturation.holds())
        publishWords(mExtParam, "saturation-values", saturation, saturationModeEnumToString);
    return 0;
}

int32_t CCameraQzParam::getSupportedBrightness() {
    const Capability<uint8_t> brightness(mExtParam, CAPABILITY("availbaleBrightness"), 0);
    if (brightness.lacks()) LOGI("supportedBrightness.count = %zu", brightness.count());
    if (brightness.holds())
        publishWords(mExtParam, "brightness-values", brightness, brightnessModeEnumToString);
    return 0;
}

int32_t CCameraQzParam::getSupportedSharpness() {
    const Capability<uint8_t> sharpness(mExtParam, CAPABILITY("supported_sharpness"), 0);
    if (sharpness.lacks()) LOGI("supported sharpness.count = %zu", sharpness.count());
    if (sharpness.holds()) publishWords(mExtParam, "sharpness-values", sharpness, sharpnessModeEnumToString);
    return 0;
}

int32_t CCameraQzParam::getSupportedMetering() {
    const Capability<uint8_t> metering(mExtParam, CAPABILITY("availbaleMetering"), 0);
    if (metering.lacks()) LOGI("supportedMetering.count = %zu", metering.count());
    if (metering.holds()) publishWords(mExtParam, "metering-mode-values", metering, meteringModeEnumToString);
    return 0;
}

}  // namespace qz
