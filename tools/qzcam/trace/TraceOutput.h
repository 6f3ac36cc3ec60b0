// SPDX-License-Identifier: Apache-2.0
// Prints the timeline of a session for people and for programs.
#pragma once

#include "trace/Item.h"
#include "trace/ParameterTable.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qzcam {

class TraceOutput {
  public:
    virtual ~TraceOutput() = default;
    TraceOutput() = default;
    TraceOutput(const TraceOutput&) = delete;
    TraceOutput& operator=(const TraceOutput&) = delete;

    virtual void begin(const std::vector<std::string>& inputs) = 0;
    virtual void group(const std::string& title) = 0;
    virtual void item(const TraceItem& item) = 0;
    virtual void note(const std::string& text) = 0;
    // `isPart`: the facts are filtered, so they do not show which parameters were never seen.
    virtual void table(const ParameterTable& table, bool isPart) = 0;
};

using WriteLine = std::function<void(const std::string&)>;

struct TraceTextView {
    size_t width = 80;  // columns of the terminal
    bool all = false;   // each fact on one line, lines that only name a function, all keys that were not seen
};
std::unique_ptr<TraceOutput> traceText(WriteLine write, TraceTextView view);
std::unique_ptr<TraceOutput> traceJson(WriteLine write);

}  // namespace qzcam
