// SPDX-License-Identifier: Apache-2.0
#include "Session.h"

#include "Members.h"
#include "Platform.h"

namespace qz::compare {
namespace {

constexpr unsigned kPresences[] = {0, 10, 50, 90, 100};

// Each object of the library logs its address when it is created and destroyed.
void recordAddress(const char* what, const void* object) {
    const void* logged = loggedAddress();
    trace() << what << (logged == object ? " logs its own address\n" : " logs another address or none\n");
}

template <typename T>
void destroy(const char* what, android::sp<T>* object) {
    const void* address = object->get();
    object->clear();
    recordAddress(what, address);
}

}  // namespace

Session::Step Session::stepOf(std::string_view kind) {
    if (kind == "request") return &Session::request;
    if (kind == "capabilities") return &Session::capabilities;
    if (kind == "results") return &Session::results;
    return kind == "inspection" ? &Session::inspection : nullptr;
}

Session::Session(const Inputs& inputs, Devices* devices, uint64_t seed)
    : mInputs(inputs), mDevices(*devices), mAnswers(inputs) {
    Random random(seed);
    clearProperties();
    mDevices.use(random);
    mAnswers.begin(seed, 50);
    mResultHostOwner = mResultHost = new ResultHost(mAnswers);
    CreateCameraQzParam(nullptr);
    CreateCameraQzSendCmd(nullptr);
    CreateCameraQzCallBack(nullptr, nullptr);
    makeUp(random);
    adapt(random);
    for (auto& inspector : mInspectors) {
        inspector = new QzPerformEx(static_cast<int32_t>(random.below(3)));
        recordAddress("inspector", inspector.get());
    }
    // The level belongs to the process. It keeps the value of the previous block.
    Requests none;
    mInspectors[0]->checkRequest(none, false);
    recordAll();
}

Session::~Session() {
    for (auto& inspector : mInspectors) destroy("inspector", &inspector);
    mMadeUp = {};
    mAdapted = {};
    mAdapter.clear();
    trace() << "all gone\n";
}

void Session::makeUp(Random& /*random*/) {
    mMadeUp = {};
    mMadeUp.host = mMadeUpHost = new RecordedHost(mAnswers);
    loggedAddress();
    mMadeUp.translator = CreateCameraQzParam(mMadeUpHost);
    recordAddress("translator", mMadeUp.translator.get());
    connect(&mMadeUp);
}

void Session::adapt(Random& random) {
    mAdapted = {};
    loggedAddress();
    mAdapter = new RecordedAdapter(mParameters, static_cast<int>(random.below(3)));
    mAdapted.translator = mAdapter->mCameraQzParam;
    recordAddress("translator", mAdapted.translator.get());
    if (random.percent(95)) mAdapter->mInfo = &mDevices.metadata(random);
    connect(&mAdapted);
}

void Session::connect(Camera* camera) {
    CreateCameraQzCallBack(mResultHost, nullptr);
    CreateCameraQzCallBack(nullptr, camera->translator.get());
    camera->callBack = CreateCameraQzCallBack(mResultHost, camera->translator.get());
    camera->command = CreateCameraQzSendCmd(camera->translator.get());
    recordMembers(*camera->callBack);
    recordMembers(*camera->command);
}

// A camera is closed and opened again.
void Session::renew(Random& random) {
    if (random.percent(50)) return makeUp(random);
    adapt(random);
}

void Session::play(Step step, uint64_t seed) {
    static constexpr Step others[] = {&Session::request, &Session::capabilities, &Session::results,
                                      &Session::inspection};
    Random random(seed);
    if (random.percent(5)) mDevices.use(random);
    if (random.percent(10)) mInputs.setSomeProperties(random);
    mAnswers.begin(random.next(), random.of(kPresences));
    if (random.percent(50)) mMadeUpHost->forget();
    if (random.percent(1)) renew(random);
    (this->*step)(random);
    if (random.percent(6)) (this->*random.of(others))(random);
    recordSleeps();
    recordAll();
}

Camera& Session::choose(Random& random) {
    const bool adapted = random.percent(40);
    trace() << (adapted ? "the adapter\n" : "a host of its own\n");
    if (adapted) changeParameters(random);
    return adapted ? mAdapted : mMadeUp;
}

void Session::expect(const CameraMetadata* request) {
    mMadeUpHost->expected = request;
    mAdapter->expected = request;
    mResultHost->expected = request;
}

void Session::changeParameters(Random& random) {
    if (random.percent(5)) mParameters = {};
    const size_t most = random.percent(10) ? 100 : 12;
    for (size_t changes = random.below(most); changes > 0; --changes) {
        const std::string& key = random.of(mInputs.keys());
        if (random.percent(30)) {
            mParameters.remove(key.c_str());
        } else {
            mParameters.set(key.c_str(), mInputs.textOf(key, random).c_str());
        }
    }
}

void Session::recordParameters() { trace() << "parameters " << mParameters.flatten().c_str() << '\n'; }

void Session::recordAll() {
    for (const Camera* camera : {&mMadeUp, &mAdapted}) {
        recordMembers(*camera->translator);
        recordMembers(*camera->callBack);
        recordMembers(*camera->command);
    }
    for (const auto& inspector : mInspectors) recordMembers(*inspector);
    trace() << "muted " << mAdapter->mShutterMute << '\n';
}

void Session::request(Random& random) {
    Camera& camera = choose(random);
    host(camera, random);
    if (random.percent(60)) camera.request.clear();
    const bool locked = random.percent(3);
    if (locked) camera.request.getAndLock();
    CameraMetadata* const metadata = random.percent(99) ? &camera.request : nullptr;
    expect(metadata);
    returned("paramToMetaData", camera.translator->paramToMetaData(metadata));
    if (locked) camera.request.unlock(camera.request.getAndLock());
    trace().metadata(camera.request);
    if (adapted(camera)) recordParameters();
    if (random.percent(30)) ask(camera, random);
}

void Session::capabilities(Random& random) {
    Camera& camera = choose(random);
    if (random.percent(30)) mAdapter->mInfo = random.percent(95) ? &mDevices.metadata(random) : nullptr;
    expect(nullptr);
    returned("metaDataToParam", camera.translator->metaDataToParam());
    if (adapted(camera)) recordParameters();
    if (random.percent(50)) ask(camera, random);
}

void Session::results(Random& random) {
    Camera& camera = random.percent(50) ? mMadeUp : mAdapted;
    callBack(camera, random);
    if (random.percent(20)) command(camera, random);
    if (random.percent(10)) ask(camera, random);
    if (random.percent(4)) request(random);
}

void Session::inspection(Random& random) {
    reportUndeclared(false);
    inspect(*random.of(mInspectors), random);
    if (random.percent(30)) askNames(random);
}

}  // namespace qz::compare
