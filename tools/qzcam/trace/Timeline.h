// SPDX-License-Identifier: Apache-2.0
// Merges the facts of a session by frame number and by clock, if the formats allow it.
#pragma once

#include "device/Device.h"
#include "device/Report.h"
#include "input/InputText.h"
#include "input/Parts.h"
#include "log/TagMonitor.h"
#include "trace/Evidence.h"
#include "trace/Item.h"
#include "trace/TraceCameras.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

// Facts that have one order.
struct TraceGroup {
    std::string title;
    std::vector<TraceItem> items;
};

struct Timeline {
    std::vector<std::string> inputs;  // names of the inputs
    std::vector<TraceGroup> groups;
    std::vector<std::string> notes;  // remarks on the whole evidence
};

// Events of the tag monitor during one open session of a camera.
struct MonitorStream {
    MonitorPlace place;
    size_t input = 0;
    std::vector<MonitorEvent> events;
    std::vector<std::pair<size_t, size_t>> sections = {};  // inputs and places that the events are from
};

// A request or a result that a dump shows completely: the array, and its entries.
struct DumpedArray {
    MonitorPlace place;
    size_t input = 0;
    std::vector<TraceItem> items;
};

// All facts of the inputs, before they are sorted.
struct Evidence {
    std::vector<std::string> inputs;
    struct Log {
        size_t input = 0;
        LogLine line;
    };
    std::vector<Log> log;
    std::vector<MonitorStream> streams;
    std::vector<DumpedArray> arrays;
    std::shared_ptr<TraceCameras> cameras = std::make_shared<TraceCameras>();
    std::vector<std::string> taken;   // for an input with several parts, the parts that are used
    std::vector<std::string> faults;  // dumps that are cut
    bool isDamaged = false;           // an input ends early, or a part of it

    void read(const InputText& input);

  private:
    void readLines(const Part& part, size_t input, const Report* report);
    MonitorStream& streamOf(const MonitorEvent& event, const MonitorPlace& place, size_t input);
};

Timeline timelineOf(Evidence evidence);

// Returns the fact of a tag-monitor event. The type of the values comes from the tags.
TraceItem itemOf(const MonitorEvent& event, const MonitorPlace& place, const TagNames& tags);

}  // namespace qzcam
