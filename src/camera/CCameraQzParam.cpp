// SPDX-License-Identifier: Apache-2.0
#include "CCameraQzParam.h"

#include "text/BoundedMemory.h"
#include "text/Log.h"
#include "text/Properties.h"
#include "text/Vocabularies.h"

#include <cstring>

namespace qz {

namespace {

using android::sp;
using android::String16;
using android::String8;

constexpr char kPostProcessKey[] = "qz-image-post-process";

// Searches for the text, not for an item of the list.
bool holdsSize(const String8& sizes, int width, int height) {
    char size[32];
    snprintf_s(size, sizeof(size), sizeof(size), "%dx%d", width, height);
    return strstr(sizes.c_str(), size) != nullptr;
}

}  // namespace

sp<CCameraQzParam> CreateCameraQzParam(ExtParamInterface* paramIntf) {
    if (paramIntf == nullptr) {
        LOG(line::NoParamIntf, __func__);
        return nullptr;
    }
    return new CCameraQzParam(paramIntf);
}

CCameraQzParam::CCameraQzParam(ExtParamInterface* paramIntf) : mExtParam(paramIntf) {
    LOG(line::Translator, __func__, static_cast<void*>(this));
}

CCameraQzParam::~CCameraQzParam() {
    mExtParam = nullptr;
    LOG(line::Translator, __func__, static_cast<void*>(this));
}

void CCameraQzParam::setClientName(const String16& packageName) { mClientName = packageName; }

void CCameraQzParam::setCallBackFlag(uint32_t flag) { mCallBackFlag = flag; }

bool CCameraQzParam::isExtSceneMode(const char* extScene) const {
    if (extScene == nullptr) {
        LOG(line::NoExtScene, __func__);
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
        LOG(line::NoExtParam, __func__);
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
    LOG(line::LongExposureTime, mSensorExposureTime);
    return true;
}

bool CCameraQzParam::needQzCustomizedZsl() {
    if (isOn(property::ignoreOwnZsl)) {
        LOG(line::CustomizedZslIgnored, __func__);
        return false;
    }
    if (mExtParam == nullptr) {
        LOG(line::NoExtParam, __func__);
        return false;
    }
    // An unknown word counts as professional mode: no customised zero shutter lag is better than a wrong one.
    const auto professional = static_cast<uint8_t>(numberOf(kOnOff, mExtParam->get("qz-professional-mode")));
    LOG(line::CustomizedZsl, mIsQzCamera ? "true" : "false", professional);
    return mIsQzCamera && professional == 0;
}

bool CCameraQzParam::qzNeedPreShutter() {
    if (!mPreShutterSupported || !mIsQzCamera) {
        LOG(line::PreShutterNotSupported, __func__);
        return false;
    }
    if (!mPreShutterDone && !checkLongExpoMode()) {
        LOG(line::PreShutterNeeded, __func__);
        return true;
    }
    LOG(line::PreShutterNotNeeded, __func__);
    return false;
}

}  // namespace qz
