// SPDX-License-Identifier: Apache-2.0
#include "output/ValueTracks.h"

#include "base/Text.h"

namespace qzcam {

namespace {

constexpr size_t kLongestName = 120;  // the viewer draws names into slices

}  // namespace

ValueTracks::Line& ValueTracks::lineOf(const char* feature, const std::string& name) {
    const auto found = mLines.find(name);
    if (found != mLines.end()) return found->second;
    auto group = mFeatures.find(feature);
    if (group == mFeatures.end()) {
        group = mFeatures.emplace(feature, mEvents.addTrack(mGroup, feature)).first;
    }
    return mLines.emplace(name, Line{mEvents.addTrack(group->second, name), {}, {}}).first->second;
}

void ValueTracks::show(TrackEvents::Nanoseconds time, const char* feature, const std::string& name,
                       const Value& value) {
    Line& line = lineOf(feature, name);
    if (line.now == value.text) return;
    if (line.now) mEvents.end(line.track, time);
    line.now = value.text;
    TrackEvents::Notes notes = value.notes;
    if (value.text.size() > kLongestName) notes.emplace_back("value", value.text);
    mEvents.begin(line.track, time, cut(value.text, kLongestName), notes);
    if (!value.number) return;
    if (!line.curve) line.curve = mEvents.addCounter(line.track, name, value.unit);
    mEvents.count(*line.curve, time, *value.number);
}

void ValueTracks::hide(TrackEvents::Nanoseconds time, const std::string& name) {
    const auto found = mLines.find(name);
    if (found == mLines.end() || !found->second.now) return;
    mEvents.end(found->second.track, time);
    found->second.now.reset();
}

void ValueTracks::keepOnly(TrackEvents::Nanoseconds time, const std::set<std::string>& names) {
    for (const auto& [name, line] : mLines) {
        if (names.count(name) == 0) hide(time, name);
    }
}

}  // namespace qzcam
