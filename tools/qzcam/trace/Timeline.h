// SPDX-License-Identifier: Apache-2.0
// Merges the facts of a session: by frame number and by clock, as far as the formats tie them.
#pragma once

#include "device/Device.h"
#include "input/InputText.h"
#include "log/TagMonitor.h"
#include "trace/Evidence.h"
#include "trace/Item.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// Facts in one order.
struct TraceGroup {
    std::string title;
    std::vector<TraceItem> items;
};

struct Timeline {
    std::vector<std::string> inputs;  // names
    std::vector<TraceGroup> groups;
    std::vector<std::string> notes;  // about the evidence as a whole
};

// Events of the tag monitor during one open session of a camera.
struct MonitorStream {
    MonitorPlace place;
    size_t input = 0;
    std::vector<MonitorEvent> events;
};

// Everything that the inputs tell, before it is put in order.
struct Evidence {
    std::vector<std::string> inputs;
    struct Log {
        size_t input;
        LogLine line;
    };
    std::vector<Log> log;
    std::vector<MonitorStream> streams;
    std::vector<Tag> vendorTags;

    void read(const InputText& input);

  private:
    MonitorStream& streamOf(const MonitorEvent& event, const MonitorPlace& place, size_t input);
};

Timeline timelineOf(Evidence evidence);

// A fact of the tag monitor. The type of the values comes from the tags.
TraceItem itemOf(const MonitorEvent& event, const MonitorPlace& place, size_t input, const TagNames& tags);

}  // namespace qzcam
