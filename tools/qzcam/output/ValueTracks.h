// SPDX-License-Identifier: Apache-2.0
// A group of tracks, one for each name, that show a value as a slice from its beginning to its end.
#pragma once

#include "output/TrackEvents.h"

#include <map>
#include <optional>
#include <set>
#include <string>

namespace qzcam {

class ValueTracks {
  public:
    struct Value {
        std::string text;
        TrackEvents::Notes notes = {};
        std::optional<double> number = {};  // drawn as a curve, on a track below the slices
        const char* unit = "";
    };

    ValueTracks(TrackEvents& events, TrackEvents::Track parent, const char* title)
        : mEvents(events), mGroup(events.addTrack(parent, title)) {}

    // Sets the value of `name` from `time` on. `feature` is the group of a new name.
    void show(TrackEvents::Nanoseconds time, const char* feature, const std::string& name,
              const Value& value);

    // Ends the value of `name` at `time`.
    void hide(TrackEvents::Nanoseconds time, const std::string& name);

    // Ends the values of all other names.
    void keepOnly(TrackEvents::Nanoseconds time, const std::set<std::string>& names);

  private:
    struct Line {
        TrackEvents::Track track;
        std::optional<TrackEvents::Track> curve;
        std::optional<std::string> now;  // the value's text
    };

    Line& lineOf(const char* feature, const std::string& name);

    TrackEvents& mEvents;
    TrackEvents::Track mGroup;
    std::map<std::string, TrackEvents::Track> mFeatures;
    std::map<std::string, Line> mLines;
};

}  // namespace qzcam
