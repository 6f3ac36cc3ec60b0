// SPDX-License-Identifier: Apache-2.0
// Parameters as people have them: flattened, or from a camera service's dump.
#pragma once

#include "base/Text.h"
#include "host/Camera.h"

#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct ParameterText {
    std::vector<Parameter> parameters;
    std::vector<size_t> cutLines;  // left out: their values are not all there
};

// "key=value;key=value", or lines "<tab>key: value". What is neither is a problem, and the rest is read.
ParameterText parseParameters(std::string_view text, Problems& problems, size_t firstLine = 1);

// Adds the parameters of one line "<tab>key: value", on which several have run together if one was cut.
void addDumpedParameters(std::string_view line, size_t number, ParameterText& text, Problems& problems);

}  // namespace qzcam
