// SPDX-License-Identifier: Apache-2.0
// Recognises the library's lines in a log by the formats of its rows.
#pragma once

#include "log/FormatPattern.h"
#include "log/Logcat.h"

#include <callback/ResultRow.h>
#include <capabilities/Publication.h>
#include <request/Parameter.h>
#include <rows/Lines.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

struct LibraryLine {
    enum class Kind {
        Refused,      // the update of an entry failed
        Information,  // a plain row logs the value that it is about to write
        Inspection,
        Other,
    };
    Kind kind = Kind::Other;
    const qz::LogLine* line = nullptr;         // the format of the line
    std::string function;                      // the function that writes it; empty if several could be it
    const qz::Parameter* parameter = nullptr;  // row of the setter that wrote it
    const qz::EntryRow* entry = nullptr;       // entry of a failed update
    const qz::CapabilityRow* capability = nullptr;  // row of the getter that wrote it
    const qz::ResultRow* result = nullptr;          // row of the handler that wrote it
    std::vector<PrintedValue> values;               // in the order of the format, without the function's name
    size_t part = 0;   // a format of several lines is printed as several lines: the number of this one
    bool cut = false;  // the message ends before its format does, or has the length at which the log cuts it

    // Returns the number of a value; nothing if it is missing.
    std::optional<int64_t> number(size_t index) const;
    std::string text(size_t index) const;

    bool is(const char* format) const;  // compares the texts
};

// Returns nothing for a line that is not the library's, or that lines of different meaning could be.
std::optional<LibraryLine> recogniseLibraryLine(const LogLine& line);

// Returns true for the log tags that the library uses.
bool isLibraryTag(const std::string& tag);

}  // namespace qzcam
