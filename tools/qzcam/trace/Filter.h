// SPDX-License-Identifier: Apache-2.0
// Chooses facts of a session.
#pragma once

#include "trace/Item.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace qzcam {

using FrameRange = std::pair<int64_t, int64_t>;

// "1200..1300", "1200..", "..1300", "1203"; nothing for another text.
std::optional<FrameRange> parseFrames(std::string_view text);

struct TraceFilter {
    std::string camera;  // facts whose camera is unknown are shown too
    std::string frames;
    std::string entry;  // with its section, or without
    std::string key;
    std::optional<int> pid;

    bool isEmpty() const;
    bool shows(const TraceItem& item) const;

    // Drops what the fact says of other parameters' values.
    void reduce(TraceItem& item) const;
};

}  // namespace qzcam
