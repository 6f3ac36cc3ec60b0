// SPDX-License-Identifier: Apache-2.0
// Files that are part of the program.
#pragma once

#include <string_view>

namespace qzcam {

std::string_view builtInDevice();
std::string_view builtInSession();
std::string_view viewerStyle();
std::string_view viewerScript();

}  // namespace qzcam
