// SPDX-License-Identifier: Apache-2.0
// Events of the platform's tag monitor, as dumps of every version and the command "watch" print them.
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
    size_t line = 0;
    int64_t frame = 0;
    int64_t nanoseconds = 0;  // since the phone was started, with or without the time asleep
    bool isRequest = false;
    bool isRemoved = false;
    std::string camera;  // only "watch" prints camera and client with an event
    std::string client;
    std::string physicalCamera;
    std::string tag;                // section and name; empty for an event that tells streams only
    std::vector<std::string> rows;  // the values as printed, a text for each pair of brackets
    std::string streams;            // "output 1 0", as far as the event tells them
};

// Reads the lines of a dump or of "watch". A line that belongs to no event is left to others: feed() is false
// then.
class MonitorReader {
  public:
    using Take = std::function<void(MonitorEvent)>;

    explicit MonitorReader(Take take) : mTake(std::move(take)) {}
    ~MonitorReader() { end(); }
    MonitorReader(const MonitorReader&) = delete;
    MonitorReader& operator=(const MonitorReader&) = delete;

    bool feed(std::string_view text, size_t line);
    void end();  // gives the event that was waiting for further values

    const std::string& camera() const { return mCamera; }

  private:
    bool feedEvent(std::string_view text, size_t line);
    bool feedValues(std::string_view text);

    Take mTake;
    std::optional<MonitorEvent> mPending;
    std::string mCamera;
    std::string mClient;
};

// The values of an event whose tag is known. Nothing if they cannot be told: in the format of one version the
// numbers of a byte entry run together.
std::optional<Values> valuesOf(const MonitorEvent& event, const Tag& tag);

// The same for display: the typed values if they can be told, otherwise the text as printed.
std::string valueText(const MonitorEvent& event, const Tag* tag);

}  // namespace qzcam
