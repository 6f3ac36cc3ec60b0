// SPDX-License-Identifier: Apache-2.0
// Makes facts of a session from the lines of a log.
#pragma once

#include "log/Inspection.h"
#include "log/LibraryLine.h"
#include "log/Logcat.h"
#include "log/PlatformLine.h"
#include "trace/Item.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace qzcam {

// Returns false for a line that has no information about a camera session.
bool isEvidence(const LogLine& line);

class LogItems {
  public:
    using Take = std::function<void(TraceItem)>;

    explicit LogItems(Take take);

    // Reads a line. Lines must come in the order of their times.
    void feed(const LogLine& line, size_t input);

    // Passes on the facts that are waiting for further lines.
    void end();

    // Returns the number of lines that repeat an earlier one, with the same time and thread.
    size_t repeated() const { return mRepeated; }

  private:
    using Thread = std::pair<int, int>;

    bool isRepeated(const LogLine& line);
    void feedLibrary(const LogLine& log, const LibraryLine& line);
    void feedPlatform(const LogLine& log, const PlatformLine& line);
    void feedMistyped(const LogLine& log, const PlatformLine& line);
    void feedParameters(const LogLine& log, const PlatformLine& line);
    void feedUndeclared(const LogLine& log, const std::string& name);
    bool feedEntry(const LogLine& log, const LibraryLine& line);
    bool feedMessage(const LogLine& log, const LibraryLine& line);
    bool feedFocusTest(const LogLine& log, const LibraryLine& line);
    bool feedGate(const LogLine& log, const LibraryLine& line);
    void take(const Inspected& inspected);
    void takeChosen(const Inspected& inspected);
    void takeDeclared(const Inspected& inspected);
    void fold(const LogLine& line);
    TraceItem itemOf(const LogLine& line, TraceItem::Kind kind = TraceItem::Kind::Line,
                     TraceItem::Side side = TraceItem::Side::Unknown) const;
    void give(TraceItem item);
    void giveHeld();

    Take mTake;
    InspectionReader mInspection;
    std::map<Thread, PlatformLine> mMistyped;  // the last one of each thread: the cause of the next refusal
    std::map<Thread, TraceItem> mLast;
    std::map<int, std::string> mCameras;  // cameras by process, if a line has shown them
    std::optional<TraceItem> mHeld;       // a message that waits for further lines
    std::set<std::string> mSeen;
    size_t mInput = 0;
    size_t mRepeated = 0;
};

}  // namespace qzcam
