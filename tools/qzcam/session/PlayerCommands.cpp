// SPDX-License-Identifier: Apache-2.0
// The commands of the player, one function for each.
#include "cli/Queries.h"
#include "device/Properties.h"
#include "facts/Lookup.h"
#include "facts/Tags.h"
#include "facts/Vocabulary.h"
#include "host/LogCapture.h"
#include "session/Assignment.h"
#include "session/Player.h"

#include <camera/CaptureResult.h>
#include <fmt/format.h>
#include <utils/String16.h>

#include <algorithm>
#include <utility>

namespace qzcam {

namespace {

int32_t numberOf(const std::string& word) { return static_cast<int32_t>(*parseInteger(word)); }

template <typename Rows>
auto findTag(Rows& rows, uint32_t tag) {
    return std::find_if(rows.begin(), rows.end(), [&](const EntryRow& row) { return row.tag == tag; });
}

// Marks entries that are new or changed since `before`, and adds those that are gone.
void markChanges(std::vector<EntryRow>& entries, const std::vector<EntryRow>& before) {
    std::vector<EntryRow> gone;
    for (const EntryRow& old : before) {
        if (old.change == Change::Gone) continue;
        const auto now = findTag(entries, old.tag);
        if (now == entries.end()) {
            gone.push_back({old.tag, old.name, old.values, Change::Gone, {}, {}});
        } else if (now->values != old.values) {
            now->change = Change::Changed;
            now->before = old.values;
        }
    }
    for (EntryRow& row : entries) {
        const auto old = findTag(before, row.tag);
        if (old == before.end() || old->change == Change::Gone) row.change = Change::New;
    }
    entries.insert(entries.end(), gone.begin(), gone.end());
}

// Returns the parameters whose values an entry has.
Texts originOf(const EntryRow& entry, const std::vector<VerdictRow>& verdicts) {
    Texts origin;
    for (const VerdictRow& row : verdicts) {
        const bool wrote = std::any_of(row.entries.begin(), row.entries.end(), [&](const VerdictEntry& each) {
            return each.tag == entry.tag && each.verdict == Verdict::Written && each.values == entry.values;
        });
        if (wrote) origin.emplace(row.key, row.value);
    }
    return origin;
}

}  // namespace

void Player::status(const std::string& of, int32_t value, bool isAnswer) {
    mState.step.status = value;
    mSink(StatusEvent{of, value, isAnswer});
}

void Player::setProp(const Command& command) { setProperty(command.word(0), command.word(1)); }

void Player::open(const Command& command) {
    mCamera.reset();
    chooseDevice(numberOf(command.word(0)));
    mCamera =
        std::make_unique<Camera>(numberOf(command.word(0)), mCharacteristics, [this](const Message& message) {
            mState.step.messages.push_back(message);
            mSink(CallbackEvent{message});
        });
    mState.camera = mCamera.get();
    mState.entries.clear();
    mState.verdicts.clear();
    mState.published = {};
    mPublished = false;
    mOwnKeys.clear();
    mResult.clear();
    mCircumstances = {};
    mCircumstances.camera = numberOf(command.word(0));
    mSetLines.clear();
    for (const auto& [key, value] : mInitial) setParameter(key, value, 0);
}

void Player::client(const Command& command) {
    mCircumstances.client = command.word(0);
    mCamera->translator().setClientName(android::String16(command.word(0).c_str()));
}

void Player::callbackFlag(const Command& command) {
    mCircumstances.callbackFlag = static_cast<uint32_t>(*parseInteger(command.word(0)));
    mCamera->translator().setCallBackFlag(mCircumstances.callbackFlag);
}

void Player::recording(const Command& command) {
    mCamera->translator().qzUpdateRecordingState(*yesOrNo(command.word(0)));
}

void Player::set(const Command& command) {
    for (const std::string_view pair : split(command.word(0), ';')) {
        const size_t equals = pair.find('=');
        if (equals == std::string_view::npos) continue;
        setParameter(std::string(pair.substr(0, equals)), std::string(pair.substr(equals + 1)), command.line);
    }
}

void Player::setParameter(const std::string& key, const std::string& value, size_t line) {
    mCamera->parameters().set(key.c_str(), value.c_str());
    const char* now = mCamera->parameters().get(key.c_str());
    if (now && value == now) {
        mOwnKeys.insert(key);
        mSetLines[key] = line;
    } else {
        mSink(NoteEvent{fmt::format("the parameter set refused {}", excerpt(key + "=" + value))});
    }
}

void Player::unset(const Command& command) {
    mCamera->adapter().remove(command.word(0).c_str());
    mOwnKeys.erase(command.word(0));
}

void Player::params(const Command&) {
    ParamsEvent event;
    for (auto& [key, value] : allParameters(mCamera->parameters())) {
        event.rows.push_back({std::move(key), std::move(value), {}, Change::None});
    }
    mSink(event);
}

// Updates the adapter as a service does before it passes the parameters to the application.
void Player::refresh(const Command&) {
    const Texts before = parameterTexts();
    mCamera->adapter().setShutterMute(mCamera->parameters());
    mCamera->adapter().modifySupportedPictureSize(mCamera->parameters());
    mCamera->adapter().modifyOTPtestResult(mCamera->parameters());
    ParamsEvent event;
    for (const auto& [key, value] : parameterTexts()) {
        const Change change = changeOf(key, value, before);
        if (change != Change::None) event.rows.push_back({key, value, {}, change});
    }
    mSink(event);
}

std::string Player::flattened() const {
    if (!mCamera) return {};
    const android::String8 text = mCamera->parameters().flatten();
    return {text.c_str(), text.length()};
}

Texts Player::parameterTexts() const {
    Texts texts;
    for (auto& [key, value] : allParameters(mCamera->parameters())) {
        texts.emplace(std::move(key), std::move(value));
    }
    return texts;
}

Change Player::changeOf(const std::string& key, const std::string& value, const Texts& before) const {
    const auto found = before.find(key);
    if (found == before.end()) return Change::New;
    return found->second == value ? Change::None : Change::Changed;
}

void Player::publish(const Command&) {
    const Texts before = parameterTexts();
    mCamera->adapter().takePublished();
    status("publish", mCamera->translator().metaDataToParam());
    PublishEvent event;
    addRows(event, before);
    addCapabilitiesWithoutRow(event);
    mPublished = true;
    mState.published = event;
    mSink(event);
}

void Player::addRows(PublishEvent& event, const Texts& before) {
    for (auto& [key, capability] : mCamera->adapter().takePublished()) {
        mOwnKeys.erase(key);
        const char* value = mCamera->parameters().get(key.c_str());
        ParamRow row{key, value ? value : "", {}, Change::None};
        if (!isUnconditional(key)) row.capability = mNames.nameOf(capability);
        const Change change = changeOf(row.key, row.value, before);
        if (mPublished || change == Change::Changed) row.change = change;
        event.rows.push_back(std::move(row));
    }
}

void Player::addCapabilitiesWithoutRow(PublishEvent& event) {
    for (const std::string& name : capabilityNames()) {
        const Tag* tag = mNames.find(name);
        const bool hasRow = std::any_of(event.rows.begin(), event.rows.end(),
                                        [&](const ParamRow& row) { return row.capability == name; });
        if (!tag) {
            event.undeclared.push_back(name);
        } else if (mCharacteristics.find(tag->id).count == 0) {
            event.absent.push_back(name);
        } else if (!hasRow) {
            event.silent.push_back(name);
        }
    }
}

void Player::request(const Command& command) {
    android::CameraMetadata metadata;
    PassSteps steps;
    {
        const LogListener listener([&](const LogEvent& line) {
            addLogLine(steps, line);
            onLogLine(line);
        });
        mCamera->adapter().watch(&steps);
        status("request", mCamera->translator().paramToMetaData(&metadata));
        mCamera->adapter().watch(nullptr);
    }
    android::List<const android::CameraMetadata> requests;
    requests.push_back(metadata);
    mCamera->inspector().checkRequest(requests, command.words.empty() || command.word(0) == "repeating");
    RequestEvent event{entriesOf(metadata)};
    const VerdictsEvent verdicts = judge(steps);
    for (EntryRow& entry : event.entries) addOrigin(entry, verdicts.rows);
    markChanges(event.entries, mState.entries);
    mState.entries = event.entries;
    mState.verdicts = verdicts.rows;
    mSink(event);
    mSink(verdicts);
}

void Player::addOrigin(EntryRow& entry, const std::vector<VerdictRow>& verdicts) const {
    entry.from = originOf(entry, verdicts);
    for (const auto& [key, value] : entry.from) {
        const auto line = mSetLines.find(key);
        if (line != mSetLines.end() && line->second != 0) entry.lines.insert(*line);
    }
}

VerdictsEvent Player::judge(const PassSteps& steps) {
    const Texts parameters = parameterTexts();
    VerdictsEvent event{
        mVerdicts->find(steps, {mOwnKeys.begin(), mOwnKeys.end()}, parameters, mCircumstances)};
    for (VerdictRow& row : event.rows) {
        const auto line = mSetLines.find(row.key);
        if (line != mSetLines.end()) row.line = line->second;
        row.repeated =
            std::any_of(mState.verdicts.begin(), mState.verdicts.end(), [&](const VerdictRow& before) {
                return before.key == row.key && before.value == row.value && before.verdict == row.verdict;
            });
    }
    mCircumstances.before = parameters;
    return event;
}

std::vector<EntryRow> Player::entriesOf(const android::CameraMetadata& metadata) const {
    std::vector<EntryRow> entries;
    const camera_metadata_t* buffer = metadata.getAndLock();
    camera_metadata_ro_entry_t entry{};
    for (size_t i = 0; get_camera_metadata_ro_entry(buffer, i, &entry) == 0; ++i) {
        entries.push_back({entry.tag, mNames.nameOf(entry.tag), valuesOf(entry), Change::None, {}, {}});
    }
    metadata.unlock(buffer);
    return entries;
}

void Player::result(const Command& command) {
    const android::sp<android::CaptureResult> result = new android::CaptureResult;
    result->mResultExtras.requestId = 0;
    result->mResultExtras.frameNumber = ++mFrame;
    result->mResultExtras.partialResultCount = 1;
    for (const Word& word : command.words) addResultEntry(result->mMetadata, word.raw);
    ResultEvent event{mFrame, entriesOf(result->mMetadata)};
    markChanges(event.entries, mResult);
    mResult = event.entries;
    mSink(event);
    mCamera->inspector().checkResult(*result);
    status("result", mCamera->callbacks().processQzCallBack(result->mMetadata));
}

void Player::addResultEntry(android::CameraMetadata& result, const std::string& assignment) {
    const auto entry = parseAssignment(mNames, assignment);
    if (const auto* wrong = std::get_if<std::string>(&entry)) {
        mSink(NoteEvent{fmt::format("left out: {}", *wrong)});
    } else {
        update(result, std::get<StaticEntry>(entry).tag, std::get<StaticEntry>(entry).values);
    }
}

void Player::sendCommand(const Command& command) {
    const bool inBackground = command.words.back().text == "background";
    const size_t numbers = command.words.size() - (inBackground ? 1U : 0U);
    const int32_t code = numberOf(command.word(0));
    const int32_t arg1 = numbers > 1 ? numberOf(command.word(1)) : 0;
    const int32_t arg2 = numbers > 1 ? numberOf(command.word(2)) : 0;
    const std::string text = fmt::format("command {}", code);
    if (!inBackground) return status(text, mCamera->commands().sendCommand(code, arg1, arg2), true);
    mBackground = std::async(std::launch::async, [text, code, arg1, arg2, &commands = mCamera->commands()] {
        BackgroundCommand done{text, 0, {}};
        const LogListener listener([&](const LogEvent& line) { done.log.push_back(line); });
        done.status = commands.sendCommand(code, arg1, arg2);
        return done;
    });
}

void Player::wait(const Command&) {
    if (!mBackground.valid()) return mSink(NoteEvent{"no command runs in the background"});
    const BackgroundCommand done = mBackground.get();
    for (const LogEvent& line : done.log) onLogLine(line);
    status(done.text, done.status, true);
}

void Player::callback(const Command& command) {
    const std::string& kind = command.word(0);
    const int32_t value = numberOf(command.word(1));
    if (kind == "hdc-calib") return status(kind, mCamera->callbacks().callbackHDCCalibResult(value));
    if (kind == "fov-calib") return status(kind, mCamera->callbacks().callbackFovCalibResult(value));
    mCamera->callbacks().callbackSmartMode(value);
}

void Player::inspect(const Command& command) {
    setProperty("camera.qzperformex.loglevel", command.word(0));
    for (size_t i = 1; i < command.words.size(); i += 2) {
        setProperty("camera.qzperformex." + command.word(i), command.word(i + 1));
    }
}

void Player::skip(const Command& command) {
    const auto [width, height] = *parseSize(command.word(0));
    const bool skipped = mCamera->inspector().skipRoundBuffer(width, height, *pixelFormat(command.word(1)));
    mState.step.skipped = skipped;
    mSink(AnswerEvent{"skipped", yesNo(skipped)});
}

void Player::query(const Command& command) {
    mSink(AnswerEvent{command.word(0), askQuery(*mCamera, command)});
}

}  // namespace qzcam
