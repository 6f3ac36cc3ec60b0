// SPDX-License-Identifier: Apache-2.0
#include "trace/Timeline.h"

#include "base/Text.h"
#include "facts/Lookup.h"
#include "trace/Derived.h"
#include "trace/LogItems.h"
#include "trace/MergeLog.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

namespace qzcam {

namespace {

using Kind = TraceItem::Kind;
using Side = TraceItem::Side;

constexpr size_t kRing = 100;  // number of events that the tag monitor keeps for a client

std::string keyOf(const MonitorEvent& event) {
    return fmt::format("{} {} {} {} {} {} {} {}", event.frame, event.nanoseconds, event.isRequest,
                       event.isRemoved, event.physicalCamera, event.tag, event.streams,
                       fmt::join(event.rows, "|"));
}

// Events of one session may be in several places: in dumps of different moments, in the output of "watch".
void joinStreams(std::vector<MonitorStream>& streams) {
    std::vector<MonitorStream> joined;
    std::map<std::string, size_t> places;
    for (MonitorStream& stream : streams) {
        size_t place = joined.size();
        for (const MonitorEvent& event : stream.events) {
            const auto found = places.find(keyOf(event));
            if (found != places.end()) place = found->second;
        }
        if (place == joined.size()) joined.push_back({stream.place, stream.input, {}});
        MonitorStream& same = joined[place];
        same.sections.emplace_back(stream.input, stream.place.section);
        for (MonitorEvent& event : stream.events) {
            if (places.emplace(keyOf(event), place).second) same.events.push_back(std::move(event));
        }
        if (same.place.client.empty()) same.place.client = stream.place.client;
        if (same.place.camera.empty()) same.place.camera = stream.place.camera;
        same.place.monitored.insert(stream.place.monitored.begin(), stream.place.monitored.end());
    }
    streams = std::move(joined);
}

// Sorts the events of a frame: requests before results, and then in the order in which they happened. Dumps
// print the newest event first.
void sortByFrame(MonitorStream& stream) {
    auto& events = stream.events;
    if (events.size() > 1 && events.front().frame > events.back().frame)
        std::reverse(events.begin(), events.end());
    std::stable_sort(events.begin(), events.end(), [](const MonitorEvent& a, const MonitorEvent& b) {
        return a.frame != b.frame ? a.frame < b.frame : a.isRequest && !b.isRequest;
    });
}

std::string titleOf(const MonitorPlace& place) {
    std::string title = "camera " + (place.camera.empty() ? std::string("unknown") : place.camera);
    if (!place.client.empty()) title += ", " + place.client;
    if (place.isPrevious) title += ", a session that was closed before the dump";
    return title;
}

// Lines may be in the wrong order. Lines without a time keep their place.
std::vector<TraceItem> logItems(std::vector<Evidence::Log>& log, std::vector<std::string>& notes) {
    const bool haveTimes = std::all_of(log.begin(), log.end(), [&](const Evidence::Log& each) {
        return each.line.isRaw || each.line.time.kind == log.front().line.time.kind;
    });
    if (haveTimes) {
        std::stable_sort(log.begin(), log.end(), [](const Evidence::Log& a, const Evidence::Log& b) {
            return a.line.time.nanoseconds < b.line.time.nanoseconds;
        });
    }
    std::vector<TraceItem> items;
    LogItems reader([&items](TraceItem item) { items.push_back(std::move(item)); });
    for (const Evidence::Log& each : log) reader.feed(each.line, each.input);
    reader.end();
    // A fact of several lines is complete only after facts of other threads.
    const bool allTimes = std::all_of(items.begin(), items.end(), [](const TraceItem& item) {
        return item.time.kind != LogTime::Kind::None;
    });
    if (haveTimes && allTimes) {
        std::stable_sort(items.begin(), items.end(), [](const TraceItem& a, const TraceItem& b) {
            return a.time.nanoseconds < b.time.nanoseconds;
        });
    }
    if (reader.repeated() > 0) {
        notes.push_back(
            fmt::format("log: {} left out as repeated: time, thread and text are those of an earlier one",
                        counted(reader.repeated(), "line")));
    }
    return items;
}

std::string fieldsText(const TraceItem& item) {
    std::string text = item.message;
    for (const Message::Field& field : item.fields) text += " " + field.name + "=" + field.value;
    return text;
}

// Joins a message of the log with the equal message of a result, so that it has a frame and a time. Both must
// have it equally often.
void joinMessages(std::vector<TraceItem>& log, std::vector<TraceItem>& derived) {
    std::map<std::string, std::vector<TraceItem*>> logged;
    std::map<std::string, std::vector<TraceItem*>> derivedByText;
    for (TraceItem& item : log) {
        if (item.kind == Kind::Message) logged[fieldsText(item)].push_back(&item);
    }
    for (TraceItem& item : derived) derivedByText[fieldsText(item)].push_back(&item);
    std::set<const TraceItem*> joined;
    for (auto& [text, items] : logged) {
        const auto same = derivedByText.find(text);
        if (same == derivedByText.end() || same->second.size() != items.size()) continue;
        for (size_t i = 0; i < items.size(); ++i) {
            items[i]->frame = same->second[i]->frame;
            items[i]->camera = same->second[i]->camera;
            joined.insert(same->second[i]);
        }
    }
    std::vector<TraceItem> left;
    for (TraceItem& item : derived) {
        if (joined.count(&item) == 0) left.push_back(std::move(item));
    }
    derived = std::move(left);
}

// Moves messages after the entries of their result.
void insertMessages(std::vector<TraceItem>& items, const std::vector<TraceItem>& messages) {
    items.insert(items.end(), messages.begin(), messages.end());
    std::stable_sort(items.begin(), items.end(), [](const TraceItem& a, const TraceItem& b) {
        if (a.frame != b.frame) return a.frame < b.frame;
        const auto rank = [](const TraceItem& item) {
            return item.kind == Kind::Message ? 2 : item.side == Side::Request ? 0 : 1;
        };
        return rank(a) < rank(b);
    });
}

using Section = std::pair<size_t, size_t>;  // input and place

// Returns the last frame in the events of each place.
std::map<Section, int64_t> lastFrames(const std::vector<MonitorStream>& streams) {
    std::map<Section, int64_t> last;
    for (const MonitorStream& stream : streams) {
        int64_t& frame = last[{stream.input, stream.place.section}];
        for (const MonitorEvent& event : stream.events) frame = std::max(frame, event.frame);
    }
    return last;
}

class Builder {
  public:
    explicit Builder(Evidence evidence) : mEvidence(std::move(evidence)) {}

