// SPDX-License-Identifier: Apache-2.0
// Played sessions as a timeline for the public trace viewer.
//
// A session has no clock: each command begins at the next millisecond, and its effects follow in steps
// of a microsecond. Sessions follow one another.
#pragma once

#include "device/Device.h"
#include "host/Events.h"
#include "output/TrackEvents.h"
#include "output/ValueTracks.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>

namespace qzcam {

class Perfetto {
  public:
    Perfetto();
    ~Perfetto();
    Perfetto(const Perfetto&) = delete;
    Perfetto& operator=(const Perfetto&) = delete;

    void device(const Device& device);

    // The first event of a session is its SessionEvent.
    void add(const Event& event);

    // Ends open slices and returns the whole file.
    std::string finish();

  private:
    class SessionTracks;

    TrackEvents mEvents;
    TrackEvents::Nanoseconds mNow = 0;
    std::string mDevice;
    std::unique_ptr<SessionTracks> mSession;
};

}  // namespace qzcam
