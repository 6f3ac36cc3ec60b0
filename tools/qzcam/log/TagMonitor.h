// SPDX-License-Identifier: Apache-2.0
// Events of the platform's tag monitor, in the text of dumps of every version and of the command "watch".
#pragma once

#include "base/Values.h"
#include "device/Device.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// A monitored entry has changed in a request or in a result.
struct MonitorEvent {
    size_t input = 0;  // index of the input; the reader does not know it
    size_t line = 0;
    int64_t frame = 0;
    int64_t nanoseconds = 0;  // since the phone was started, with or without the time asleep
    bool isRequest = false;
    bool isRemoved = false;
    std::string camera;  // only "watch" prints camera and client with an event
    std::string client;
    std::string physicalCamera;
    std::string tag;                // section and name; empty for an event that has only streams
    std::vector<std::string> rows;  // the printed values, one text for each pair of brackets
    std::string streams;            // "output 1 0", if the event has them
};

// Reads the lines of a dump or of "watch". feed() returns false for a line that belongs to no event.
class MonitorReader {
  public:
    using Take = std::function<void(MonitorEvent)>;

    explicit MonitorReader(Take take) : mTake(std::move(take)) {}
    ~MonitorReader() { end(); }
    MonitorReader(const MonitorReader&) = delete;
    MonitorReader& operator=(const MonitorReader&) = delete;

    bool feed(std::string_view text, size_t line);
    void end();  // passes on the event that was waiting for further values

  private:
    bool feedEvent(std::string_view text, size_t line);
    bool feedValues(std::string_view text);

    Take mTake;
    std::optional<MonitorEvent> mPending;
};

// Returns the values of an event whose tag is known. Returns nothing if they are ambiguous: one version
// prints the numbers of a byte entry without blanks.
std::optional<Values> valuesOf(const MonitorEvent& event, const Tag& tag);

// Returns a text for display: the typed values if they are known, otherwise the printed text.
std::string valueText(const MonitorEvent& event, const Tag* tag);

}  // namespace qzcam