    Timeline build() {
        mLastFrames = lastFrames(mEvidence.streams);
        joinStreams(mEvidence.streams);
        mTimeline.inputs = mEvidence.inputs;
        mTimeline.notes = std::move(mEvidence.faults);
        for (std::string& note : mEvidence.cameras->notes()) mTimeline.notes.push_back(std::move(note));
        mLog = logItems(mEvidence.log, mTimeline.notes);
        for (MonitorStream& stream : mEvidence.streams) addStream(stream);
        for (DumpedArray& array : mEvidence.arrays) addArray(array);
        merge();
        for (size_t i = 0; i < mTimeline.groups.size(); ++i) {
            auto& items = mTimeline.groups[i].items;
            std::move(mLast[i].begin(), mLast[i].end(), std::back_inserter(items));
        }
        return std::move(mTimeline);
    }

  private:
    void addStream(MonitorStream& stream) {
        sortByFrame(stream);
        TraceGroup group{titleOf(stream.place), {}};
        const TagNames& names = mEvidence.cameras->namesFor(stream.place.camera, stream.input);
        for (const MonitorEvent& event : stream.events) {
            group.items.push_back(itemOf(event, stream.place, names));
        }
        const auto& tags = mEvidence.cameras->tagsFor(stream.place.camera, stream.input);
        Derived derived = messagesOf(group.items, tags, stream.place.monitored,
                                     stream.events.size() < kRing && !stream.place.monitored.empty());
        if (mEvidence.streams.size() == 1) joinMessages(mLog, derived.messages);
        insertMessages(group.items, derived.messages);
        for (const std::string& note : derived.notes) mTimeline.notes.push_back(group.title + ": " + note);
        for (const Section& section : stream.sections) mGroups.emplace(section, mTimeline.groups.size());
        mTimeline.groups.push_back(std::move(group));
    }

