#include "session/Player.h"

#include "host/LogCapture.h"
#include "session/Assignment.h"

#include <camera/VendorTagDescriptor.h>

#include <algorithm>
#include <array>
#include <utility>

namespace qzcam {

Player::Player(const Device& device, EventSink sink)
    : mSink(std::move(sink)),
      mNames(device.vendorTags),
      mVerdicts(device, mNames, mCharacteristics),
      mState{mNames} {
    installVendorTags(device);
    mCharacteristics = staticCharacteristics(device);
}

Player::~Player() { android::VendorTagDescriptor::clearGlobalVendorTagDescriptor(); }

bool Player::play(const Session& session) {
    playPiece(session);
    return end();
}

bool Player::end() {
    finish();
    if (mMet + mFailed > 0) mSink(SummaryEvent{mMet, mFailed});
    return mFailed == 0;
}

void Player::playAsGuest(const Session& session) {
    mExpectations = false;
    mBackgroundCommands = takesAllResults(session);
    playPiece(session);
    finish();
}

// A command in the background may wait for one that cannot come.
bool Player::takesAllResults(const Session& session) const {
    const auto takes = [this](const Word& word) {
        return std::holds_alternative<StaticEntry>(parseAssignment(mNames, word.raw));
    };
    return std::all_of(session.commands.begin(), session.commands.end(), [&](const Command& command) {
        return command.syntax->id != CommandId::Result ||
               std::all_of(command.words.begin(), command.words.end(), takes);
    });
}

void Player::playPiece(const Session& piece) {
    const LogListener listener([this](const LogEvent& line) { hear(line); });
    for (const Command& command : piece.commands) {
        if (!isPlayed(command)) continue;
        if (isExpectation(command.syntax->id)) {
            examineExpectation(piece, command);
        } else {
            execute(command);
        }
    }
}

bool Player::isPlayed(const Command& command) const {
    const CommandId id = command.syntax->id;
    if (isExpectation(id)) return mExpectations;
    const bool inBackground = id == CommandId::SendCommand && command.words.back().text == "background";
    return mBackgroundCommands || !(inBackground || id == CommandId::Wait);
}

void Player::examineExpectation(const Session& session, const Command& command) {
    const Finding finding = examine(command, mState);
    ++(finding.met ? mMet : mFailed);
    mSink(ExpectationEvent{session.file, command.line, command.text, finding.met, finding.expected,
                           finding.actual});
}

void Player::execute(const Command& command) {
    using Handler = void (Player::*)(const Command&);
    // In the order of CommandId.
    static constexpr std::array<Handler, 18> handlers{
        &Player::setProp, &Player::open,   &Player::client,      &Player::callbackFlag, &Player::recording,
        &Player::set,     &Player::unset,  &Player::params,      &Player::refresh,      &Player::publish,
        &Player::request, &Player::result, &Player::sendCommand, &Player::wait,         &Player::callback,
        &Player::inspect, &Player::skip,   &Player::query};
    static_assert(handlers.size() == static_cast<size_t>(CommandId::ExpectParam));
    begin(command.line, command.text);
    (this->*handlers[static_cast<size_t>(command.syntax->id)])(command);
}

void Player::begin(size_t line, const std::string& text) {
    mState.step = {};
    mSink(CommandEvent{line, text});
}

// A camera that is closed at the end says so in the log, as one that is replaced does.
void Player::finish() {
    const LogListener listener([this](const LogEvent& line) { hear(line); });
    if (mBackground.valid()) {
        begin(0, "wait");
        wait({});
    }
    if (mCamera) {
        begin(0, "close");
        mState.camera = nullptr;
        mCamera.reset();
    }
}

void Player::hear(const LogEvent& line) {
    mState.step.log.push_back(line);
    mSink(line);
}

}  // namespace qzcam
