// SPDX-License-Identifier: Apache-2.0
// Single values that need a function: they are stored for the other passes, or published in a form of their
// own.
#include "capabilities/CapabilitySteps.h"

#include "capabilities/Capability.h"
#include "text/Checked.h"

#include <algorithm>

namespace qz {

void CapabilitySteps::getQuickThumbnailSize(CCameraQzParam& camera) {
    const Capability<int32_t> size(camera.mExtParam, CAPABILITY("qz-quickthumbnail-size"), 1);
    if (size.unusable()) LOG(line::QuickThumbnailSizeCount, size.count());
    if (!size.usable()) return;
    camera.mMaxQuickThumbnailSize = size[0];
    LOG(line::QuickThumbnailSize, camera.mMaxQuickThumbnailSize);
}

// If the device declares the threshold but has no entry, it is 0.
void CapabilitySteps::getSlowJpegModeThreshold(CCameraQzParam& camera) {
    const Capability<int64_t> threshold(camera.mExtParam, CAPABILITY("qz-slow-jpeg-mode-threshold"), 1);
    if (threshold.declared()) camera.mSlowJpegModeThreshold = 0;
    if (threshold.unusable()) LOG(line::SlowJpegThresholdCount, threshold.count());
    if (!threshold.usable()) return;
    camera.mSlowJpegModeThreshold = threshold[0];
    LOG(line::SlowJpegThreshold, static_cast<long long>(camera.mSlowJpegModeThreshold));
}

void CapabilitySteps::getLcdCompensateSupported(CCameraQzParam& camera) {
    const Capability<uint8_t> compensate(camera.mExtParam, CAPABILITY("lcdCompensateSupported"), 1);
    if (compensate.unusable()) LOG(line::LcdCompensateCount, compensate.count());
    if (compensate.usable() && compensate[0] == 1)
        camera.mExtParam->set("lcd-compensate-supported-values", "off,auto");
}

// The flag is published as true for any number except 0. The member requires exactly 1.
void CapabilitySteps::getVideoCallbackSupported(CCameraQzParam& camera) {
    const Capability<uint8_t> callback(camera.mExtParam, CAPABILITY("videoCallbackSupported"), 1);
    if (callback.unusable()) LOG(line::VideoCallbackCount, callback.count());
    if (!callback.usable()) return;
    camera.mVideoCallbackSupported = callback[0] == 1;
    publishFlag(camera.mExtParam, "video-callback-supported", callback);
    LOG(line::VideoCallback, published(camera.mExtParam, "video-callback-supported"));
}

void CapabilitySteps::getHighVideoCallbackThreshold(CCameraQzParam& camera) {
    const Capability<uint8_t> threshold(camera.mExtParam, CAPABILITY("highVideoCallbackThresholdSupported"),
                                        1);
    if (threshold.unusable()) LOG(line::HighVideoCallbackCount, threshold.count());
    if (!threshold.usable()) return;
    publishNumber(camera.mExtParam, "high-video-callback-threshold-supported", threshold[0]);
    LOG(line::HighVideoCallback, published(camera.mExtParam, "high-video-callback-threshold-supported"));
    camera.mHighVideoCallbackThreshold = threshold[0];
}

// The only count line at error level.
void CapabilitySteps::getQzExposureCompStep(CCameraQzParam& camera) {
    const Capability<float> step(camera.mExtParam, CAPABILITY("qzExposureCompensationStep"), 1);
    if (step.unusable()) LOG(line::ExposureCompStepCount, step.count());
    if (!step.usable()) return;
    char text[32] = {};
    printed<line::FormattingFailed>(
        snprintf_s(text, sizeof(text), sizeof(text), "%f", static_cast<double>(step[0])), __func__);
    camera.mExtParam->set("qz-exposure-compensation-step", text);
}

void CapabilitySteps::getInsertPreviewCount(CCameraQzParam& camera) {
    const Capability<int32_t> count(camera.mExtParam, CAPABILITY("qz-insert-preview-count-in-burst"), 0);
    if (count.unusable()) LOG(line::InsertPreviewCount, count.count());
    if (!count.usable()) return;
    camera.mInsertPreviewCount = std::max(count[0], 0);
    LOG(line::InsertPreview, camera.mInsertPreviewCount);
}

// No capability belongs to this key: every device of this library supports it.
void CapabilitySteps::getVideoSmoothAfSupported(CCameraQzParam& camera) {
    camera.mExtParam->set("qz_video_smooth_af_supported", "true");
    LOG(line::VideoSmoothAf, published(camera.mExtParam, "qz_video_smooth_af_supported"));
}

// The flag is published as true for any number except 0. The member requires exactly 1.
void CapabilitySteps::getFrameworkZslSupported(CCameraQzParam& camera) {
    const Capability<uint8_t> zsl(camera.mExtParam, CAPABILITY("qzFwkZslSupported"), 0);
    if (zsl.unusable()) LOG(line::FrameworkZslCount, zsl.count());
    if (!zsl.usable()) return;
    camera.mFwkZslSupported = zsl[0] == 1;
    publishFlag(camera.mExtParam, "qz-framework-zsl-supported", zsl);
    LOG(line::FrameworkZsl, published(camera.mExtParam, "qz-framework-zsl-supported"));
}

void CapabilitySteps::getRequireVideoStatus(CCameraQzParam& camera) {
    const Capability<uint8_t> require(camera.mExtParam, CAPABILITY("qzRequireVideoStatus"), 0);
    if (require.unusable()) LOG(line::RequireVideoStatusCount, require.count());
    if (require.usable()) camera.mRequireVideoStatus = require[0] == 1;
}

void CapabilitySteps::getPreShutterSupported(CCameraQzParam& camera) {
    const Capability<uint8_t> preShutter(camera.mExtParam, CAPABILITY("qz-pre-shutter-supported"), 0);
    if (preShutter.unusable()) LOG(line::PreShutterCount, preShutter.count());
    if (!preShutter.usable()) return;
    camera.mPreShutterSupported = preShutter[0] == 1;
    LOG(line::PreShutter, __func__, camera.mPreShutterSupported ? "true" : "false");
}

// Two gains; a device that has only one gets 0 for the other.
void CapabilitySteps::getOisDefaultGryoGain(CCameraQzParam& camera) {
    const Capability<float> gain(camera.mExtParam, CAPABILITY("oisDefaultGryoGain"), 0);
    if (gain.unusable()) LOG(line::DefaultGyroGainCount, gain.count());
    if (!gain.usable()) return;
    const auto x = static_cast<double>(gain[0]);
    const auto y = gain.count() > 1 ? static_cast<double>(gain[1]) : 0.0;
    char text[30] = {};
    printed<line::FormattingFailed>(snprintf_s(text, sizeof(text), sizeof(text), "(%f,%f)", x, y), __func__);
    camera.mExtParam->set("qz_ois_default_gryo_gain", text);
    LOG(line::DefaultGyroGain, published(camera.mExtParam, "qz_ois_default_gryo_gain"));
}

}  // namespace qz
