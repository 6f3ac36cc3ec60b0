// SPDX-License-Identifier: Apache-2.0
#include "trace/TracePerfetto.h"

#include "base/Lists.h"
#include "facts/Tags.h"
#include "facts/Units.h"
#include "host/EventWords.h"
#include "output/Quantity.h"
#include "output/ValueTracks.h"

#include <fmt/format.h>
#include <host/StandardTags.h>

#include <algorithm>
#include <utility>

namespace qzcam {

namespace {

using Kind = TraceItem::Kind;
using Side = TraceItem::Side;
using Notes = TrackEvents::Notes;
using Time = TrackEvents::Nanoseconds;
using Track = TrackEvents::Track;

constexpr Time kStep = 1000;

// Returns 0, which has no name, for a vendor tag.
uint32_t standardTag(const std::string& fullName) {
    const size_t dot = std::min(fullName.rfind('.'), fullName.size());
    const auto* tag =
        qz::host::findStandardTag(std::string_view(fullName).substr(0, dot),
                                  std::string_view(fullName).substr(std::min(dot + 1, fullName.size())));
    return tag == nullptr ? 0 : tag->tag;
}

std::string nameOfEntry(const TraceItem& item) {
    return item.physicalCamera.empty() ? item.tag
                                       : fmt::format("{}, physical camera {}", item.tag, item.physicalCamera);
}

std::string refusalText(const TraceItem& item) {
    const std::string& what = item.tag.empty() && !item.keys.empty() ? item.keys.front() : item.tag;
    const std::string value = item.value.empty() ? "" : " " + item.value;
    return fmt::format("{} {}{}: {}", nameOf(item.kind), what, value, item.cause);
}

}  // namespace

// The tracks of one camera in a group.
class TracePerfetto::CameraTracks {
  public:
    CameraTracks(TrackEvents& events, Track root)
        : mEvents(events),
          mFrames(events.addTrack(root, "frames")),
          mMessages(events.addTrack(root, "messages")),
          mRefusals(events.addTrack(root, "refusals")),
          mParameters(events, root, "parameters"),
          mRequest(events, root, "request entries"),
          mResult(events, root, "result entries"),
          mStatic(events, root, "static entries"),
          mLog(events.addTrack(root, "log")) {}

    void show(Time now, const TraceItem& item, const Notes& notes);
    void end(Time now);

  private:
    // Several frames are in flight at the same time: each has a lane until its result arrives.
    struct Lane {
        Track track;
        std::optional<int64_t> frame;
    };

    void showFrame(Time now, const TraceItem& item);
    void showEntry(Time now, const TraceItem& item, const Notes& notes);
    ValueTracks& tracksOf(Side side);
    Lane& freeLane();
    Lane* laneOf(int64_t frame);

