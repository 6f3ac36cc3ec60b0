// Files that are part of the program.
#pragma once

#include <string_view>

namespace qzcam {

std::string_view builtInDevice();
std::string_view builtInSession();

}  // namespace qzcam
