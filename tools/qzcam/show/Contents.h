// SPDX-License-Identifier: Apache-2.0
// Everything that an input contains: its dumps, logs, properties and parameters, with their lines.
#pragma once

#include "device/Report.h"
#include "input/InputText.h"
#include "input/Parts.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

// The lines of a log with the same tag.
struct LogTag {
    std::string tag;  // empty for lines without a tag
    size_t lines = 0;
    std::map<char, size_t> levels;
};

struct LogSummary {
    size_t sections = 0;
    size_t lines = 0;
    std::vector<LogTag> tags;  // sorted by their number of lines
    std::string from;          // earliest first time and latest last time of a section
    std::string to;
    size_t folded = 0;  // messages that the log only counts
    size_t pruned = 0;  // messages that the log has lost
};

struct ListedParameter {
    size_t line = 0;
    std::string key;
    std::string value;
    bool cut = false;
};

// The parameters in one place of the input.
struct ParameterList {
    std::string where;   // "camera 0, defaults that the platform made"
    std::string camera;  // empty if the place states none
    size_t line = 0;
    std::optional<size_t> announced;
    std::vector<ListedParameter> parameters;
    bool cut = false;  // the log cut the list: further parameters may be missing
};

// The events of a tag monitor in a dump.
struct FoundMonitor {
    std::string camera;
    size_t line = 0;
    size_t requests = 0;  // events of requests
    size_t results = 0;
    bool previousSession = false;
};

struct Contents {
    InputText input;
    size_t lines = 0;
    std::vector<Part> parts;
    std::shared_ptr<const std::string> loggedDump;            // a separate text, without log prefixes
    std::vector<Report> reports;                              // one for each dump, in the order of the dumps
    std::vector<std::pair<std::string, std::string>> header;  // lines of a bugreport: "Build", "UP1A..."
    std::vector<ParameterList> parameters;
    std::vector<std::pair<std::string, std::string>> properties;
    std::vector<FoundMonitor> monitors;
    LogSummary log;
    std::vector<Cut> cuts;  // cuts of the container, of services and of dumps
    std::vector<UnusedPart>
        unused;  // unused parts, with the lines of properties and parameters that cannot be read

    bool isEmpty() const;
    bool hasFaults() const;
};

Contents readContents(const InputText& input);

// Returns the name of an input's kind: "a bugreport", "a dump of the camera service".
std::string kindOf(const Contents& contents);

// Returns the arrays of all dumps whose names begin with `name`, in upper or lower case; an empty `camera`
// means all cameras.
std::vector<const MetadataArray*> arraysNamed(const Contents& contents, const std::string& name,
                                              const std::string& camera);
std::vector<std::string> arrayNames(const Contents& contents, const std::string& camera);

// A line that contains a text, and the part of the input that it belongs to.
struct FoundLine {
    size_t line = 0;
    std::string_view text;
    std::string where;  // "static, camera 0: android.lens.facing"
};
std::vector<FoundLine> findText(const Contents& contents, const std::string& text);

}  // namespace qzcam