    TrackEvents& mEvents;
    Track mFrames;
    Track mMessages;
    Track mRefusals;
    ValueTracks mParameters;
    ValueTracks mRequest;
    ValueTracks mResult;
    ValueTracks mStatic;
    Track mLog;
    std::vector<Lane> mLanes;
    int64_t mLastFrame = -1;  // the last frame that has begun
};

void TracePerfetto::CameraTracks::show(Time now, const TraceItem& item, const Notes& notes) {
    if (item.frame) showFrame(now, item);
    switch (item.kind) {
        case Kind::Entry:
            return showEntry(now, item, notes);
        case Kind::Logged:
            for (const std::string& key : item.keys) {
                mParameters.show(now, featureOfKey(key), key,
                                 {item.value.empty() ? "unknown" : item.value, notes});
            }
            return;
        case Kind::Refused:
        case Kind::Undeclared:
        case Kind::Gated:
            return mEvents.instant(mRefusals, now, refusalText(item), notes);
        case Kind::Message:
            return mEvents.instant(mMessages, now, item.message, notes);
        case Kind::Request:
        case Kind::Result:
            return mEvents.instant(mFrames, now, nameOf(item.kind), notes);
        default:
            return mEvents.instant(mLog, now, item.text.empty() ? nameOf(item.kind) : item.text, notes);
    }
}

void TracePerfetto::CameraTracks::showEntry(Time now, const TraceItem& item, const Notes& notes) {
    ValueTracks& tracks = tracksOf(item.side);
    const std::string name = nameOfEntry(item);
    if (item.isRemoved) return tracks.hide(now, name);
    ValueTracks::Value value{item.value.empty() ? "unknown" : item.value, notes, {}, unitOf(item.tag)};
    if (item.values) value.number = quantityOf(*item.values, standardTag(item.tag));
    tracks.show(now, featureOfTag(item.tag), name, value);
}

ValueTracks& TracePerfetto::CameraTracks::tracksOf(Side side) {
    if (side == Side::Static) return mStatic;
    return side == Side::Result ? mResult : mRequest;
}

TracePerfetto::CameraTracks::Lane* TracePerfetto::CameraTracks::laneOf(int64_t frame) {
    return findIf(mLanes, [&](const Lane& lane) { return lane.frame == frame; });
}

TracePerfetto::CameraTracks::Lane& TracePerfetto::CameraTracks::freeLane() {
    if (Lane* free = findIf(mLanes, [](const Lane& lane) { return !lane.frame; })) return *free;
    mLanes.push_back({mEvents.addTrack(mFrames, fmt::format("in flight {}", mLanes.size() + 1)), {}});
    return mLanes.back();
}

// A frame is in flight from the first known fact of its request to the first fact of its result.
void TracePerfetto::CameraTracks::showFrame(Time now, const TraceItem& item) {
    const int64_t frame = *item.frame;
    Lane* lane = laneOf(frame);
    if (item.side == Side::Request && lane == nullptr && frame > mLastFrame) {
        Lane& free = freeLane();
        free.frame = frame;
        mLastFrame = frame;
        mEvents.begin(free.track, now, fmt::format("frame {}", frame));
    } else if (item.side == Side::Result && lane != nullptr) {
        lane->frame.reset();
        mEvents.end(lane->track, now);
    }
}

void TracePerfetto::CameraTracks::end(Time now) {
    for (const Lane& lane : mLanes) {
        if (lane.frame) mEvents.end(lane.track, now);
    }
    for (ValueTracks* tracks : {&mParameters, &mRequest, &mResult, &mStatic}) tracks->keepOnly(now, {});
}

TracePerfetto::TracePerfetto() = default;
TracePerfetto::~TracePerfetto() = default;

void TracePerfetto::group(const std::string& title) {
    for (const auto& [camera, tracks] : mCameras) tracks->end(mNow);
    mCameras.clear();
    mGroup = mEvents.addTrack(TrackEvents::kTop, title);
    mStart.reset();
    mNow = 0;
}

TracePerfetto::CameraTracks& TracePerfetto::tracksOf(const std::string& camera) {
    auto& tracks = mCameras[camera];
    if (tracks == nullptr) {
        const std::string title = camera.empty() ? "camera unknown" : "camera " + camera;
        tracks = std::make_unique<CameraTracks>(mEvents, mEvents.addTrack(*mGroup, title));
    }
    return *tracks;
}

void TracePerfetto::moveTo(const LogTime& time) {
    mNow += kStep;
    if (time.kind == LogTime::Kind::None) return;
    if (!mStart) mStart = time;
    if (mStart->kind != time.kind || time.nanoseconds < mStart->nanoseconds) return;
    mNow = std::max(mNow, static_cast<Time>(time.nanoseconds) - static_cast<Time>(mStart->nanoseconds));
}

Notes TracePerfetto::notesOf(const TraceItem& item) const {
    const std::string input = item.input < mInputs.size() ? mInputs[item.input] : "";
    Notes notes{{"line", fmt::format("{}:{}", input, item.line)}};
    const auto add = [&](const char* name, const std::string& text) {
        if (!text.empty()) notes.emplace_back(name, text);
    };
    add("time", item.time.text);
    if (item.frame) add("frame", fmt::to_string(*item.frame));
    add("client", item.client);
    add("cause", item.cause);
    add("declared", item.declared);
    if (item.status) add("status", fmt::to_string(*item.status));
    if (item.times > 1) add("times", fmt::to_string(item.times));
    for (const VerdictRow& row : item.verdicts)
        add(verdictWord(row.verdict), row.key + "=" + row.value + ": " + row.reason);
    for (const std::string& key : item.keys) add("parameter", key);
    for (const auto& [name, value] : item.fields) add(name.empty() ? "value" : name.c_str(), value);
    return notes;
}

void TracePerfetto::item(const TraceItem& item) {
    if (!mGroup) group("session");
    moveTo(item.time);
    tracksOf(item.camera).show(mNow, item, notesOf(item));
}

void TracePerfetto::note(const std::string& text) {
    if (!mNotes) mNotes = mEvents.addTrack(TrackEvents::kTop, "notes");
    mEvents.instant(*mNotes, 0, text);
}

std::string TracePerfetto::finish() {
    for (const auto& [camera, tracks] : mCameras) tracks->end(mNow + kStep);
    mCameras.clear();
    return mEvents.bytes();
}

}  // namespace qzcam
