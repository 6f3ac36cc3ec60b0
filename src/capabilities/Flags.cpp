// Switches of the device: "true" for any first byte but 0. The minimum count is what the adapter reports
// below.
#include "CCameraQzParam.h"
#include "capabilities/Capability.h"

namespace qz {

int32_t CCameraQzParam::getBurstSupported() {
    const Capability<uint8_t> burst(mExtParam, CAPABILITY("burstModeSupported"), 1);
    if (burst.lacks()) LOGI("supportedBurst.count = %zu", burst.count());
    if (burst.holds()) publishFlag(mExtParam, "qz-r7-burst-supported", burst);
    return 0;
}

int32_t CCameraQzParam::getFaceBeautySupported() {
    const Capability<uint8_t> beauty(mExtParam, CAPABILITY("faceBeautySupported"), 1);
    if (beauty.lacks()) LOGI("captureBeauty.count = %zu", beauty.count());
    if (beauty.holds()) publishFlag(mExtParam, "qz_beauty_mode_support", beauty);
    return 0;
}

int32_t CCameraQzParam::getVideoBeautySupported() {
    const Capability<uint8_t> beauty(mExtParam, CAPABILITY("videoBeatySupported"), 1);
    if (beauty.lacks()) LOGI("supportedOVB.count = %zu", beauty.count());
    if (beauty.holds()) publishFlag(mExtParam, "qz-video-beauty-supported", beauty);
    return 0;
}

int32_t CCameraQzParam::getZslSupported() {
    const Capability<uint8_t> zsl(mExtParam, CAPABILITY("zslSupported"), 1);
    if (zsl.lacks()) LOGI("zslSupported.count = %zu", zsl.count());
    if (zsl.holds()) publishFlag(mExtParam, "zsl-mode-supported", zsl);
    return 0;
}

int32_t CCameraQzParam::getBestShotSupported() {
    const Capability<uint8_t> best(mExtParam, CAPABILITY("bestModeSupported"), 1);
    if (best.lacks()) LOGI("supportedBestShot.count = %zu", best.count());
    if (best.holds()) publishFlag(mExtParam, "qz-best-photo", best);
    return 0;
}

int32_t CCameraQzParam::getAllFocusSupported() {
    const Capability<uint8_t> focus(mExtParam, CAPABILITY("allfocusModeSupported"), 1);
    if (focus.lacks()) LOGI("supportedAllFocusShot.count = %zu", focus.count());
    if (focus.holds()) publishFlag(mExtParam, "qz-refocus-supported", focus);
    return 0;
}

int32_t CCameraQzParam::getHdrMovieSupported() {
    const Capability<uint8_t> hdr(mExtParam, CAPABILITY("hdrMovieSupported"), 1);
    if (hdr.lacks()) LOGI("supportedHdrMovie.count = %zu", hdr.count());
    if (hdr.holds()) publishFlag(mExtParam, "hdr-movie-supported", hdr);
    return 0;
}

int32_t CCameraQzParam::getCaptureMirrorSupported() {
    const Capability<uint8_t> mirror(mExtParam, CAPABILITY("captureMirrorSupported"), 1);
    if (mirror.lacks()) LOGI("supportedCapMirr.count = %zu", mirror.count());
    if (mirror.holds()) publishFlag(mExtParam, "qz-capture-mirror-supproted", mirror);
    return 0;
}

int32_t CCameraQzParam::getMagnifierSupported() {
    const Capability<uint8_t> magnifier(mExtParam, CAPABILITY("magnifier_supported"), 1);
    if (magnifier.lacks()) LOGI("supportedMagnifier.count = %zu", magnifier.count());
    if (magnifier.holds()) publishFlag(mExtParam, "qz-magnifier-supported", magnifier);
    return 0;
}

int32_t CCameraQzParam::getManualFocusSupported() {
    const Capability<uint8_t> focus(mExtParam, CAPABILITY("manualFocusSupported"), 1);
    if (focus.lacks()) LOGI("supportedMFocus.count = %zu", focus.count());
    if (focus.holds()) publishFlag(mExtParam, "qz-manual-focus-supported", focus);
    return 0;
}

int32_t CCameraQzParam::getSmileDetectionSupported() {
    const Capability<uint8_t> smile(mExtParam, CAPABILITY("smileDetectionSupported"), 1);
    if (smile.lacks()) LOGI("faceDetection.count = %zu", smile.count());
    if (smile.holds()) publishFlag(mExtParam, "qz-smile-face-shotmode-supported", smile);
    return 0;
}

int32_t CCameraQzParam::getScopeSupported() {
    const Capability<uint8_t> scope(mExtParam, CAPABILITY("qzScopeSupported"), 1);
    if (scope.lacks()) LOGI("scope.count = %zu", scope.count());
    if (scope.holds()) publishFlag(mExtParam, "qz-scope-supported", scope);
    return 0;
}

int32_t CCameraQzParam::getPostProcessSupported() {
    const Capability<uint8_t> process(mExtParam, CAPABILITY("postProcessSupported"), 1);
    if (process.lacks()) LOGI("supportedPostProcess.count = %zu", process.count());
    if (process.holds()) publishFlag(mExtParam, "qz-post-process-supported", process);
    return 0;
}

int32_t CCameraQzParam::getDenoiseSupported() {
    const Capability<uint8_t> denoise(mExtParam, CAPABILITY("denoiseSupported"), 1);
    if (denoise.lacks()) LOGI("supportedDenoise.count = %zu", denoise.count());
    if (denoise.holds()) publishFlag(mExtParam, "qz-image-denoise-supported", denoise);
    return 0;
}

int32_t CCameraQzParam::getTargetTrackingSupported() {
    const Capability<uint8_t> tracking(mExtParam, CAPABILITY("target_tracking_supported"), 1);
    if (tracking.lacks()) LOGI("supportedTargetTracking.count = %zu", tracking.count());
    if (tracking.holds()) publishFlag(mExtParam, "target-tracking-supported", tracking);
    return 0;
}

int32_t CCameraQzParam::getBigApertureSupported() {
    const Capability<uint8_t> aperture(mExtParam, CAPABILITY("bigApertureSupported"), 1);
    if (aperture.lacks()) LOGI("bigaperture.count = %zu", aperture.count());
    if (aperture.holds()) publishFlag(mExtParam, "qz-big-aperture-supported", aperture);
    return 0;
}

// Published for any number but 0; the member asks for exactly 1.
int32_t CCameraQzParam::getVideoCallbackSupported() {
    const Capability<uint8_t> callback(mExtParam, CAPABILITY("videoCallbackSupported"), 1);
    if (callback.lacks()) LOGI("video call back supported count is: %zu", callback.count());
    if (!callback.holds()) return 0;
    mVideoCallbackSupported = callback[0] == 1;
    publishFlag(mExtParam, "video-callback-supported", callback);
    LOGI("video call back supported = %s", published(mExtParam, "video-callback-supported"));
    return 0;
}

// Says nothing when it is empty.
int32_t CCameraQzParam::getExposureCompensationSupported() {
    const Capability<uint8_t> compensation(mExtParam, CAPABILITY("qzExposureCompensationSupported"), 1);
    if (compensation.holds()) publishFlag(mExtParam, "qz-exposure-compensation-support", compensation);
    return 0;
}

int32_t CCameraQzParam::getAfMmiControlSupported() {
    const Capability<uint8_t> control(mExtParam, CAPABILITY("qz-af-mmi-control-supported"), 1);
    if (control.lacks()) LOGI("ModeSupport.count = %zu", control.count());
    if (control.holds()) publishFlag(mExtParam, "qz-af-mmi-control-supported", control);
    return 0;
}

int32_t CCameraQzParam::getOisSupported() {
    const Capability<uint8_t> ois(mExtParam, CAPABILITY("qz-ois-supported"), 1);
    if (ois.lacks()) LOGI("OIS supported count is: %zu", ois.count());
    if (!ois.holds()) return 0;
    publishFlag(mExtParam, "qz_ois_supported", ois);
    LOGI("OIS supported = %s", published(mExtParam, "qz_ois_supported"));
    return 0;
}

int32_t CCameraQzParam::getNiceFoodSupported() {
    const Capability<uint8_t> food(mExtParam, CAPABILITY("niceFoodSupported"), 1);
    if (food.lacks()) LOGI("nicefood.count = %zu", food.count());
    if (food.holds()) publishFlag(mExtParam, "qz-nice-food-supported", food);
    return 0;
}

int32_t CCameraQzParam::getBeauty1080pSupported() {
    const Capability<uint8_t> beauty(mExtParam, CAPABILITY("beauty1080pSupported"), 1);
    if (beauty.lacks()) LOGI("supportedBeauty1080P.count = %zu", beauty.count());
    if (!beauty.holds()) return 0;
    publishFlag(mExtParam, "qz-beauty-1080p-supported", beauty);
    LOGI("beauty 1080P supported = %s", published(mExtParam, "qz-beauty-1080p-supported"));
    return 0;
}

// Several elements are as good as none.
int32_t CCameraQzParam::getProfessionalModeSupported() {
    Capability<uint8_t> professional(mExtParam, CAPABILITY("professionalModeSupported"), 1);
    professional.exactly(1);
    if (professional.lacks()) LOGI("professionalModeSupported.count = %zu", professional.count());
    if (professional.holds()) publishFlag(mExtParam, "qz-professional-mode-supported", professional);
    return 0;
}

int32_t CCameraQzParam::getRawImageSupported() {
    const Capability<uint8_t> raw(mExtParam, CAPABILITY("rawImgSupported"), 0);
    if (raw.lacks()) LOGI("rawImgSaveCount.count = %zu", raw.count());
    if (!raw.holds()) return 0;
    publishFlag(mExtParam, "qz-raw-img-save-supported", raw);
    LOGI("Raw IMG save supported = %s", published(mExtParam, "qz-raw-img-save-supported"));
    return 0;
}

int32_t CCameraQzParam::getExposureHintSupported() {
    const Capability<uint8_t> hint(mExtParam, CAPABILITY("exposureHintSupported"), 0);
    if (hint.lacks()) LOGI("exposureHintEntry.count = %zu", hint.count());
    if (!hint.holds()) return 0;
    publishFlag(mExtParam, "qz-exposure-hint-supported", hint);
    LOGI("Exposure hint supported = %s", published(mExtParam, "qz-exposure-hint-supported"));
    return 0;
}

int32_t CCameraQzParam::getDynamicIsoRangeSupported() {
    const Capability<uint8_t> range(mExtParam, CAPABILITY("qz-dynamic-iso-range-supported"), 0);
    if (range.lacks()) LOGI("dynamicIsoEntry.count = %zu", range.count());
    if (!range.holds()) return 0;
    publishFlag(mExtParam, "qz-dynamic-iso-range-supported", range);
    LOGI("Dynamic ISO range supported = %s", published(mExtParam, "qz-dynamic-iso-range-supported"));
    return 0;
}

// No capability stands behind this one: every device of this library has it.
int32_t CCameraQzParam::getVideoSmoothAfSupported() {
    mExtParam->set("qz_video_smooth_af_supported", "true");
    LOGI("Video smooth af supported = %s", published(mExtParam, "qz_video_smooth_af_supported"));
    return 0;
}

// Published for any number but 0; the member asks for exactly 1.
int32_t CCameraQzParam::getFrameworkZslSupported() {
    const Capability<uint8_t> zsl(mExtParam, CAPABILITY("qzFwkZslSupported"), 0);
    if (zsl.lacks()) LOGI("frameworkZslEntry.count = %zu", zsl.count());
    if (!zsl.holds()) return 0;
    mFwkZslSupported = zsl[0] == 1;
    publishFlag(mExtParam, "qz-framework-zsl-supported", zsl);
    LOGD("framework zsl supported = %s", published(mExtParam, "qz-framework-zsl-supported"));
    return 0;
}

int32_t CCameraQzParam::getSlowMotionNoZoomSupported() {
    const Capability<uint8_t> noZoom(mExtParam, CAPABILITY("slowmoNoZoom"), 0);
    if (noZoom.lacks()) LOGI("slowmoNoZoomEntry.count = %zu", noZoom.count());
    if (!noZoom.holds()) return 0;
    publishFlag(mExtParam, "qz-slow-mo-no-zoom", noZoom);
    LOGD("slow motion no zoom mode supported = %s", published(mExtParam, "qz-slow-mo-no-zoom"));
    return 0;
}

// Counts in the slow-motion getter's words.
int32_t CCameraQzParam::getDmWaterMarkSupported() {
    const Capability<uint8_t> mark(mExtParam, CAPABILITY("dmWaterMarkSupported"), 0);
    if (mark.lacks()) LOGI("slowmoNoZoomEntry.count = %zu", mark.count());
    if (!mark.holds()) return 0;
    publishFlag(mExtParam, "qz-dm-watermark-supported", mark);
    LOGI("%s(), DM water mark supported: %s", __func__, published(mExtParam, "qz-dm-watermark-supported"));
    return 0;
}

int32_t CCameraQzParam::getDualPrimarySingleReprocess() {
    const Capability<uint8_t> reprocess(mExtParam, CAPABILITY("dualPrimarySingleReprocess"), 0);
    if (reprocess.lacks()) LOGI("DualCameraSingleReprocess.count = %zu", reprocess.count());
    if (!reprocess.holds()) return 0;
    publishFlag(mExtParam, "qz-dual-primary-single-reprocess", reprocess);
    LOGD("Dual Camera Single Reprocess Supported = %s",
         published(mExtParam, "qz-dual-primary-single-reprocess"));
    return 0;
}

int32_t CCameraQzParam::getAfSecondAvailableModes() {
    const Capability<uint8_t> modes(mExtParam, CAPABILITY("AFSecondAvailableModes"), 0);
    if (modes.lacks()) LOGI("AFSecondAValiable.count = %zu", modes.count());
    if (!modes.holds()) return 0;
    publishFlag(mExtParam, "qz-af-second-available-modes", modes);
    LOGD("AF Second Avaliable Supported = %s", published(mExtParam, "qz-af-second-available-modes"));
    return 0;
}

int32_t CCameraQzParam::getMirrorZoomDragSupported() {
    const Capability<uint8_t> drag(mExtParam, CAPABILITY("mirrorZoomSupported"), 0);
    if (drag.lacks()) LOGI("%s(), mirror zoom drag count: %zu", __func__, drag.count());
    if (!drag.holds()) return 0;
    publishFlag(mExtParam, "qz_mirror_zoom_drag_supported", drag);
    LOGD("%s(), mirror zoom mode supported: %s", __func__,
         published(mExtParam, "qz_mirror_zoom_drag_supported"));
    return 0;
}

}  // namespace qz
