// SPDX-License-Identifier: Apache-2.0
// Reads the lines of the library's inspection, levels 1 to 5. Several lines may give one fact.
#pragma once

#include "facts/Tags.h"
#include "log/LibraryLine.h"
#include "log/Logcat.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

struct Inspected {
    enum class Kind {
        Request,     // level 1: a request was made, repeating or capture
        ChosenTag,   // levels 2 and 3: the elements of a chosen tag
        Frame,       // level 3: a result came
        VendorTags,  // level 4: the tags that the device declares
        Entries,     // level 4: the static entries that it has; level 5: those of a request
    };
    using Of = Side;

    Kind kind = Kind::Request;
    Of of = Of::Unknown;
    LogLine log;              // its first line
    std::string requestKind;  // "repeating" or "capture", for a request
    std::optional<int64_t> frame;

    uint32_t id = 0;                    // the chosen tag
    std::string tag;                    // empty if unknown
    std::vector<std::string> elements;  // printed values; "?" for a missing one
    bool isAbsent = false;              // the metadata has no such entry, or an empty one

    std::vector<std::pair<uint32_t, std::string>> tags;  // numbers and full names
    std::optional<size_t> announced;                     // elements or tags
    bool isWhole() const;                                // no announced line is missing, none is doubled
};

class InspectionReader {
  public:
    using Take = std::function<void(const Inspected&)>;

    explicit InspectionReader(Take take) : mTake(std::move(take)) {}

    // Returns false for a line that is not an inspection line.
    bool feed(const LogLine& log, const LibraryLine& line);

    // Passes on the facts that are waiting for further lines.
    void end();

  private:
    struct Thread {
        std::optional<Inspected> open;
        std::optional<Inspected> result;  // waits for the frame number
        Inspected::Of opener = Inspected::Of::Unknown;
        bool isFirst = false;  // no line has followed the opening one
        std::set<Inspected::Of> seen;
    };

    bool feedOpener(const LogLine& log, const LibraryLine& line, Thread& thread);
    bool feedChosen(const LogLine& log, const LibraryLine& line, Thread& thread);
    bool feedElement(const LogLine& log, const LibraryLine& line, Thread& thread);
    bool feedResult(const LogLine& log, const LibraryLine& line, Thread& thread);
    bool feedList(const LogLine& log, const LibraryLine& line, Thread& thread);
    Inspected& open(const LogLine& log, Thread& thread, Inspected::Kind kind);
    Inspected& openChosen(const LogLine& log, Thread& thread, uint32_t id);
    void close(Thread& thread, bool beforeResult = false);
    void takeEntries(Thread& thread, Inspected inspected, Inspected::Of place);
    void closeResult(Thread& thread);

    Take mTake;
    std::map<std::pair<int, int>, Thread> mThreads;
    std::map<std::pair<int, uint32_t>, std::string> mNames;  // tags by process and number
};

}  // namespace qzcam
