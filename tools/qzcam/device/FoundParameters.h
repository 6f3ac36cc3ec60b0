// SPDX-License-Identifier: Apache-2.0
// Parameters where people find them: in a dump of the camera service, in a log, in a bugreport that has both.
#pragma once

#include "device/ParameterText.h"
#include "input/Parts.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct FoundParameters {
    // From what says least about a running application to what says most.
    enum class Source { Defaults, Reported, Dumped, Set };
    Source source = Source::Set;
    std::string what;  // "setParameters of process 812"
    size_t line = 0;
    ParameterText text;
};

// All sets of parameters in the order of the text.
std::vector<FoundParameters> findParameters(const std::vector<Part>& parts);

// The last set of the source that says most. Null for none.
const FoundParameters* bestOf(const std::vector<FoundParameters>& found);

}  // namespace qzcam
