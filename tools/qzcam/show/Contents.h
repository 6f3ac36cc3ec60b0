// SPDX-License-Identifier: Apache-2.0
// Everything that an input holds: what its dumps, logs, properties and parameters say, with their lines.
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

// The lines of a log that have one tag.
struct LogTag {
    std::string tag;  // empty for lines without one
    size_t lines = 0;
    std::map<char, size_t> levels;
};

struct LogSummary {
    size_t sections = 0;
    size_t lines = 0;
    std::vector<LogTag> tags;  // most lines first
    std::string from;          // times of the first and the last line that have one
    std::string to;
    size_t folded = 0;  // messages that the log only counts
    size_t pruned = 0;  // messages that the log has lost

    const LogTag* find(const std::string& tag) const;
};

struct ListedParameter {
    size_t line = 0;
    std::string key;
    std::string value;
    bool cut = false;
};

// Parameters as one place of the input has them.
struct ParameterList {
    std::string where;  // "camera 0, as the platform converted them"
    size_t line = 0;
    std::optional<size_t> announced;
    std::vector<ListedParameter> parameters;
    bool cut = false;  // the log cut the list: others may have followed
};

// The events that a tag monitor of a dump has.
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
    std::shared_ptr<const std::string> loggedDump;            // a part of its own, without log prefixes
    std::vector<Report> reports;                              // one for each dump, in their order
    std::vector<std::pair<std::string, std::string>> header;  // lines of a bugreport: "Build", "UP1A..."
    std::vector<ParameterList> parameters;
    std::vector<std::pair<std::string, std::string>> properties;
    std::vector<FoundMonitor> monitors;
    LogSummary log;
    std::vector<Cut> cuts;   // in the container, in services and in dumps
    std::vector<Left> left;  // with the lines of properties and parameters that make no sense

    bool isEmpty() const;
    bool hasFaults() const;
};

Contents readContents(const InputText& input);

// All arrays of all dumps whose name begins with `name`, in any case of letters; of all cameras without
// `camera`.
std::vector<const MetadataArray*> arraysNamed(const Contents& contents, const std::string& name,
                                              const std::string& camera);
std::vector<std::string> arrayNames(const Contents& contents);

// A line that has a text in it, and what it belongs to.
struct FoundLine {
    size_t line = 0;
    std::string_view text;
    std::string where;  // "static, camera 0: android.lens.facing"
};
std::vector<FoundLine> findText(const Contents& contents, const std::string& text);

}  // namespace qzcam
