// Parameters as people have them: flattened, or from a camera service's dump.
#pragma once

#include "base/Text.h"
#include "host/Camera.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct ParameterText {
    std::vector<Parameter> parameters;
    std::vector<size_t> cutLines;  // left out: their values are not all there
};

// "key=value;key=value", or lines "<tab>key: value".
ParameterText parseParameters(std::string_view text, Problems& problems);

// A file's, or those that the option itself holds; no option, none. Nothing, and a message, when they cannot
// be read.
std::optional<std::vector<Parameter>> readParameters(const std::string& textOrFile);

}  // namespace qzcam
