// The way to the state that steps leave.
#pragma once

#include "CameraQzCallBack.h"

#include <map>
#include <string>

namespace qz {

struct TestPeer {
    static void setLightPainting(CCameraQzParam& camera, uint8_t mode) { camera.mLightPaintingMode = mode; }
    static void setProfessional(CCameraQzParam& camera, bool on) { camera.mProfessionalMode.set(on); }

    // All that handlers may set, by the names of rows.
    static std::map<std::string, int> members(const CameraQzCallBack& of, const CCameraQzParam& camera) {
        return {{"mTargetCoordX", of.mTargetCoordX},
                {"mTargetCoordY", of.mTargetCoordY},
                {"mDualAbnormal", of.mDualAbnormal},
                {"mDualVerifyActive", of.mDualVerifyActive},
                {"mDualVerifyIndex", of.mDualVerifyIndex},
                {"mMmiTestMode", of.mMmiTestMode},
                {"mMmiTestIndex", of.mMmiTestIndex},
                {"mMmiTestRequest", of.mMmiTestRequest},
                {"mPdafVerifyMode", of.mPdafVerifyMode},
                {"mZslMode", of.mZslMode},
                {"mExposurePreviewState", of.mExposurePreviewState},
                {"mLowCapState", of.mLowCapState},
                {"mMmiFocusValue", of.mMmiFocusValue},
                {"translator's mFocusVcmValue", camera.mFocusVcmValue.get()},
                {"translator's mFocusContrastValue", camera.mFocusContrastValue.get()},
                {"translator's mOtpTestResult", camera.mOtpTestResult.get()},
                {"translator's mLcdCompensate", camera.mLcdCompensate.get()}};
    }
};

}  // namespace qz
