// SPDX-License-Identifier: Apache-2.0
// Facts in lines of the library: values of entries, and messages to the application.
#pragma once

#include "host/Messages.h"
#include "log/LibraryLine.h"

#include <callback/Messages.h>

#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// The value of an entry that a setter was about to write, or could not write.
struct StatedEntry {
    const qz::Parameter* parameter = nullptr;
    const qz::EntryRow* entry = nullptr;
    std::string text;  // text of the parameter, if the line has it
    std::string list;  // values: "20000/1000000", "1,2"; empty if the line does not have all of them
    std::optional<int64_t> status;  // status of a refused update
};
std::optional<StatedEntry> statedEntry(const LibraryLine& line);

// A message in the line. Its bytes are unknown.
struct StatedMessage {
    const qz::MessageRow* message = nullptr;
    std::vector<Message::Field> fields;
};
std::optional<StatedMessage> statedMessage(const LibraryLine& line);

}  // namespace qzcam
