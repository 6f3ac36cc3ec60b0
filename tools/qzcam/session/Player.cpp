// SPDX-License-Identifier: Apache-2.0
#include "session/Player.h"

#include "host/EventWords.h"
#include "host/LogCapture.h"
#include "session/Assignment.h"

#include <camera/VendorTagDescriptor.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

namespace qzcam {

namespace {

// Removes addresses of this process, "CCameraQzParam(0x562a7f7d04f0)": they are useless to a reader, and
// without them the same session always prints the same lines.
LogEvent withoutAddress(LogEvent line) {
    std::string& text = line.text;
    const size_t begin = text.find("(0x");
    if (begin == std::string::npos || text.find(' ') < begin) return line;
    const size_t end = text.find_first_not_of("0123456789abcdef", begin + 3);
    if (end != std::string::npos && text[end] == ')') text.replace(begin, end - begin, "(0x...");
    return line;
}

}  // namespace

Player::Player(const Device& device, EventSink sink) : mSink(std::move(sink)), mNames({}), mState{mNames} {
    use(device);
}

Player::~Player() { android::VendorTagDescriptor::clearGlobalVendorTagDescriptor(); }

void Player::use(const Device& device) {
    mDevice = &device;
    mNames = TagNames(device.vendorTags);
    installVendorTags(device);
    mCharacteristics = staticCharacteristics(device);
    mVerdicts.emplace(device, mNames, mCharacteristics);
}

void Player::chooseDevice(int number) {
    if (!mCameras) return;
    const Device* device = mCameras->find(number);
    if (device == nullptr) {
        mSink(NoteEvent{fmt::format("no camera {} in the dump: {} is used", number, mDevice->camera)});
    } else if (device->camera != mDevice->camera) {
        mSink(NoteEvent{fmt::format("camera {} is {}: {}", number, device->camera,
                                    counted(device->entries.size(), "static entry", "static entries"))});
        use(*device);
    }
}

bool Player::play(const Session& session) {
    playPiece(session);
    return end();
}

bool Player::end() {
    finish();
    if (mMet + mFailed > 0) mSink(SummaryEvent{mMet, mFailed});
    return mFailed == 0;
}

bool Player::playOnOtherDevice(const Session& session) {
    mExpectations = false;
    mBackgroundCommands = takesAllResults(session);
    playPiece(session);
    finish();
    return mFailed == 0;
}

// A command in the background may wait for a result that never arrives.
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
    const LogListener listener([this](const LogEvent& line) { onLogLine(line); });
    for (size_t i = 0; i < piece.commands.size(); ++i) {
        const Command& command = piece.commands[i];
        if (!isPlayed(command)) continue;
        if (isExpectation(command.syntax->id)) {
            examineExpectation(piece, command);
        } else {
            execute(command);
        }
        if (mStrict && command.syntax->id == CommandId::Request) examineVerdicts(piece, i);
    }
}

namespace {

// Returns true if an expectation directly after the request expects this verdict.
bool expectsVerdict(const Session& session, size_t request, const VerdictRow& row) {
    for (size_t i = request + 1; i < session.commands.size(); ++i) {
        const Command& command = session.commands[i];
        if (!isExpectation(command.syntax->id)) return false;
        const bool isIt = command.syntax->id == CommandId::ExpectVerdict && command.word(0) == row.key &&
                          command.word(1) == verdictWord(row.verdict);
        if (isIt) return true;
    }
    return false;
}

}  // namespace

void Player::examineVerdicts(const Session& session, size_t request) {
    const Command& command = session.commands[request];
    for (const VerdictRow& row : mState.verdicts) {
        if (row.repeated || !isUnfit(row.verdict)) continue;
        if (mExpectations && expectsVerdict(session, request, row)) continue;
        ++mFailed;
        mSink(ExpectationEvent{
            session.file, command.line, "strict " + row.key, false, "a value that is offered and fits",
            fmt::format("{} ({}: {})", excerpt(row.value), verdictWord(row.verdict), row.reason)});
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
    // The functions are in the order of CommandId.
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

// A camera that is closed at the end logs it, like a camera that is replaced.
void Player::finish() {
    const LogListener listener([this](const LogEvent& line) { onLogLine(line); });
    if (mBackground.valid()) {
        begin(0, "wait");
        wait({});
    }
    if (mCamera) {
        begin(0, "close");
        mCamera.reset();
    }
}

void Player::onLogLine(const LogEvent& line) {
    mState.step.log.push_back(withoutAddress(line));
    mSink(mState.step.log.back());
}

}  // namespace qzcam