    // A result contains its frame. The last request comes after the events of its own dump. If no later dump
    // has facts of the session, it is the last known request.
    void addArray(DumpedArray& array) {
        const Section section{array.input, array.place.section};
        const auto [place, isNew] = mGroups.emplace(section, mTimeline.groups.size());
        if (isNew) mTimeline.groups.push_back({titleOf(array.place), {}});
        auto& items = mTimeline.groups[place->second].items;
        std::optional<int64_t> frame = array.items.front().frame;
        const auto last = mLastFrames.find(section);
        if (!frame && last != mLastFrames.end()) frame = last->second;
        const auto isLater = [&](const TraceItem& item) {
            return item.frame && frame && *item.frame > *frame;
        };
        const auto later = std::find_if(items.begin(), items.end(), isLater);
        auto& target = later == items.end() && !array.items.front().frame ? mLast[place->second] : items;
        const auto at = &target == &items ? later : target.end();
        target.insert(at, std::make_move_iterator(array.items.begin()),
                      std::make_move_iterator(array.items.end()));
    }

    void merge() {
        if (mLog.empty()) return;
        auto& groups = mTimeline.groups;
        auto merged = groups.size() == 1 ? mergeLog(groups.front().items, mLog) : std::nullopt;
        if (merged) {
            groups.front().items = std::move(merged->items);
            mTimeline.notes.push_back(std::move(merged->note));
            return;
        }
        if (groups.size() == 1) {
            mTimeline.notes.emplace_back(
                "the log and the frames have different clocks, and neither frame numbers nor values in the log "
                "show their common order: they are shown separately. 'logcat -v monotonic' uses the clock of "
                "the frames");
        } else if (!groups.empty()) {
            mTimeline.notes.emplace_back(
                "the frames are of several sessions, so the log is shown separately");
        }
        groups.push_back({"log", std::move(mLog)});
    }

    Evidence mEvidence;
    std::map<Section, int64_t> mLastFrames;
    std::map<Section, size_t> mGroups;               // by place
    std::map<size_t, std::vector<TraceItem>> mLast;  // after all other facts of a group
    std::vector<TraceItem> mLog;
    Timeline mTimeline;
};

}  // namespace

Timeline timelineOf(Evidence evidence) { return Builder(std::move(evidence)).build(); }

LogTime bootTime(int64_t nanoseconds) {
    return {LogTime::Kind::Monotonic, nanoseconds,
            fmt::format("{}.{:06}", nanoseconds / 1'000'000'000, nanoseconds / 1000 % 1'000'000)};
}

TraceItem itemOf(const MonitorEvent& event, const MonitorPlace& place, const TagNames& tags) {
    TraceItem item;
    item.kind = event.tag.empty() ? Kind::Line : Kind::Entry;
    item.side = event.isRequest ? Side::Request : Side::Result;
    item.input = event.input;
    item.line = event.line;
    item.time = bootTime(event.nanoseconds);
    item.frame = event.frame;
    item.camera = event.camera.empty() ? place.camera : event.camera;
    item.client = event.client.empty() ? place.client : event.client;
    item.physicalCamera = event.physicalCamera;
    item.tag = event.tag;
    item.isRemoved = event.isRemoved;
    const Tag* tag = tags.find(event.tag);
    if (tag != nullptr && !event.isRemoved) item.values = valuesOf(event, *tag);
    if (!event.isRemoved) item.value = valueText(event, tag);
    item.text = event.streams;
    if (event.isRequest) item.keys = keysWriting(event.tag);
    return item;
}

}  // namespace qzcam
