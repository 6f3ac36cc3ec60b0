// SPDX-License-Identifier: Apache-2.0
// A timeline for the public trace viewer (ui.perfetto.dev): groups of tracks with slices, instants and
// counters, as protobuf track events. The same calls give the same bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

class ProtoMessage;

class TrackEvents {
  public:
    using Track = uint64_t;
    static constexpr Track kTop = 0;

    using Nanoseconds = uint64_t;

    // Details that the viewer shows for a chosen event.
    using Notes = std::vector<std::pair<std::string, std::string>>;

    // Tracks of a parent are shown in the order in which they are added. One with tracks below it is a group.
    Track addTrack(Track parent, std::string_view name);
    // `unit`: "ns" or another unit; empty for none.
    Track addCounter(Track parent, std::string_view name, std::string_view unit);

    // Slices of a track must nest. Events may be added in any order; events of the same time keep their
    // order.
    void begin(Track track, Nanoseconds time, std::string_view name, const Notes& notes = {});
    void end(Track track, Nanoseconds time);
    void instant(Track track, Nanoseconds time, std::string_view name, const Notes& notes = {});
    void count(Track track, Nanoseconds time, double value);

    // Returns the whole file.
    std::string bytes() const;

  private:
    Track add(Track parent, std::string_view name, ProtoMessage& descriptor);
    void add(Nanoseconds time, const ProtoMessage& event);

    std::string mTracks;
    std::vector<uint64_t> mChildren{0};  // children of each track
    std::vector<std::pair<Nanoseconds, std::string>> mEvents;
};

}  // namespace qzcam
