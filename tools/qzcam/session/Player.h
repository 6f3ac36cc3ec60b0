// SPDX-License-Identifier: Apache-2.0
// Plays a session: runs its commands on the library and reports the results as events.
#pragma once

#include "base/Text.h"
#include "device/Cameras.h"
#include "device/Device.h"
#include "host/Camera.h"
#include "host/Events.h"
#include "session/Expectations.h"
#include "session/Session.h"
#include "verdict/Verdicts.h"

#include <camera/CameraMetadata.h>

#include <cstddef>
#include <future>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

class Player {
  public:
    // Replaces the vendor tags of the process by the device's. `device` must outlive the player.
    Player(const Device& device, EventSink sink);
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    // From now on `open N` opens camera N of `cameras`. Without them it opens the one device for every
    // number.
    void setCameras(std::shared_ptr<Cameras> cameras) { mCameras = std::move(cameras); }

    const TagNames& names() const { return mNames; }
    const Offers& offers() const { return mVerdicts->offers(); }

    // Returns all present parameters, "key=value;key=value"; empty without a camera.
    std::string flattened() const;

    // Sets the parameters that the application sets right after each `open`.
    void setParameters(std::vector<Parameter> parameters) { mInitial = std::move(parameters); }

    // From now on parameters that the device does not offer, or whose number does not fit, count as failed
    // expectations. A parameter for which the session expects this verdict does not count.
    void setStrict() { mStrict = true; }

    // Returns false if an expectation was not met.
    bool play(const Session& session);

    // Play a session in parts: each part continues with the state of the part before it. The end closes the
    // camera and prints the summary.
    void playPiece(const Session& piece);
    bool end();

    // Plays a session written for another device: skips expectations, and commands for tags that this device
    // does not declare.
    bool playOnOtherDevice(const Session& session);

  private:
    struct BackgroundCommand {
        std::string text;
        int32_t status;
        std::vector<LogEvent> log;
    };

    void examineExpectation(const Session& session, const Command& command);
    void examineVerdicts(const Session& session, size_t request);
    bool takesAllResults(const Session& session) const;
    bool isPlayed(const Command& command) const;
    void execute(const Command& command);
    void use(const Device& device);
    void chooseDevice(int number);
    void begin(size_t line, const std::string& text);
    void finish();

    void setProp(const Command& command);
    void open(const Command& command);
    void client(const Command& command);
    void callbackFlag(const Command& command);
    void recording(const Command& command);
    void set(const Command& command);
    void unset(const Command& command);
    void params(const Command& command);
    void refresh(const Command& command);
    void publish(const Command& command);
    void request(const Command& command);
    void result(const Command& command);
    void sendCommand(const Command& command);
    void wait(const Command& command);
    void callback(const Command& command);
    void inspect(const Command& command);
    void skip(const Command& command);
    void query(const Command& command);

    void onLogLine(const LogEvent& line);
    void status(const std::string& of, int32_t value, bool isAnswer = false);
    void setParameter(const std::string& key, const std::string& value, size_t line);
    VerdictsEvent judge(const PassSteps& steps);
    void addOrigin(EntryRow& entry, const std::vector<VerdictRow>& verdicts) const;
    void addResultEntry(android::CameraMetadata& result, const std::string& assignment);
    std::vector<EntryRow> entriesOf(const android::CameraMetadata& metadata) const;
    Texts parameterTexts() const;
    Change changeOf(const std::string& key, const std::string& value, const Texts& before) const;
    void addRows(PublishEvent& event, const Texts& before);
    void addCapabilitiesWithoutRow(PublishEvent& event);

    EventSink mSink;
    TagNames mNames;
    android::CameraMetadata mCharacteristics;
    std::optional<VerdictFinder> mVerdicts;
    const Device* mDevice = nullptr;
    std::shared_ptr<Cameras> mCameras;
    std::vector<Parameter> mInitial;
    std::unique_ptr<Camera> mCamera;
    std::set<std::string> mOwnKeys;  // keys that the application set, not overwritten by publishing
    SetLines mSetLines;              // lines of the session that set parameters
    Circumstances mCircumstances;    // circumstances of the next request
    std::vector<EntryRow> mResult;   // entries of the last result
    std::future<BackgroundCommand> mBackground;
    PlayState mState;
    bool mPublished = false;  // this camera has published
    int64_t mFrame = 0;
    bool mStrict = false;
    bool mExpectations = true;        // expectations are examined
    bool mBackgroundCommands = true;  // commands in the background are played
    size_t mMet = 0;
    size_t mFailed = 0;
};

}  // namespace qzcam
