// Plays a session: carries out its commands on the library and tells what comes of them as events.
#pragma once

#include "base/Text.h"
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
    // Puts the device's vendor tags in place of the process's. `device` must outlive the player.
    Player(const Device& device, EventSink sink);
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    const TagNames& names() const { return mNames; }

    // Parameters that the application sets right after each `open`.
    void setParameters(std::vector<Parameter> parameters) { mInitial = std::move(parameters); }

    // False when an expectation was not met.
    bool play(const Session& session);

    // The same piece by piece: what one piece leaves behind is there for the next, until the end closes the
    // camera and sums up.
    void playPiece(const Session& piece);
    bool end();

    // A session written for another device: expectations are left out, and so is what this device has no tags
    // for.
    void playAsGuest(const Session& session);

  private:
    struct BackgroundCommand {
        std::string text;
        int32_t status;
        std::vector<LogEvent> log;
    };

    void examineExpectation(const Session& session, const Command& command);
    bool takesAllResults(const Session& session) const;
    bool isPlayed(const Command& command) const;
    void execute(const Command& command);
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

    void hear(const LogEvent& line);
    void status(const std::string& of, int32_t value, bool isAnswer = false);
    void property(const std::string& name, const std::string& value);
    void setParameter(const std::string& key, const std::string& value);
    VerdictsEvent judge(const Trace& trace);
    void addResultEntry(android::CameraMetadata& result, const std::string& assignment);
    std::vector<EntryRow> entriesOf(const android::CameraMetadata& metadata) const;
    Texts parameterTexts() const;
    Change changeOf(const std::string& key, const std::string& value, const Texts& before) const;
    void addRows(PublishEvent& event, const Texts& before);
    void addCapabilitiesWithoutRow(PublishEvent& event);

    EventSink mSink;
    TagNames mNames;
    android::CameraMetadata mCharacteristics;
    VerdictFinder mVerdicts;
    std::vector<Parameter> mInitial;
    std::unique_ptr<Camera> mCamera;
    std::set<std::string> mOwnKeys;  // what the application set, and no publishing after it
    Circumstances mCircumstances;    // of the next request
    std::vector<EntryRow> mResult;   // the last one's
    std::future<BackgroundCommand> mBackground;
    PlayState mState;
    bool mPublished = false;  // by this camera
    int64_t mFrame = 0;
    bool mExpectations = true;        // are examined
    bool mBackgroundCommands = true;  // are played
    size_t mMet = 0;
    size_t mFailed = 0;
};

}  // namespace qzcam
