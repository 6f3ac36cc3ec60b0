// Vendor tags that another thread replaces and clears while a camera works.
#include "CameraQzCallBack.h"
#include "QzPerformEx.h"
#include "callback/QuietHost.h"
#include "support/Device.h"
#include "support/Log.h"

#include <cutils/properties.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
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

// Everything of one camera that looks tags up or logs their names.
class WorkingCamera {
  public:
    WorkingCamera() {
        const VendorTags tags(declarationsWith("first.first"));
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
    }

  private:
    void show(const char* level) {
        property_set("camera.qzperformex.loglevel", level);
        android::List<const CameraMetadata> none;
        mInspector->checkRequest(none, false);
    }

    Camera mCamera;
    android::sp<android::CaptureResult> mResult = new android::CaptureResult;
    android::sp<QuietHost> mHost = new QuietHost;
    android::sp<CameraQzCallBack> mCallBack = CreateCameraQzCallBack(mHost.get(), &mCamera.translator());
    android::sp<QzPerformEx> mInspector = new QzPerformEx(0);
};

// The section and the name of the renamed tag, as lines of the log show them.
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
