// SPDX-License-Identifier: Apache-2.0
// A block of steps over the same objects, so that a step sees the state that earlier steps have left.
#pragma once

#include "CameraQzCallBack.h"
#include "CameraQzSendCmd.h"
#include "Device.h"
#include "Hosts.h"
#include "QzPerformEx.h"

#include <camera/CameraParameters2.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace qz::compare {

// One translator and its hosts.
struct Camera {
    android::sp<ExtParamInterface> host;  // null: the translator's owner is the adapter
    android::sp<CCameraQzParam> translator;
    android::sp<CameraQzCallBack> callBack;
    android::sp<CameraQzSendCmd> command;
    CameraMetadata request;
};

class Session {
  public:
    using Step = void (Session::*)(Random& random);

    // Returns the steps of a kind (request, capabilities, results, inspection), or null.
    static Step stepOf(std::string_view kind);

    Session(const Inputs& inputs, Devices* devices, uint64_t seed);
    ~Session();

    // Runs a step, mostly of that kind and sometimes of another.
    void play(Step step, uint64_t seed);

  private:
    void makeUp(Random& random);
    void adapt(Random& random);
    void connect(Camera* camera);
    void renew(Random& random);

    Camera& choose(Random& random);
    bool adapted(const Camera& camera) const { return &camera == &mAdapted; }
    void expect(const CameraMetadata* request);
    void changeParameters(Random& random);
    void recordParameters();
    void recordAll();

    void request(Random& random);
    void capabilities(Random& random);
    void results(Random& random);
    void inspection(Random& random);

    void host(Camera& camera, Random& random);
    void ask(Camera& camera, Random& random);
    void askSizes(Camera& camera, Random& random);
    void askAdapter(Random& random);
    void askWithoutHost(Camera& camera, Random& random);
    void callBack(Camera& camera, Random& random);
    void command(Camera& camera, Random& random);
    void inspect(QzPerformEx& inspector, Random& random);
    void askNames(Random& random);

    const Inputs& mInputs;
    Devices& mDevices;
    Answers mAnswers;
    ResultHost* mResultHost = nullptr;
    android::sp<ExtCallBackInterface> mResultHostOwner;
    RecordedHost* mMadeUpHost = nullptr;
    android::sp<RecordedAdapter> mAdapter;
    android::CameraParameters2 mParameters;
    Camera mMadeUp;
    Camera mAdapted;
    android::sp<QzPerformEx> mInspectors[2];
};

}  // namespace qz::compare
