// SPDX-License-Identifier: Apache-2.0
// Writes the events of a phone as a timeline for the public trace viewer.
//
// A group begins at 0; the phone's own time is a detail of each event. A fact without a time, or with an
// earlier time than the previous fact, follows in steps of a microsecond.
#pragma once

#include "output/TrackEvents.h"
#include "trace/TraceOutput.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

class TracePerfetto : public TraceOutput {
  public:
    TracePerfetto();
    ~TracePerfetto() override;
    TracePerfetto(const TracePerfetto&) = delete;
    TracePerfetto& operator=(const TracePerfetto&) = delete;

    void begin(const std::vector<std::string>& inputs) override { mInputs = inputs; }
    void group(const std::string& title) override;
    void item(const TraceItem& item) override;
    void note(const std::string& text) override;
    void table(const ParameterTable& /*table*/, bool /*isPart*/) override {}

    // Ends open slices and returns the whole file.
    std::string finish();

  private:
    class CameraTracks;
    using Cameras = std::map<std::string, std::unique_ptr<CameraTracks>>;

    CameraTracks& tracksOf(const std::string& camera);
    void moveTo(const LogTime& time);
    TrackEvents::Notes notesOf(const TraceItem& item) const;

    TrackEvents mEvents;
    TrackEvents::Nanoseconds mNow = 0;
    std::optional<TrackEvents::Track> mGroup;
    std::optional<TrackEvents::Track> mNotes;
    std::optional<LogTime> mStart;  // start of the group
    std::vector<std::string> mInputs;
    Cameras mCameras;  // cameras of the group
};

}  // namespace qzcam
