// The way to the translator's setters and to the state that they leave.
#pragma once

#include "CCameraQzParam.h"
#include "request/Parameters.h"
#include "request/RequestPass.h"

#include <map>
#include <string>
#include <vector>

namespace qz {

struct TestPeer {
    using C = CCameraQzParam;
    // All 111 by name.
    static std::vector<std::string> setters() {
        std::vector<std::string> names;
        for (const Parameter& row : kParameters) {
            if (!row.entries.empty()) names.emplace_back(row.setter);
        }
        return names;
    }

    // One of them, a step without an entry, or the whole pass.
    static status_t call(C& of, const std::string& setter, android::CameraMetadata* request) {
        return setter == "paramToMetaData" ? of.paramToMetaData(request)
                                           : runSetter(of, setter.c_str(), request);
    }

    // What setters store.
    static std::map<std::string, int> state(const C& of) {
        return {{"mBurstCapture", of.mBurstCapture},
                {"mImagePostProcess", of.mImagePostProcess},
                {"mAllFocusMode", of.mAllFocusMode},
                {"mProfessionalMode", of.mProfessionalMode.get()},
                {"mLightPaintingMode", of.mLightPaintingMode},
                {"mVideoFps", of.mVideoFps},
                {"mSensorExposureTime", of.mSensorExposureTime},
                {"mIsQzCamera", of.mIsQzCamera},
                {"mPanorama2DMode", of.mPanorama2DMode}};
    }

    static void setLightPainting(C& of, uint8_t mode) { of.mLightPaintingMode = mode; }
    static void setQzCamera(C& of, bool is) { of.mIsQzCamera = is; }
};

}  // namespace qz
