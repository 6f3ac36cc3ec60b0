// SPDX-License-Identifier: Apache-2.0
#include "output/Perfetto.h"

#include "base/Text.h"
#include "facts/Tags.h"
#include "facts/Units.h"
#include "facts/Vocabulary.h"
#include "host/EventWords.h"
#include "output/Quantity.h"

#include <fmt/format.h>

#include <set>

namespace qzcam {

namespace {

using Notes = TrackEvents::Notes;
using Time = TrackEvents::Nanoseconds;
using Track = TrackEvents::Track;

constexpr Time kCommand = 1000000;
constexpr Time kStep = 1000;

Notes notesOf(const EntryRow& row) {
    Notes notes{{"type", typeAndCount(row.values)}};
    for (const auto& [key, value] : row.from) notes.emplace_back("from", key + "=" + value);
    return notes;
}

}  // namespace

// The tracks of one session.
class Perfetto::SessionTracks {
  public:
    SessionTracks(TrackEvents& events, Time& now, const std::string& device, const std::string& file);
    ~SessionTracks();
    SessionTracks(const SessionTracks&) = delete;
    SessionTracks& operator=(const SessionTracks&) = delete;

    void show(const SessionEvent&) {}
    void show(const CommandEvent& event);
    void show(const RequestEvent& event);
    void show(const VerdictsEvent& event);
    void show(const ResultEvent& event);
    void show(const ParamsEvent&) {}  // values set by other events
    void show(const PublishEvent& event);
    void show(const CallbackEvent& event);
    void show(const LogEvent& event);
    void show(const StatusEvent& event);
    void show(const AnswerEvent& event);
    void show(const ErrorEvent& event);
    void show(const NoteEvent& event);
    void show(const ExpectationEvent& event);
    void show(const SummaryEvent& event);

  private:
    void endCommand();
    void endCamera();
    void showEntries(ValueTracks& tracks, const std::vector<EntryRow>& entries);

