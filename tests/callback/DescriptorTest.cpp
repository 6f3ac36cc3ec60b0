// SPDX-License-Identifier: Apache-2.0
// A camera in use while another thread replaces and clears the vendor tags.
#include "CameraQzCallBack.h"
#include "QzPerformEx.h"
#include "support/Device.h"
#include "support/Log.h"
#include "support/ResultHost.h"

#include <cutils/properties.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <memory>
#include <set>
#include <thread>

namespace qz::test {
namespace {

using android::CameraMetadata;

constexpr uint32_t kRenamed = 0x80000000;  // the tag that has another name in each declaration

Declarations declarationsWith(const std::string& renamed) {
    return {{renamed, TYPE_INT32},
            {capture("iso"), TYPE_BYTE},
            {capture("hintUser"), TYPE_INT32},
            {capability("superResolutionPictureSize"), TYPE_INT32}};
}

// All objects of one camera that look up tags or log their names.
class WorkingCamera {
  public:
    WorkingCamera() {
        const VendorTags tags(declarationsWith("first.first"));
        mHost->hasOwnEntries = false;
        const int32_t number = 1;
        mCamera.info.update(kRenamed, &number, 1);
        mResult->mMetadata = mCamera.info;
        mResult->mMetadata.update(tagOf(capture("hintUser")), &number, 1);
        mCamera.parameters.set("iso", "1600");
        show("5");
    }
    ~WorkingCamera() { show("0"); }

    void work() {
        mCamera.adapter->getStaticInfo(kRenamed, 2, 0, true);
        mCamera.translator().metaDataToParam();
        android::List<const CameraMetadata> requests;
        requests.push_back(mCamera.request());
        mInspector->setInfo(&mCamera.info);
        mInspector->checkRequest(requests, true);
        mInspector->checkResult(*mResult);
        mInspector->skipRoundBuffer(640, 480, 33);
        mCallBack->processQzCallBack(mResult->mMetadata);
        mCamera.info.dump(fileno(mNowhere.get()), 1);
    }

  private:
    void show(const char* level) {
        property_set("camera.qzperformex.loglevel", level);
        android::List<const CameraMetadata> none;
        mInspector->checkRequest(none, false);
    }

    Camera mCamera;
    std::unique_ptr<FILE, int (*)(FILE*)> mNowhere{fopen("/dev/null", "w"), fclose};
    android::sp<android::CaptureResult> mResult = new android::CaptureResult;
    android::sp<ResultHost> mHost = new ResultHost;
    android::sp<CameraQzCallBack> mCallBack = CreateCameraQzCallBack(mHost.get(), &mCamera.translator());
    android::sp<QzPerformEx> mInspector = new QzPerformEx(0);
};

// Section and name of the renamed tag, as the log shows them.
void addNames(const std::vector<LogLine>& lines, std::set<std::string>& names) {
    for (const LogLine& line : lines) {
        const size_t start = line.text.find('\'') + 1;
        if (start == 0 || line.text.find("80000000") == std::string::npos) continue;
        names.insert(line.text.substr(start, line.text.find('\'', start) - start));
    }
}

TEST(Cameras, LogNamesWhileTheVendorTagsChange) {
    LogCapture log;
    WorkingCamera camera;
    std::atomic<bool> enough{false};
    std::thread vendor([&enough] {
        const auto pause = [] { std::this_thread::sleep_for(std::chrono::microseconds(50)); };
        while (!enough) {
            const VendorTags first(declarationsWith("first.first"));
            pause();
            const VendorTags second(declarationsWith("second.second"));  // frees the texts of the first
            pause();
        }
    });
    const std::set<std::string> whole{"first.first", "second.second", "(null).(null)", "<unknown>.<unknown>"};
    std::set<std::string> names;
    for (int round = 0; round < 1000 || names.size() < whole.size(); ++round) {
        camera.work();
        addNames(log.take(), names);
    }
    enough = true;
    vendor.join();
    EXPECT_EQ(names, whole) << "a line takes the section and the name of one descriptor";
}

}  // namespace
}  // namespace qz::test
