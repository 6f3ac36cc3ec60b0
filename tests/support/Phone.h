// SPDX-License-Identifier: Apache-2.0
// Writes a played session in the form in which a phone saves it: events of the tag monitor in the format of
// every version, the log in every layout, and a bug report with both.
#pragma once

#include "host/Events.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qzcam::test {

// The versions of the platform whose tag monitors print differently.
enum class MonitorFormat { Android9, Android10, Android13, Android14, Watch };
constexpr MonitorFormat kMonitorFormats[] = {MonitorFormat::Android9, MonitorFormat::Android10,
                                             MonitorFormat::Android13, MonitorFormat::Android14,
                                             MonitorFormat::Watch};

struct LogFormat {
    enum class Layout { Brief, Process, Tag, Thread, Raw, Time, Threadtime, Long };
    Layout layout = Layout::Threadtime;
    bool uid = false;
    bool year = false;
    bool zone = false;
    bool epoch = false;
    bool monotonic = false;
    bool color = false;
    bool printable = false;
    int digits = 3;  // decimals of the time: 3, 6 or 9
};

// One event of a session with the data of a phone. Each request and each result has the next frame number,
// because a phone repeats the last request for every frame. So the order of the session is the order of the
// frames.
struct PhoneEvent {
    int64_t frame = 0;
    int64_t nanoseconds = 0;  // since the phone was started
    int tid = 2207;           // the request thread; results have the next number
    Event event;
};
constexpr int64_t kPhoneStart = 81'234'567'890'123;
std::vector<PhoneEvent> onPhone(const std::vector<Event>& session);

// Returns the event log of the tag monitor in the order of a dump (newest first) or of "watch dump" (oldest
// first), with the head that lists the tags of all events.
std::string monitorText(const std::vector<PhoneEvent>& events, MonitorFormat format);

// A line in the log of process 812. The log begins at 2024-03-05 10:11:12.
struct PhoneLine {
    int64_t nanoseconds = 0;
    int tid = 2207;
    char level = 'I';
    std::string tag;
    std::string message;  // cut at 1023 bytes in the printed log
};
std::vector<PhoneLine> logOf(const std::vector<PhoneEvent>& events);
std::string logText(const std::vector<PhoneLine>& lines, const LogFormat& format);

// Returns a dump of a camera service whose camera 0 has an open client with these events. `device` is a dump
// with static characteristics and vendor tags.
std::string dumpWith(const std::string& device, const std::string& monitor);

// Returns the text of a bug report of Android 8 or later with a dump and a log.
std::string bugreportWith(const std::string& dump, const std::string& log);

}  // namespace qzcam::test
