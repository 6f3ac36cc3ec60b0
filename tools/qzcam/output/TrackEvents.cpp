// SPDX-License-Identifier: Apache-2.0
#include "output/TrackEvents.h"

#include "base/Text.h"
#include "output/Protobuf.h"

#include <algorithm>

namespace qzcam {

namespace {

// Fields of the trace format, by their messages.
namespace trace {
constexpr uint32_t kPacket = 1;
}
namespace packet {
constexpr uint32_t kTimestamp = 8;
constexpr uint32_t kSequence = 10;
constexpr uint32_t kTrackEvent = 11;
constexpr uint32_t kSequenceFlags = 13;
constexpr uint32_t kTrackDescriptor = 60;
constexpr uint64_t kStateCleared = 1;
constexpr uint64_t kOnlySequence = 1;
}  // namespace packet
namespace descriptor {
constexpr uint32_t kUuid = 1;
constexpr uint32_t kName = 2;
constexpr uint32_t kParent = 5;
constexpr uint32_t kCounter = 8;
constexpr uint32_t kChildOrdering = 11;
constexpr uint32_t kRank = 12;
constexpr uint64_t kByRank = 3;
}  // namespace descriptor
namespace counter {
constexpr uint32_t kUnit = 3;
constexpr uint32_t kUnitName = 6;
constexpr uint64_t kNanoseconds = 1;
}  // namespace counter
namespace event {
constexpr uint32_t kNote = 4;
constexpr uint32_t kType = 9;
constexpr uint32_t kTrack = 11;
constexpr uint32_t kName = 23;
constexpr uint32_t kValue = 44;
constexpr uint64_t kBegin = 1;
constexpr uint64_t kEnd = 2;
constexpr uint64_t kInstant = 3;
constexpr uint64_t kCount = 4;
}  // namespace event
namespace note {
constexpr uint32_t kName = 10;
constexpr uint32_t kText = 6;
}  // namespace note

ProtoMessage eventOf(TrackEvents::Track track, uint64_t type) {
    ProtoMessage message;
    message.number(event::kType, type).number(event::kTrack, track);
    return message;
}

// Replaces invalid bytes: texts come from files, and a text field must be UTF-8.
ProtoMessage namedEvent(TrackEvents::Track track, uint64_t type, std::string_view name,
                        const TrackEvents::Notes& notes) {
    ProtoMessage message = eventOf(track, type);
    message.text(event::kName, visible(name));
    for (const auto& [title, text] : notes) {
        ProtoMessage each;
        each.text(note::kName, visible(title)).text(note::kText, visible(text));
        message.message(event::kNote, each);
    }
    return message;
}

std::string packetOf(ProtoMessage content) {
    ProtoMessage file;
    file.message(trace::kPacket, content.number(packet::kSequence, packet::kOnlySequence));
    return file.bytes();
}

}  // namespace

TrackEvents::Track TrackEvents::add(Track parent, std::string_view name, ProtoMessage& descriptor) {
    const Track track = mChildren.size();
    descriptor.number(descriptor::kUuid, track)
        .text(descriptor::kName, visible(name))
        .number(descriptor::kChildOrdering, descriptor::kByRank)
        .number(descriptor::kRank, mChildren[static_cast<size_t>(parent)]++);
    if (parent != kTop) descriptor.number(descriptor::kParent, parent);
    ProtoMessage content;
    content.message(packet::kTrackDescriptor, descriptor);
    if (mTracks.empty()) content.number(packet::kSequenceFlags, packet::kStateCleared);
    mTracks += packetOf(std::move(content));
    mChildren.push_back(0);
    return track;
}

TrackEvents::Track TrackEvents::addTrack(Track parent, std::string_view name) {
    ProtoMessage descriptor;
    return add(parent, name, descriptor);
}

TrackEvents::Track TrackEvents::addCounter(Track parent, std::string_view name, std::string_view unit) {
    ProtoMessage facts;
    if (unit == "ns") {
        facts.number(counter::kUnit, counter::kNanoseconds);
    } else if (!unit.empty()) {
        facts.text(counter::kUnitName, unit);
    }
    ProtoMessage descriptor;
    descriptor.message(descriptor::kCounter, facts);
    return add(parent, name, descriptor);
}

void TrackEvents::add(Nanoseconds time, const ProtoMessage& event) {
    ProtoMessage content;
    content.number(packet::kTimestamp, time).message(packet::kTrackEvent, event);
    mEvents.emplace_back(time, packetOf(std::move(content)));
}

void TrackEvents::begin(Track track, Nanoseconds time, std::string_view name, const Notes& notes) {
    add(time, namedEvent(track, event::kBegin, name, notes));
}

void TrackEvents::end(Track track, Nanoseconds time) { add(time, eventOf(track, event::kEnd)); }

void TrackEvents::instant(Track track, Nanoseconds time, std::string_view name, const Notes& notes) {
    add(time, namedEvent(track, event::kInstant, name, notes));
}

void TrackEvents::count(Track track, Nanoseconds time, double value) {
    add(time, eventOf(track, event::kCount).real(event::kValue, value));
}

std::string TrackEvents::bytes() const {
    std::vector<const std::pair<Nanoseconds, std::string>*> sorted;
    sorted.reserve(mEvents.size());
    for (const auto& each : mEvents) sorted.push_back(&each);
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto* a, const auto* b) { return a->first < b->first; });
    std::string file = mTracks;
    for (const auto* each : sorted) file += each->second;
    return file;
}

}  // namespace qzcam
