#include "CCameraQzParam.h"

#include "camera/TranslatorLog.h"
#include "core/BoundedMemory.h"
#include "core/Properties.h"
#include "text/Vocabularies.h"

#include <cstring>

namespace qz {

namespace {

using android::sp;
using android::String16;
using android::String8;

constexpr char kPostProcessKey[] = "qz-image-post-process";

const char* trueOrFalse(bool value) { return value ? "true" : "false"; }

// A search for the text, not for an item of the list.
bool holdsSize(const String8& sizes, int width, int height) {
    char size[32];
    snprintf_s(size, sizeof(size), sizeof(size), "%dx%d", width, height);
    return strstr(sizes.c_str(), size) != nullptr;
}

}  // namespace

sp<CCameraQzParam> CreateCameraQzParam(ExtParamInterface* paramIntf) {
    if (paramIntf == nullptr) {
        LOGE("%s: paramIntf is NULL!", __func__);
        return nullptr;
    }
    return new CCameraQzParam(paramIntf);
}

CCameraQzParam::CCameraQzParam(ExtParamInterface* paramIntf) : mExtParam(paramIntf) {
    LOGI("%s(%p)", __func__, static_cast<void*>(this));
}

CCameraQzParam::~CCameraQzParam() {
    mExtParam = nullptr;
    LOGI("%s(%p)", __func__, static_cast<void*>(this));
}

void CCameraQzParam::setClientName(const String16& packageName) { mClientName = packageName; }

void CCameraQzParam::setCallBackFlag(uint32_t flag) { mCallBackFlag = flag; }

bool CCameraQzParam::isExtSceneMode(const char* extScene) const {
    if (extScene == nullptr) {
        LOGE("%s: extScene is NULL!", __func__);
        return false;
    }
    return numberOf(kExtScene, extScene) != kOtherScene;
}

void CCameraQzParam::getSupportedSuperResPicSizes(const char*& switchKey, const char*& listKey,
                                                  String8& sizes) const {
    switchKey = kPostProcessKey;
    listKey = "super-resolution-picture-size-values";
    sizes = mSuperResPicSizes;
}

void CCameraQzParam::getQzPostKey(const char*& postKey, const char*& flagKey) const {
    postKey = kPostProcessKey;
    flagKey = "qz-qzcamera-flag";
}

void CCameraQzParam::getOTPtestResult(const char*& key, String8& value) {
    key = "qz-otp-check";
    if (mExtParam == nullptr) {
        LOGE("%s: mExtParam is NULL!", __func__);
        return;
    }
    value = String8::format("%d", mOtpTestResult.get());
    mExtParam->set(key, value.c_str());
}

bool CCameraQzParam::isSuperResolution(int width, int height) const {
    return holdsSize(mSuperResPicSizes, width, height);
}

bool CCameraQzParam::isSubSensorResolution(int width, int height) const {
    return holdsSize(mSubPicSizes, width, height);
}

void CCameraQzParam::qzUpdateRecordingState(bool recording) {
    if (mRequireVideoStatus) mRecording = recording;
}

bool CCameraQzParam::qzIsRecording() const { return mRequireVideoStatus && mRecording; }

bool CCameraQzParam::getPanorama2DMode() const { return mPanorama2DMode; }

bool CCameraQzParam::checkLongExpoMode() {
    constexpr int longFromMicroseconds = 1000000;
    const bool longTime = mProfessionalMode.get() && mSensorExposureTime > longFromMicroseconds;
    if (!longTime && mLightPaintingMode == 0) return false;
    LOGI("%s:expo time %d", "bool qz::CCameraQzParam::checkLongExpoMode()", mSensorExposureTime);
    return true;
}

bool CCameraQzParam::needQzCustomizedZsl() {
    if (propertyIsOn("camera.ignore.qz.customized.zsl", "0")) {
        LOGI("%s(), ignore qz customized zsl by prop.", __func__);
        return false;
    }
    if (mExtParam == nullptr) {
        LOGE("%s: mExtParam is NULL!", __func__);
        return false;
    }
    // An unknown word counts as professional: better no customised zero-shutter-lag than a wrong one.
    const auto professional = static_cast<uint8_t>(numberOf(kOnOff, mExtParam->get("qz-professional-mode")));
    LOGI("%s is QzCamera:%s professional:%u", "bool qz::CCameraQzParam::needQzCustomizedZsl()",
         trueOrFalse(mIsQzCamera), professional);
    return mIsQzCamera && professional == 0;
}

bool CCameraQzParam::qzNeedPreShutter() {
    if (!mPreShutterSupported || !mIsQzCamera) {
        LOGI("%s(), pre shutter is not supported or is not qzcamera.", __func__);
        return false;
    }
    if (!mPreShutterDone && !checkLongExpoMode()) {
        LOGI("%s(), need pre shutter.", __func__);
        return true;
    }
    LOGI("%s(), doesn't need pre shutter.", __func__);
    return false;
}

}  // namespace qz
