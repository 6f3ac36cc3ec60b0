// SPDX-License-Identifier: Apache-2.0
// Questions that a host asks the translator.
#pragma once

#include "session/Session.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qzcam {

class Camera;

struct QuerySpec {
    const char* name;
    const char* argument;  // null if it takes none
    const char* help;
    std::string (*ask)(Camera& camera, const std::string& argument);
};

const std::vector<QuerySpec>& querySpecs();

// Returns the expected form for a command whose first `words` words are a query; empty if it is correct.
std::string expectedQueryForm(const Command& command, size_t words);

// Returns the answer to a command's query. The words of the command have been checked.
std::string askQuery(Camera& camera, const Command& command);

}  // namespace qzcam
