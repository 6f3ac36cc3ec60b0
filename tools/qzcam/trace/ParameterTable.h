// SPDX-License-Identifier: Apache-2.0
// Counts the facts of a session for each parameter.
#pragma once

#include "trace/Item.h"

#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace qzcam {

class ParameterTable {
  public:
    // The number of lines with a fact, and the lines. A folded line counts as often as the log says.
    struct Count {
        size_t times = 0;
        std::vector<size_t> lines;
        std::vector<size_t> inputs;  // number of the input of each line
    };
    struct Row {
        Count set;      // set by an application
        Count written;  // a request has an entry of it
        Count logged;   // a setter has logged its value
        Count refused;
        Count undeclared;
        Count gated;
        Count fallback;                  // an unknown text, for which the fallback is written
        Count notOffered;                // a value that the device does not offer
        Count overflows;                 // a number that does not fit
        std::set<int64_t> statuses;      // statuses of refusals
        std::set<std::string> declared;  // element types that the device declares instead
    };

    // The counts of a row, with their names for programs and for people.
    struct Column {
        const char* name;
        const char* words;
        Count Row::*count;
    };
    static constexpr std::array<Column, 9> kColumns{{{"set", "set", &Row::set},
                                                     {"written", "written", &Row::written},
                                                     {"logged", "logged", &Row::logged},
                                                     {"refused", "refused", &Row::refused},
                                                     {"undeclared", "tag not declared", &Row::undeclared},
                                                     {"gated", "gate closed", &Row::gated},
                                                     {"fallback", "fallback written", &Row::fallback},
                                                     {"notOffered", "not offered", &Row::notOffered},
                                                     {"overflows", "overflows", &Row::overflows}}};

    void add(const TraceItem& item);

    // Removes all other parameters: a line may belong to several.
    void keepOnly(const std::string& key);

    const std::map<std::string, Row>& rows() const { return mRows; }

    // Returns the parameters of the library that no line contains.
    std::vector<std::string> neverSeen() const;

  private:
    void addTo(const TraceItem& item, const std::vector<std::string>& keys, Count Row::*count);

    std::map<std::string, Row> mRows;
};

}  // namespace qzcam
