// SPDX-License-Identifier: Apache-2.0
// Finds the lines of a camera session in dumps, bugreports, logs and the output of "watch", line by line.
#pragma once

#include "device/Device.h"
#include "log/Logcat.h"
#include "log/TagMonitor.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// The place of tag-monitor events in a dump.
struct MonitorPlace {
    size_t line = 0;     // line of its heading; 0: none
    size_t section = 0;  // line of the heading of the camera's part
    std::string camera;
    std::string client;
    bool isPrevious = false;          // from a session that was closed before the dump
    std::set<std::string> monitored;  // names of the tags; empty if the place does not list them
};

class EvidenceReader {
  public:
    struct Sink {
        std::function<void(const LogLine&)> log;
        std::function<void(const MonitorEvent&, const MonitorPlace&)> event;
        std::function<void(const Tag&)> vendorTag;
    };

    explicit EvidenceReader(Sink sink);

    void feed(std::string_view text, size_t line);

    // Passes on the facts that are waiting for further lines.
    void end();

    // Returns the camera's part of the dump that contains the line.
    MonitorPlace placeOf(size_t line) const;

  private:
    bool feedHeading(std::string_view text, size_t line);
    bool feedMonitored(std::string_view text, size_t line);
    bool feedVendorTag(std::string_view text);

    Sink mSink;
    MonitorPlace mPlace;
    std::vector<MonitorPlace> mSections;  // parts of cameras, in their order
    bool mInList = false;                 // reading the monitored tags
    MonitorReader mMonitor;
    LogcatReader mLog;
};

}  // namespace qzcam
