// System properties of a device, from what `getprop` prints or from a build.prop.
#pragma once

#include "Text.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

// "[name]: [value]", the value over several lines if need be, or "name=value"; '#' comments and blank lines.
std::vector<std::pair<std::string, std::string>> parseProperties(std::string_view text, Problems& problems);

// Sets one of this process. False for a name or value that no device would take either.
bool setProperty(const std::string& name, const std::string& value);

}  // namespace qzcam
