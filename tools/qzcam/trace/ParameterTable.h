// SPDX-License-Identifier: Apache-2.0
// Sums up for each parameter what a session tells of it.
#pragma once

#include "trace/Item.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace qzcam {

class ParameterTable {
  public:
    // How many lines tell it, and which ones. A folded line counts as often as the log says.
    struct Count {
        size_t times = 0;
        std::vector<size_t> lines;
    };
    struct Row {
        Count set;      // by an application
        Count written;  // an entry of it is in a request
        Count told;     // a setter tells its value
        Count refused;
        Count undeclared;
        Count gated;
        Count notOffered;                // a value that the device does not offer
        Count overflows;                 // a number that does not fit
        std::set<int64_t> statuses;      // statuses of refusals
        std::set<std::string> declared;  // element types that the device declares instead
    };

    void add(const TraceItem& item);

    // Drops all other parameters: a line may tell of several.
    void keepOnly(const std::string& key);

    const std::map<std::string, Row>& rows() const { return mRows; }

    // Parameters of the library that no line tells of.
    std::vector<std::string> neverSeen() const;

  private:
    void addTo(const TraceItem& item, const std::vector<std::string>& keys, Count Row::*count);

    std::map<std::string, Row> mRows;
};

}  // namespace qzcam