    TrackEvents& mEvents;
    Time& mNow;
    Track mRoot;
    Track mCommands;
    Track mFrames;
    Track mMessages;
    Track mRefusals;
    Track mExpectations;
    ValueTracks mParameters;
    ValueTracks mRequest;
    ValueTracks mResult;
    ValueTracks mPublished;
    Track mLog;
    std::map<std::string, Track> mLogTags;
    size_t mRequests = 0;
    bool mInCommand = false;
    bool mInRequest = false;
    Time mFrameBegin = 0;
};

Perfetto::SessionTracks::SessionTracks(TrackEvents& events, Time& now, const std::string& device,
                                       const std::string& file)
    : mEvents(events),
      mNow(now),
      mRoot(events.addTrack(TrackEvents::kTop, file)),
      mCommands(events.addTrack(mRoot, "commands")),
      mFrames(events.addTrack(mRoot, "requests and frames")),
      mMessages(events.addTrack(mRoot, "messages")),
      mRefusals(events.addTrack(mRoot, "refusals")),
      mExpectations(events.addTrack(mRoot, "expectations")),
      mParameters(events, mRoot, "parameters"),
      mRequest(events, mRoot, "request entries"),
      mResult(events, mRoot, "result entries"),
      mPublished(events, mRoot, "published parameters"),
      mLog(events.addTrack(mRoot, "log")) {
    mEvents.begin(mCommands, mNow, file, {{"device", device}});
}

Perfetto::SessionTracks::~SessionTracks() {
    mNow = (mNow / kCommand + 1) * kCommand;
    endCommand();
    endCamera();
    mEvents.end(mCommands, mNow);
}

void Perfetto::SessionTracks::endCommand() {
    if (mInCommand) mEvents.end(mCommands, mNow);
    mInCommand = false;
}

// Entries and parameters belong to a camera.
void Perfetto::SessionTracks::endCamera() {
    if (mInRequest) mEvents.end(mFrames, mNow);
    mInRequest = false;
    for (ValueTracks* tracks : {&mParameters, &mRequest, &mResult, &mPublished}) tracks->keepOnly(mNow, {});
}

void Perfetto::SessionTracks::show(const CommandEvent& event) {
    mNow = (mNow / kCommand + 1) * kCommand;
    endCommand();
    std::string_view text = event.text;
    const std::string_view name = takeWord(text);
    if (name == "open" || name == "close") endCamera();
    Notes notes;
    if (event.line != 0) notes.emplace_back("line", fmt::to_string(event.line));
    mEvents.begin(mCommands, mNow, event.text, notes);
    mInCommand = true;
    if (!mInRequest) mFrameBegin = mNow;
}

void Perfetto::SessionTracks::showEntries(ValueTracks& tracks, const std::vector<EntryRow>& entries) {
    std::set<std::string> names;
    for (const EntryRow& row : entries) {
        if (row.change == Change::Gone) continue;
        names.insert(row.name);
        tracks.show(
            mNow, featureOfTag(row.name), row.name,
            {toText(row.values, row.tag), notesOf(row), quantityOf(row.values, row.tag), unitOf(row.name)});
    }
    tracks.keepOnly(mNow, names);
}

void Perfetto::SessionTracks::show(const RequestEvent& event) {
    if (mInRequest) mEvents.end(mFrames, mNow);
    mInRequest = true;
    mFrameBegin = mNow;
    mEvents.begin(mFrames, mNow, fmt::format("request {}", ++mRequests));
    showEntries(mRequest, event.entries);
}

void Perfetto::SessionTracks::show(const VerdictsEvent& event) {
    std::set<std::string> keys;
    for (const VerdictRow& row : event.rows) {
        keys.insert(row.key);
        const std::string verdict =
            verdictMeaning(row.verdict) + (row.reason.empty() ? "" : ": " + row.reason);
        mParameters.show(mNow, featureOfKey(row.key), row.key, {row.value, {{"verdict", verdict}}});
        if (row.verdict == Verdict::Written || row.repeated) continue;
        mEvents.instant(mRefusals, mNow, fmt::format("{}={}: {}", row.key, row.value, verdict));
    }
    mParameters.keepOnly(mNow, keys);
}

// A request repeats until the next one. So a frame begins with its request, or with the end of the previous
// frame.
void Perfetto::SessionTracks::show(const ResultEvent& event) {
    mEvents.begin(mFrames, mFrameBegin, fmt::format("frame {}", event.frame));
    mEvents.end(mFrames, mNow);
    mFrameBegin = mNow;
    showEntries(mResult, event.entries);
}

void Perfetto::SessionTracks::show(const PublishEvent& event) {
    for (const ParamRow& row : event.rows) {
        Notes notes;
        if (!row.capability.empty()) notes.emplace_back("from", row.capability);
        mPublished.show(mNow, featureOfKey(row.key), row.key, {row.value, notes});
    }
}

void Perfetto::SessionTracks::show(const CallbackEvent& event) {
    const Message& message = event.message;
    Notes notes{{"code", fmt::format("{:#x}", message.code)}};
    for (const auto& [name, value] : message.fields) notes.emplace_back(name.empty() ? "value" : name, value);
    mEvents.instant(mMessages, mNow, message.name, notes);
}

void Perfetto::SessionTracks::show(const LogEvent& event) {
    auto track = mLogTags.find(event.tag);
    if (track == mLogTags.end()) {
        track = mLogTags.emplace(event.tag, mEvents.addTrack(mLog, event.tag)).first;
    }
    mEvents.instant(track->second, mNow, event.text, {{"level", std::string(1, logLetter(event.priority))}});
}

void Perfetto::SessionTracks::show(const StatusEvent& event) {
    if (!event.isAnswer && event.status == 0) return;
    mEvents.instant(event.isAnswer ? mCommands : mRefusals, mNow,
                    fmt::format("{} returned {}", event.of, event.status));
}

void Perfetto::SessionTracks::show(const AnswerEvent& event) {
    mEvents.instant(mCommands, mNow, fmt::format("{}: {}", event.question, event.answer));
}

void Perfetto::SessionTracks::show(const ErrorEvent& event) { mEvents.instant(mRefusals, mNow, event.text); }

void Perfetto::SessionTracks::show(const NoteEvent& event) { mEvents.instant(mCommands, mNow, event.text); }

void Perfetto::SessionTracks::show(const ExpectationEvent& event) {
    const Notes notes{
        {"line", fmt::to_string(event.line)}, {"expected", event.expected}, {"actual", event.actual}};
    const std::string text =
        event.met ? fmt::format("ok {}", event.text)
                  : fmt::format("FAILED {}: expected {}, found {}", event.text, event.expected, event.actual);
    mEvents.instant(mExpectations, mNow, text, notes);
}

void Perfetto::SessionTracks::show(const SummaryEvent& event) {
    mEvents.instant(mExpectations, mNow,
                    fmt::format("{} met, {} failed", counted(event.met, "expectation"), event.failed));
}

Perfetto::Perfetto() = default;
Perfetto::~Perfetto() = default;

void Perfetto::device(const Device& device) {
    mDevice = fmt::format("{}, camera {}", device.file, device.camera);
}

void Perfetto::add(const Event& event) {
    if (const auto* session = std::get_if<SessionEvent>(&event)) {
        mSession.reset();
        mSession = std::make_unique<SessionTracks>(mEvents, mNow, mDevice, session->file);
        return;
    }
    mNow += kStep;
    std::visit([this](const auto& each) { mSession->show(each); }, event);
}

std::string Perfetto::finish() {
    mSession.reset();
    return mEvents.bytes();
}

}  // namespace qzcam
