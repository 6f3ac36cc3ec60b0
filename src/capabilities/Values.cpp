// Single numbers and texts, published or kept for the other passes.
#include "CCameraQzParam.h"
#include "capabilities/Capability.h"
#include "core/BoundedMemory.h"

#include <algorithm>

namespace qz {

int32_t CCameraQzParam::getQuickThumbnailSize() {
    const Capability<int32_t> size(mExtParam, CAPABILITY("qz-quickthumbnail-size"), 1);
    if (size.lacks()) LOGI("quickthumbnailsize.count = %zu", size.count());
    if (!size.holds()) return 0;
    mMaxQuickThumbnailSize = size[0];
    LOGI("mMaxQuickThumbnailSize:%d", mMaxQuickThumbnailSize);
    return 0;
}

// A device that declares the threshold and has none gets 0.
int32_t CCameraQzParam::getSlowJpegModeThreshold() {
    const Capability<int64_t> threshold(mExtParam, CAPABILITY("qz-slow-jpeg-mode-threshold"), 1);
    if (threshold.declared()) mSlowJpegModeThreshold = 0;
    if (threshold.lacks()) LOGI("slowJpegModeThreshold.count = %zu", threshold.count());
    if (!threshold.holds()) return 0;
    mSlowJpegModeThreshold = threshold[0];
    LOGI("mSlowJpegModeThreshold:%lld", static_cast<long long>(mSlowJpegModeThreshold));
    return 0;
}

int32_t CCameraQzParam::getInsertPreviewCount() {
    const Capability<int32_t> count(mExtParam, CAPABILITY("qz-insert-preview-count-in-burst"), 0);
    if (count.lacks()) LOGI("insertPrevCount.count = %zu", count.count());
    if (!count.holds()) return 0;
    mInsertPreviewCount = std::max(count[0], 0);
    LOGI("Insert preview count = %d", mInsertPreviewCount);
    return 0;
}

int32_t CCameraQzParam::getRequireVideoStatus() {
    const Capability<uint8_t> require(mExtParam, CAPABILITY("qzRequireVideoStatus"), 0);
    if (require.lacks()) LOGI("requireVideoStatus.count = %zu", require.count());
    if (require.holds()) mRequireVideoStatus = require[0] == 1;
    return 0;
}

int32_t CCameraQzParam::getPreShutterSupported() {
    const Capability<uint8_t> preShutter(mExtParam, CAPABILITY("qz-pre-shutter-supported"), 0);
    if (preShutter.lacks()) LOGI("preShutterSupported.count = %zu", preShutter.count());
    if (!preShutter.holds()) return 0;
    mPreShutterSupported = preShutter[0] == 1;
    LOGI("%s(), preshutter supported: %s", __func__, mPreShutterSupported ? "true" : "false");
    return 0;
}

int32_t CCameraQzParam::getManualVcmStartValue() {
    const Capability<int32_t> start(mExtParam, CAPABILITY("manualVcmStartValue"), 1);
    if (start.lacks()) LOGI("manualVcmStart.count = %zu", start.count());
    if (start.holds()) publishNumber(mExtParam, "qz-vcm-start-value", start[0]);
    return 0;
}

int32_t CCameraQzParam::getManualVcmEndValue() {
    const Capability<int32_t> end(mExtParam, CAPABILITY("manualVcmEndValue"), 1);
    if (end.lacks()) LOGI("manualVcmEnd.count = %zu", end.count());
    if (end.holds()) publishNumber(mExtParam, "qz-vcm-end-value", end[0]);
    return 0;
}

int32_t CCameraQzParam::getBurstSupportCount() {
    const Capability<int32_t> shots(mExtParam, CAPABILITY("burstCountSupported"), 1);
    if (shots.lacks()) LOGI("burstSupportCount.count = %zu", shots.count());
    if (shots.holds()) publishNumber(mExtParam, "qz-burst-support-count", shots[0]);
    return 0;
}

int32_t CCameraQzParam::getBurstJpegQuality() {
    const Capability<int32_t> quality(mExtParam, CAPABILITY("burstJpegQuality"), 1);
    if (quality.lacks()) LOGI("burstJpegQuality.count = %zu", quality.count());
    if (!quality.holds()) return 0;
    publishNumber(mExtParam, "qz-burst-jpeg-quality", quality[0]);
    LOGI("burst jpeg quality value = %s", published(mExtParam, "qz-burst-jpeg-quality"));
    return 0;
}

int32_t CCameraQzParam::getAfMmiFarThreshold() {
    const Capability<int32_t> threshold(mExtParam, CAPABILITY("qz-af-mmi-far-threashold"), 1);
    if (threshold.lacks()) LOGI("FarContrast.count = %zu", threshold.count());
    if (threshold.holds()) publishNumber(mExtParam, "qz-af-mmi-far-threashold", threshold[0]);
    return 0;
}

int32_t CCameraQzParam::getAfMmiNearThreshold() {
    const Capability<int32_t> threshold(mExtParam, CAPABILITY("qz-af-mmi-near-threashold"), 1);
    if (threshold.lacks()) LOGI("NearContrast.count = %zu", threshold.count());
    if (threshold.holds()) publishNumber(mExtParam, "qz-af-mmi-near-threashold", threshold[0]);
    return 0;
}

int32_t CCameraQzParam::getHighVideoCallbackThreshold() {
    const Capability<uint8_t> threshold(mExtParam, CAPABILITY("highVideoCallbackThresholdSupported"), 1);
    if (threshold.lacks()) LOGI("high video call back supported count is: %zu", threshold.count());
    if (!threshold.holds()) return 0;
    publishNumber(mExtParam, "high-video-callback-threshold-supported", threshold[0]);
    LOGI("high video call back supported = %s",
         published(mExtParam, "high-video-callback-threshold-supported"));
    mHighVideoCallbackThreshold = threshold[0];
    return 0;
}

// A number, though its key reads like a flag.
int32_t CCameraQzParam::getDarkRaiderModeSupported() {
    const Capability<int32_t> mode(mExtParam, CAPABILITY("darkRaiderModeSupported"), 0);
    if (mode.lacks()) LOGI("darkRaiderModeEntry.count = %zu", mode.count());
    if (!mode.holds()) return 0;
    publishNumber(mExtParam, "qz-dark-raider-mode-supported", mode[0]);
    LOGD("dark raider mode supported = %s", published(mExtParam, "qz-dark-raider-mode-supported"));
    return 0;
}

// The one count line at error level.
int32_t CCameraQzParam::getQzExposureCompStep() {
    const Capability<float> step(mExtParam, CAPABILITY("qzExposureCompensationStep"), 1);
    if (step.lacks()) LOGE("supportedQzEv.count = %zu", step.count());
    if (!step.holds()) return 0;
    char text[32] = {};
    if (snprintf_s(text, sizeof(text), sizeof(text), "%f", static_cast<double>(step[0])) == -1) {
        LOGE("%s(), snprintf_s failed!", __func__);
    }
    mExtParam->set("qz-exposure-compensation-step", text);
    return 0;
}

int32_t CCameraQzParam::getLcdCompensateSupported() {
    const Capability<uint8_t> compensate(mExtParam, CAPABILITY("lcdCompensateSupported"), 1);
    if (compensate.lacks()) LOGI("supportedLCDC.count = %zu", compensate.count());
    if (compensate.holds() && compensate[0] == 1)
        mExtParam->set("lcd-compensate-supported-values", "off,auto");
    return 0;
}

int32_t CCameraQzParam::getSupportedApertureValue() {
    const Capability<uint8_t> aperture(mExtParam, CAPABILITY("apertureValueSupported"), 0);
    if (aperture.lacks()) LOGI("apertureValue.count = %zu", aperture.count());
    if (aperture.holds()) publishText(mExtParam, "qz-supported-aperture-value", aperture);
    return 0;
}

int32_t CCameraQzParam::getMmiTestFeatureSupported() {
    const Capability<uint8_t> features(mExtParam, CAPABILITY("mmiTestFeatureSupported"), 0);
    if (features.lacks()) LOGI("mmiTestFeatureValue.count = %zu", features.count());
    if (!features.holds()) return 0;
    publishText(mExtParam, "qz-mmi-test-feature-supported", features);
    LOGI("mmi test feature supported value = %s", published(mExtParam, "qz-mmi-test-feature-supported"));
    return 0;
}

// Two gains; a device that has only one gets 0 for the other.
int32_t CCameraQzParam::getOisDefaultGryoGain() {
    const Capability<float> gain(mExtParam, CAPABILITY("oisDefaultGryoGain"), 0);
    if (gain.lacks()) LOGI("defaultGainEntry.count = %zu", gain.count());
    if (!gain.holds()) return 0;
    const auto x = static_cast<double>(gain[0]);
    const auto y = gain.count() > 1 ? static_cast<double>(gain[1]) : 0.0;
    char text[30] = {};
    if (snprintf_s(text, sizeof(text), sizeof(text), "(%f,%f)", x, y) == -1) {
        LOGE("%s(), snprintf_s failed!", __func__);
    }
    mExtParam->set("qz_ois_default_gryo_gain", text);
    LOGI("default gryo gain = %s", published(mExtParam, "qz_ois_default_gryo_gain"));
    return 0;
}

}  // namespace qz
