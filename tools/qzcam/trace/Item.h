// SPDX-License-Identifier: Apache-2.0
// Facts of a recorded session, each from a line of the input.
#pragma once

#include "base/Values.h"
#include "host/Events.h"
#include "host/Messages.h"
#include "log/Logcat.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

struct TraceItem {
    enum class Kind {
        Entry,       // a request or result has this value, or no longer has the entry
        Told,        // a setter tells the value that it is about to write
        Refused,     // an update failed
        Undeclared,  // the device does not declare a tag
        Gated,       // a parameter is left out
        Message,     // to the application
        Request,     // a request was made
        Result,      // a result came
        List,        // tags that the device declares, static entries that it has, entries of a request
        Parameters,  // parameters of an application
        Line,        // another line that speaks of the camera
        Lost,        // lines that the log has lost
    };
    enum class Side { Unknown, Static, Request, Result };

    Kind kind = Kind::Line;
    Side side = Side::Unknown;
    size_t input = 0;  // by number
    size_t line = 0;
    LogTime time;
    std::optional<int64_t> frame;
    std::string camera;  // empty: unknown
    std::string physicalCamera;
    std::string client;
    int pid = -1;
    int tid = -1;

    std::string tag;    // full name, or what the line has of it
    std::string value;  // for people; empty: unknown
    std::optional<Values> values;
    bool isRemoved = false;
    bool isAside = false;           // shown to those who ask for its entry or parameter
    std::vector<std::string> keys;  // parameters that it is about
    std::vector<std::string> tags;  // names in a list

    std::string message;                 // its name
    std::vector<Message::Field> fields;  // fields of the message; parameters with their texts
    bool isDerived = false;  // no line tells it: the library makes it of the results that lines tell

    std::string text;  // the event, for a kind that has no columns of its own
    std::string cause;
    std::optional<int64_t> status;
    std::string declared;              // element type
    size_t times = 1;                  // the log folds equal lines
    std::vector<VerdictRow> verdicts;  // values that the device does not offer, numbers that do not fit
};

LogTime bootTime(int64_t nanoseconds);  // since the phone was started

const char* nameOf(TraceItem::Kind kind);  // "entry", for programs
const char* nameOf(TraceItem::Side side);

}  // namespace qzcam
