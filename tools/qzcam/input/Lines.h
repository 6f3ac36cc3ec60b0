// SPDX-License-Identifier: Apache-2.0
// Recognises lines that begin a kind of text.
#pragma once

#include <string_view>

namespace qzcam {

// "[ro.product.model]: [Phone]"
bool isPropertyLine(std::string_view line);

// "ro.product.model=Phone", of a build.prop
bool isBuildPropertyLine(std::string_view line);

// Returns true for a line with the fields of a log line, in any layout except the raw one.
bool isLogLine(std::string_view line);

// "--------- beginning of main"
bool isLogBeginning(std::string_view line);

// Returns true for a heading with which the dump of a camera service may begin.
bool isDumpHeading(std::string_view line);

// "CameraParameters::dump: mMap.size = 88", or flattened: "key=value;key=value".
bool isParameterLine(std::string_view line);

// A command at the prompt of a shell: "phone:/ $ dumpsys media.camera".
bool isPromptLine(std::string_view line);

}  // namespace qzcam
