// SPDX-License-Identifier: Apache-2.0
// Facts of a recorded session, each from a line of the input.
#pragma once

#include "base/Values.h"
#include "facts/Tags.h"
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
        Entry,       // a request or result has this value, or has lost the entry
        Logged,      // a setter logs the value that it is about to write
        Refused,     // an update failed
        Undeclared,  // the device does not declare a tag
        Gated,       // a setter skips a parameter
        Message,     // a message to the application
        Request,     // a request was made
        Result,      // a result arrived
        List,        // tags that the device declares, static entries that it has, entries of a request
        Parameters,  // parameters of an application
        Line,        // another line about the camera
        Lost,        // lines that the log has lost
    };
    using Side = qzcam::Side;

    Kind kind = Kind::Line;
    Side side = Side::Unknown;
    size_t input = 0;  // index of the input
    size_t line = 0;
    LogTime time;
    std::optional<int64_t> frame;
    std::string camera;  // empty: unknown
    std::string physicalCamera;
    std::string client;
    int pid = -1;
    int tid = -1;

    std::string tag;    // full name, or the part of it in the line
    std::string value;  // for people; empty: unknown
    std::optional<Values> values;
    bool isRemoved = false;
    bool isHiddenByDefault = false;  // shown only if its entry or parameter is asked for
    std::vector<std::string> keys;   // parameters that the fact belongs to
    std::vector<std::string> tags;   // names in a list

    std::string message;                 // name of the message
    std::vector<Message::Field> fields;  // fields of the message; parameters with their texts
    bool isDerived = false;              // no line has the message: the library makes it from the results

    std::string text;  // description, for a kind without columns of its own
    std::string cause;
    std::optional<int64_t> status;
    std::string declared;              // element type
    size_t times = 1;                  // number of equal lines, which the log folds
    std::vector<VerdictRow> verdicts;  // values that the device does not offer, numbers that do not fit
};

LogTime bootTime(int64_t nanoseconds);  // since the phone was started

const char* nameOf(TraceItem::Kind kind);  // Returns "entry", for programs.
const char* nameOf(TraceItem::Side side);

}  // namespace qzcam
