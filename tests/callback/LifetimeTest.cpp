// SPDX-License-Identifier: Apache-2.0
// Cameras that are opened and closed many times: a camera service runs for months.
#include "CameraQzCallBack.h"
#include "CameraQzSendCmd.h"
#include "QzPerformEx.h"
#include "support/Device.h"
#include "support/Log.h"
#include "support/ResultHost.h"

#include <gtest/gtest.h>
#include <malloc.h>

namespace qz::test {
namespace {

void useOneCamera(LogCapture& log) {
    Camera camera;
    const int32_t sizes[] = {4000, 3000};
    camera.info.update(tagOf(capability("superResolutionPictureSize")), sizes, 2);
    camera.translator().metaDataToParam();
    camera.parameters.set("iso", "1600");
    const android::CameraMetadata request = camera.request();
    EXPECT_EQ(request.entryCount(), 1U);

    const android::sp<ResultHost> host = new ResultHost;
    host->hasOwnEntries = false;
    const auto callBack = CreateCameraQzCallBack(host.get(), &camera.translator());
    EXPECT_EQ(callBack->processQzCallBack(request), 0);
    EXPECT_EQ(CreateCameraQzSendCmd(&camera.translator())->sendCommand(202, 0, 0), 0);
    const android::sp<QzPerformEx> inspector = new QzPerformEx(0);
    inspector->setInfo(&camera.info);
    EXPECT_FALSE(inspector->skipRoundBuffer(640, 480, 35));
    log.take();
}

size_t bytesInUse() { return mallinfo2().uordblks; }

TEST(Cameras, DoNotLeak) {
    const VendorTags tags(
        {{capture("iso"), TYPE_BYTE}, {capability("superResolutionPictureSize"), TYPE_INT32}});
    LogCapture log;
    for (int i = 0; i < 10; ++i) useOneCamera(log);
    const size_t before = bytesInUse();
    for (int i = 0; i < 1000; ++i) useOneCamera(log);
    // The allocator keeps some freed blocks. One lost block for each camera would be 16 KB. Sanitizers have
    // a heap of their own, and report leaks at the end of the program.
    EXPECT_LT(bytesInUse(), before + 12000);
}

}  // namespace
}  // namespace qz::test
