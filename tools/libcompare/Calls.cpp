// SPDX-License-Identifier: Apache-2.0
// The calls that a host makes, one by one.
#include "Members.h"
#include "Platform.h"
#include "QzName2Tag.h"
#include "Session.h"

#include <utils/String16.h>

namespace qz::compare {
namespace {

using android::String16;
using android::String8;

void answered(const char* question, bool yes) { trace() << question << (yes ? ": yes\n" : ": no\n"); }

constexpr const char* kClients[] = {"com.snapchat.android", "com.instagram.android",
                                    "com.ambrix.camera",    "com.instagram.androids",
                                    "com.snapchat",         "",
                                    "caf\xC3\xA9"};
constexpr const char* kScenes[] = {"qzauto", "hdr", "auto", "", "HDR", "hdr ", "portrait", "other", nullptr};

}  // namespace

// Chooses the application that opens the camera, and the facts that the host knows about it.
void Session::host(Camera& camera, Random& random) {
    if (random.percent(20)) camera.translator->setClientName(String16(random.of(kClients)));
    if (random.percent(20)) camera.translator->setCallBackFlag(static_cast<uint32_t>(someNumber(random)));
    if (random.percent(5)) setPreShutterDone(camera.translator.get(), random.percent(20));
    if (random.percent(20)) camera.translator->qzUpdateRecordingState(random.percent(50));
}

void Session::ask(Camera& camera, Random& random) {
    CCameraQzParam& translator = *camera.translator;
    answered("isExtSceneMode", translator.isExtSceneMode(random.of(kScenes)));
    answered("isExtSceneMode", translator.isExtSceneMode(random.of(mInputs.anyTexts()).c_str()));
    const char* key = nullptr;
    const char* second = nullptr;
    translator.getQzPostKey(key, second);
    trace() << "getQzPostKey: " << key << ' ' << second << '\n';
    String8 value;
    translator.getOTPtestResult(key, value);
    trace() << "getOTPtestResult: " << key << ' ' << value.c_str() << '\n';
    answered("qzIsRecording", translator.qzIsRecording());
    answered("getPanorama2DMode", translator.getPanorama2DMode());
    answered("checkLongExpoMode", translator.checkLongExpoMode());
    answered("needQzCustomizedZsl", translator.needQzCustomizedZsl());
    answered("qzNeedPreShutter", translator.qzNeedPreShutter());
    askSizes(camera, random);
    if (adapted(camera)) askAdapter(random);
    if (random.percent(5)) askWithoutHost(camera, random);
}

void Session::askSizes(Camera& camera, Random& random) {
    const char* switchKey = nullptr;
    const char* listKey = nullptr;
    String8 sizes;
    camera.translator->getSupportedSuperResPicSizes(switchKey, listKey, sizes);
    trace() << "getSupportedSuperResPicSizes: " << switchKey << ' ' << listKey << ' ' << sizes.c_str()
            << '\n';
    for (int i = 0; i < 3; ++i) {
        const int width = someNumber(random);
        const int height = someNumber(random);
        trace() << "size " << width << ' ' << height << '\n';
        answered("isSuperResolution", camera.translator->isSuperResolution(width, height));
        answered("isSubSensorResolution", camera.translator->isSubSensorResolution(width, height));
    }
}

// Calls the functions of the adapter that are not part of the translator's host interface.
void Session::askAdapter(Random& random) {
    mAdapter->modifySupportedPictureSize(mParameters);
    mAdapter->modifyOTPtestResult(mParameters);
    mAdapter->setShutterMute(mParameters);
    mAdapter->remove(random.of(mInputs.keys()).c_str());
    if (random.percent(10)) mAdapter->remove(nullptr);
    const uint32_t tag = kFirstTag + static_cast<uint32_t>(random.below(mInputs.tags().size()));
    mAdapter->getStaticInfo(tag, random.below(3), random.below(4), random.percent(50));
    mAdapter->set("qz-effect", random.percent(90) ? "none" : nullptr);
    const double wide[] = {1.5, 2.5};
    mAdapter->update(&mAdapted.request, tag, wide, random.below(3));
    mAdapter->update(&mAdapted.request, kFirstTag, String8(random.of(mInputs.anyTexts()).c_str()));
    if (random.percent(30)) {
        android::CameraParameters2 other = mParameters;
        mAdapter->modifySupportedPictureSize(other);
        trace() << "other parameters " << other.flatten().c_str() << '\n';
    }
    recordParameters();
}

void Session::askWithoutHost(Camera& camera, Random& /*random*/) {
    ExtParamInterface* const host = exchangeHost(camera.translator.get(), nullptr);
    const char* key = nullptr;
    String8 value("left alone");
    camera.translator->getOTPtestResult(key, value);
    trace() << "getOTPtestResult: " << key << ' ' << value.c_str() << '\n';
    answered("needQzCustomizedZsl", camera.translator->needQzCustomizedZsl());
    exchangeHost(camera.translator.get(), host);
}

void Session::callBack(Camera& camera, Random& random) {
    const CameraMetadata& result = mDevices.metadata(random);
    expect(&result);
    const bool without = random.percent(2);
    ExtCallBackInterface* host = without ? exchangeHost(camera.callBack.get(), nullptr) : nullptr;
    returned("processQzCallBack", camera.callBack->processQzCallBack(result));
    if (random.percent(15)) {
        camera.callBack->callbackSmartMode(someNumber(random));
        returned("callbackHDCCalibResult", camera.callBack->callbackHDCCalibResult(someNumber(random)));
        returned("callbackFovCalibResult", camera.callBack->callbackFovCalibResult(someNumber(random)));
    }
    if (without) exchangeHost(camera.callBack.get(), host);
}

// Results continue to arrive while a command waits.
void Session::command(Camera& camera, Random& random) {
    const uint64_t later = random.next();
    duringSleep(1 + random.below(140), [this, &camera, later] {
        mAnswers.begin(later, 90);
        Random fresh(later);
        callBack(camera, fresh);
    });
    static constexpr int32_t commands[] = {
        CMD_GET_FOCUS_CONTRAST_VALUE, CMD_GET_FOCUS_CONTRAST_VALUE, CMD_GET_FOCUS_VCM_VALUE, 0, 201, 204, -1};
    const int32_t code = random.of(commands);
    const int32_t first = someNumber(random);
    trace() << "command " << code << '\n';
    returned("sendCommand", camera.command->sendCommand(code, first, someNumber(random)));
    recordSleeps();
}

void Session::inspect(QzPerformEx& inspector, Random& random) {
    if (random.percent(10)) mInputs.setSomeProperties(random);
    if (random.percent(15)) inspector.setInfo(random.percent(90) ? &mDevices.metadata(random) : nullptr);
    if (random.percent(70)) {
        Requests& requests = mDevices.requests(random);
        const bool locked = random.percent(20);  // by the host
        for (const CameraMetadata& request : requests) {
            if (locked) request.getAndLock();
        }
        inspector.checkRequest(requests, random.percent(50));
        // Reports another error while the object is locked. The lock must not change.
        for (const CameraMetadata& request : requests) {
            returned("unlock", request.unlock({}));
            if (locked) request.unlock(request.getAndLock());
        }
    }
    if (random.percent(70)) inspector.checkResult(mDevices.result(random));
    for (int i = 0; i < 3; ++i) {
        const int32_t width = random.percent(20) ? 3264 : someNumber(random);
        const int32_t height = random.percent(20) ? 2448 : someNumber(random);
        const int32_t format = random.percent(50) ? 35 : someNumber(random);
        answered("skipRoundBuffer", inspector.skipRoundBuffer(width, height, format));
    }
}

void Session::askNames(Random& random) {
    const QzName2Tag* names = QzName2Tag::getInstance();
    for (int i = 0; i < 4; ++i) {
        const char* name = random.percent(98) ? random.of(mInputs.tagNames()).c_str() : nullptr;
        trace() << "name " << name << '\n';
        returned("vendor", names->vendorTagFromName(name));
        returned("android", names->androidTagFromName(name));
    }
    const uint32_t tag = random.percent(50) ? UINT32_MAX : static_cast<uint32_t>(random.next());
    returned("validTag", names->validTag(tag));
}

}  // namespace qz::compare
