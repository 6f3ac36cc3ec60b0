// SPDX-License-Identifier: Apache-2.0
// Selects facts of a session.
#pragma once

#include "trace/Item.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace qzcam {

using FrameRange = std::pair<int64_t, int64_t>;

// Parses "1200..1300", "1200..", "..1300" or "1203". Returns nothing for another text.
std::optional<FrameRange> parseFrames(std::string_view text);

struct TraceFilter {
    std::string camera;  // facts whose camera is unknown are shown too
    std::string frames;
    std::string entry;  // with its section, or without
    std::string key;
    std::optional<int> pid;

    bool isEmpty() const;
    bool shows(const TraceItem& item) const;

    // Removes the values of other parameters from the fact.
    void reduce(TraceItem& item) const;
};

// The cameras, frames and processes of facts that a filter leaves out, for a message if it shows nothing.
class FilteredOut {
  public:
    void add(const TraceItem& item);
    std::string text() const;

  private:
    std::set<std::string> mCameras;
    std::set<int> mProcesses;
    std::optional<FrameRange> mFrames;
};

}  // namespace qzcam
