// SPDX-License-Identifier: Apache-2.0
// Finds parameters in a dump of the camera service, in a log, and in a bugreport that has both.
#pragma once

#include "device/ParameterText.h"
#include "input/Parts.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct FoundParameters {
    // Sources in the order of their value: the last one describes a running application best.
    enum class Source { Defaults, Reported, Dumped, Set };
    Source source = Source::Set;
    std::string what;  // "setParameters of process 812"
    size_t line = 0;
    std::optional<size_t> announced;  // number of parameters in the head of a dump
    ParameterText text;
};

// Reads a log, message by message, and the lines of a dump.
class ParameterFinder {
  public:
    explicit ParameterFinder(std::vector<FoundParameters>& found) : mFound(found) {}

    void dump(const Part& part);
    void log(const Part& part);
    void message(std::string_view tag, std::string_view message, size_t line);
    void endOfLog() { mAwaited = 0; }

  private:
    using Source = FoundParameters::Source;

    void dumpLine(std::string_view line, size_t number);
    bool head(std::string_view tag, std::string_view message, size_t line);
    bool logged(std::string_view message, size_t line);
    void application(std::string_view tag, std::string_view message, size_t line);
    void begin(Source source, std::string what, size_t number, std::string_view size);
    void pair(std::string_view text, std::string_view separator, size_t line);
    void add(Source source, std::string what, size_t number, ParameterText text);

    std::vector<FoundParameters>& mFound;
    std::string mTag;             // log tag of the present dump
    size_t mDump = 0;             // index of that dump in the found sets
    size_t mAwaited = 0;          // pairs that the dump has announced and not yet printed
    std::string_view mCamera;     // camera in the title of the dump
    std::string mDefaultsCamera;  // camera in the last message about default parameters
};

// Returns all sets of parameters in the order of the text.
std::vector<FoundParameters> findParameters(const std::vector<Part>& parts);

// Returns the last set of the best source, or null if there is none.
const FoundParameters* bestOf(const std::vector<FoundParameters>& found);

}  // namespace qzcam
