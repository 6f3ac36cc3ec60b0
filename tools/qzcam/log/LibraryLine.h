// SPDX-License-Identifier: Apache-2.0
// The library's own lines in a log, recognised by the formats of the library's rows.
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
        Information,  // a plain row tells the value that it is about to write
        Setter,       // another line of a setter
        Capability,
        Result,
        Word,  // a number that no word of a vocabulary has
        Inspection,
        TagLookup,
        Command,
        Other,
    };
    Kind kind = Kind::Other;
    const qz::LogLine* line = nullptr;              // its format
    std::string function;                           // the writer; empty if several could be
    const qz::Parameter* parameter = nullptr;       // row of the setter that wrote it
    const qz::EntryRow* entry = nullptr;            // entry of a failed update
    const qz::CapabilityRow* capability = nullptr;  // row of the getter that wrote it
    const qz::ResultRow* result = nullptr;          // row of the handler that wrote it
    std::vector<PrintedValue> values;               // in the order of the format, without the function's name
    size_t part = 0;   // a format of several lines is printed as several: the number of this one
    bool cut = false;  // the message ends before its format does, or has the length at which the log cuts it

    // The number of a value; nothing if it is missing.
    std::optional<int64_t> number(size_t index) const;
    std::string text(size_t index) const;

    bool is(const char* format) const;  // compares the texts
};

// Nothing for a line that is not the library's, or that lines of different meaning could be.
std::optional<LibraryLine> recogniseLibraryLine(const LogLine& line);

// True for the log tags that the library writes under.
bool isLibraryTag(const std::string& tag);

}  // namespace qzcam
